#include "win32/table/ListViewPeer.h"

#include <gmock/gmock.h>

#include "support/win32/PeerHarness.h"

namespace pellmark::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ListViewPeerTest : public ::testing::Test, protected PeerHarness {
  protected:
    ListViewPeerTest() {
        members().setColumnHeaders({{"Members", 2000}, {"Unit", 900}});
        for (const char* each : {"Steel", "Aluminium", "Brass", "Cast iron", "Titanium"})
            members().add(ListItem{std::string("{") + each + "}", each, {"Metric"}});
        form->tabs.setIndex(1);
        embed();
        list_ = of(members());
        focus(members());
    }
    void TearDown() override { EXPECT_THAT(trace.lines(), IsEmpty()); }

    ListView& members() { return form->members; }
    HWND list() const { return list_; }
    HWND header() const { return reinterpret_cast<HWND>(::SendMessageW(list_, LVM_GETHEADER, 0, 0)); }
    POINT inItem(int index) const {
        RECT rect{};
        rect.left = LVIR_BOUNDS;
        ::SendMessageW(list_, LVM_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&rect));
        return {30, (rect.top + rect.bottom) / 2};
    }
    std::vector<int> selected() {
        std::vector<int> items;
        for (int i = 0; i < members().count(); ++i) {
            if (members().isSelected(i)) items.push_back(i);
        }
        return items;
    }
    int shownWidth(int column) const {
        return static_cast<int>(::SendMessageW(list_, LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column), 0));
    }
    int clientWidth() const {
        RECT client{};
        ::GetClientRect(list_, &client);
        return static_cast<int>(client.right);
    }
    int shownItems() const { return static_cast<int>(::SendMessageW(list_, LVM_GETITEMCOUNT, 0, 0)); }

  private:
    HWND list_ = nullptr;
};

TEST_F(ListViewPeerTest, ItemsAndColumnsFollowTheModel) {
    EXPECT_EQ(shownItems(), 5);
    EXPECT_EQ(::SendMessageW(header(), HDM_GETITEMCOUNT, 0, 0), 2);
    members().remove("{Brass}");
    EXPECT_EQ(shownItems(), 4);
    members().clear();
    EXPECT_EQ(shownItems(), 0);
}

TEST_F(ListViewPeerTest, AHeaderWithoutColumnsCoversWhatWasThereBefore) {
    members().setColumnHeaders({});
    Person::pump();
    const HDC screen = ::GetDC(header());
    const RECT dirty{0, 0, 100, 20};
    ::FillRect(screen, &dirty, static_cast<HBRUSH>(::GetStockObject(BLACK_BRUSH)));
    ::InvalidateRect(header(), nullptr, TRUE);
    ::UpdateWindow(header());
    const COLORREF color = ::GetPixel(screen, 30, 9);
    ::ReleaseDC(header(), screen);
    EXPECT_EQ(color, ::GetSysColor(COLOR_WINDOW));
}

TEST_F(ListViewPeerTest, ClicksSelectAndTellOfIt) {
    int changes = 0;
    const auto heard = members().selectionChanged.subscribe([&] { ++changes; });
    Person::click(list(), inItem(1));
    EXPECT_THAT(selected(), ElementsAre(1));
    EXPECT_EQ(members().current(), 1);
    EXPECT_GE(changes, 1);
    Person::clickWith(VK_CONTROL, list(), inItem(3));
    EXPECT_THAT(selected(), ElementsAre(1, 3));
    Person::clickWith(VK_SHIFT, list(), inItem(4));
    EXPECT_THAT(selected(), ElementsAre(3, 4));
}

TEST_F(ListViewPeerTest, ControlASelectsAll) {
    Person::press({VK_CONTROL, 'A'});
    EXPECT_EQ(members().selectedCount(), 5);
    EXPECT_EQ(::SendMessageW(list(), LVM_GETSELECTEDCOUNT, 0, 0), 5);
}

TEST_F(ListViewPeerTest, AClickOnAHeadingAsksForSorting) {
    std::vector<int> columns;
    const auto heard = members().columnClicked.subscribe([&](int col) { columns.push_back(col); });
    Person::click(header(), {20, 8});
    EXPECT_THAT(columns, ElementsAre(0));
}

TEST_F(ListViewPeerTest, ASortedListIsShownInItsOrderWithItsSelection) {
    members().select(0);
    members().setSorted(true);
    EXPECT_EQ(members().text(0, 0), "Aluminium");
    const int shown =
        static_cast<int>(::SendMessageW(list(), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
    EXPECT_EQ(shown, members().indexOf("{Steel}"));
}

TEST_F(ListViewPeerTest, ADraggedDividerResizesTheColumn) {
    RECT rect{};
    ::SendMessageW(header(), HDM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&rect));
    Person::drag(header(), {rect.right, 8}, {rect.right + 20, 8});
    EXPECT_NEAR(members().columnHeaders()[0].width, 2300, 60);
}

TEST_F(ListViewPeerTest, TheLastColumnReachesTheEdgeWhileNobodyHasChosenWidths) {
    EXPECT_EQ(shownWidth(0), 133);
    EXPECT_EQ(shownWidth(0) + shownWidth(1), clientWidth());
    EXPECT_EQ(members().columnHeaders()[1].width, 900) << "the model keeps its width";
    ::MoveWindow(reinterpret_cast<HWND>(form->handle()), 0, 0, 800, 500, TRUE);
    EXPECT_EQ(shownWidth(0) + shownWidth(1), clientWidth());
    members().setColumnWidth(0, 3000);
    EXPECT_EQ(shownWidth(1), 60) << "as in a restored layout";
}

TEST_F(ListViewPeerTest, AResizedColumnLeavesTheLastOneAsItWasDrawn) {
    const int drawn = shownWidth(1);
    ASSERT_GT(drawn, 60);
    Person::drag(header(), {shownWidth(0), 8}, {shownWidth(0) + 20, 8});
    EXPECT_EQ(shownWidth(1), drawn);
    EXPECT_EQ(members().columnHeaders()[1].width, drawn * 15);
    ::MoveWindow(reinterpret_cast<HWND>(form->handle()), 0, 0, 800, 500, TRUE);
    EXPECT_EQ(shownWidth(1), drawn);
}

TEST_F(ListViewPeerTest, ADoubleClickTellsItsItem) {
    std::vector<int> items;
    const auto heard = members().doubleClicked.subscribe([&](int index) { items.push_back(index); });
    Person::doubleClick(list(), inItem(2));
    EXPECT_THAT(items, ElementsAre(2));
}

TEST_F(ListViewPeerTest, TypingLeadsToTheItem) {
    members().select(0);
    Person::type("br");
    EXPECT_EQ(members().current(), 2);
}

}  // namespace
}  // namespace pellmark::test
