// What stands in the tip over a cell: a text that its column cuts off, and what the look of the cell means.
#include "support/win32/GridPeerFixture.h"
#include "win32/WideText.h"

namespace pellmark::test {
namespace {

class CellTipTest : public GridPeerFixture {
  protected:
    /// The tip that the system would show over the window; "" for none.
    std::string tipOf(HWND window) const {
        struct Search {
            TOOLINFOW tool{};
            wchar_t text[300] = L"";
        } search;
        search.tool.cbSize = sizeof search.tool;
        search.tool.hwnd = reinterpret_cast<HWND>(form->handle());
        search.tool.uId = reinterpret_cast<UINT_PTR>(window);
        search.tool.lpszText = search.text;
        ::EnumThreadWindows(
            ::GetCurrentThreadId(),
            [](HWND each, LPARAM lParam) -> BOOL {
                wchar_t name[100] = L"";
                ::GetClassNameW(each, name, 100);
                if (::lstrcmpW(name, TOOLTIPS_CLASSW) == 0) {
                    auto& asked = *reinterpret_cast<Search*>(lParam);
                    ::SendMessageW(each, TTM_GETTEXTW, std::size(asked.text),
                                   reinterpret_cast<LPARAM>(&asked.tool));
                }
                return TRUE;
            },
            reinterpret_cast<LPARAM>(&search));
        return fromWide(search.text);
    }
    /// With the mouse there, which has to arrive first.
    void expectTip(HWND window, POINT at, const std::string& expected) {
        Person::moveTo(window, at);
        Person::waitUntil([&] { return tipOf(window) == expected; });
        EXPECT_EQ(tipOf(window), expected);
    }
    POINT nameOf(int row) const { return inRow(row, 10); }
    POINT descriptionOf(int row) const { return inRow(row, divider(2) + 10); }
};

constexpr const char* kDescription =
    "Centre drill, drill through, chamfer both edges, ream to H7 where asked for";

TEST_F(CellTipTest, ATextThatItsColumnCutsOffStandsWholeInATip) {
    expectTip(list(), descriptionOf(0), kDescription);
    expectTip(list(), nameOf(0), "");
    grid().setColWidth(1, 600);
    expectTip(list(), nameOf(3), "Drill M5 no. 3");
}

TEST_F(CellTipTest, TheMeaningOfALookStandsInATip) {
    grid().setNote(1, 1, "attached to no feature case");
    grid().setNote(2, 4, "matches the feature case in part");
    expectTip(list(), nameOf(0), "attached to no feature case");
    expectTip(list(), nameOf(1), "");
    expectTip(list(), descriptionOf(1), std::string(kDescription) + " (matches the feature case in part)");
}

TEST_F(CellTipTest, WhereThereIsNoRowThereIsNoTip) {
    form->fill(2);
    const POINT description = descriptionOf(1);
    expectTip(list(), description, kDescription);
    expectTip(list(), {description.x, description.y + 3 * rowHeight()}, "");
}

TEST_F(CellTipTest, AListOfADialogHasTheSameTips) {
    form->tabs.setIndex(1);
    form->members.setColumnHeaders({{"Members", 900}, {"Unit", 900}});
    form->members.add("1", "Drill M8 with a long name");
    form->members.add("2", "M8");
    const HWND members = of(form->members);
    const auto middleOfRow = [members](int row) {
        RECT rect{};
        rect.left = LVIR_BOUNDS;
        ::SendMessageW(members, LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&rect));
        return POINT{10, (rect.top + rect.bottom) / 2};
    };
    expectTip(members, middleOfRow(0), "Drill M8 with a long name");
    expectTip(members, middleOfRow(1), "");
}

}  // namespace
}  // namespace pellmark::test
