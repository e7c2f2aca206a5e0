#include "win32/controls/CheckListPeer.h"

#include <gmock/gmock.h>

#include "support/win32/PeerHarness.h"

namespace pellmark::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ChoosingForm : public Form {
  public:
    explicit ChoosingForm(Desktop& desktop) : Form(desktop, "choosing") {
        setBorderStyle(BorderStyle::Sizable);
        setClientSize({6000, 4000});
        list.place({0, 0, 6000, 3000}, {6000, 4000}, {true, true, true, true});
        for (const char* each : {"Name", "Unit", "Rule", "Description"})
            list.addItem(each, list.count());
        list.setSelected(1, true);
    }
    CheckList list{*this, "list"};
    Button ok{*this, "ok", "OK"};
};

class CheckListPeerTest : public ::testing::Test, protected PeerHarness {
  protected:
    CheckListPeerTest() {
        choosing.embed(reinterpret_cast<WindowHandle>(host()));
        Person::waitUntil([&] { return ::GetForegroundWindow() == host(); });
        window_ = ::FindWindowExW(reinterpret_cast<HWND>(choosing.handle()), nullptr, WC_LISTVIEWW, nullptr);
        ::SetFocus(window_);
        Person::pump();
    }
    void TearDown() override { EXPECT_THAT(trace.lines(), IsEmpty()); }

    HWND window() const { return window_; }
    std::vector<bool> selected() const {
        std::vector<bool> states;
        for (const CheckList::Item& item : choosing.list.items())
            states.push_back(item.selected);
        return states;
    }
    std::vector<bool> ticked() const {
        std::vector<bool> states;
        for (WPARAM i = 0; i < 4; ++i) {
            const auto state = ::SendMessageW(window_, LVM_GETITEMSTATE, i, LVIS_STATEIMAGEMASK);
            states.push_back(state == INDEXTOSTATEIMAGEMASK(2));
        }
        return states;
    }
    /// The middle of an item's box, or of its text.
    POINT in(int item, int part) const {
        RECT rect{};
        rect.left = part;
        ::SendMessageW(window_, LVM_GETITEMRECT, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&rect));
        const LONG left = part == LVIR_LABEL ? rect.left + 10 : rect.left + 8;
        return {left, (rect.top + rect.bottom) / 2};
    }

    ChoosingForm choosing{desktop};

  private:
    HWND window_ = nullptr;
};

TEST_F(CheckListPeerTest, ShowsATickBeforeWhatIsSelected) {
    EXPECT_THAT(ticked(), ElementsAre(false, true, false, false));
    choosing.list.setSelected(3, true);
    choosing.list.setSelected(1, false);
    EXPECT_THAT(ticked(), ElementsAre(false, false, false, true));
}

TEST_F(CheckListPeerTest, SpaceTogglesAndTheArrowsMove) {
    Person::press({VK_SPACE});
    EXPECT_THAT(selected(), ElementsAre(true, true, false, false));
    Person::press({VK_DOWN});
    Person::press({VK_SPACE});
    Person::press({VK_END});
    Person::press({VK_SPACE});
    EXPECT_THAT(selected(), ElementsAre(true, false, false, true));
    Person::press({VK_SPACE});
    EXPECT_THAT(selected(), ElementsAre(true, false, false, false));
    EXPECT_THAT(ticked(), ElementsAre(true, false, false, false));
}

TEST_F(CheckListPeerTest, AClickOnABoxTogglesItAndIsHeardOnce) {
    std::vector<int> heard;
    const auto changed = choosing.list.selectionChanged.subscribe([&](int item) { heard.push_back(item); });
    Person::click(window(), {in(2, LVIR_BOUNDS).x, in(2, LVIR_BOUNDS).y});
    EXPECT_THAT(selected(), ElementsAre(false, true, true, false));
    EXPECT_THAT(heard, ElementsAre(2));
}

TEST_F(CheckListPeerTest, AClickOnATextMovesThereAndChangesNothing) {
    Person::click(window(), in(2, LVIR_LABEL));
    EXPECT_THAT(selected(), ElementsAre(false, true, false, false));
    Person::press({VK_SPACE});
    EXPECT_THAT(selected(), ElementsAre(false, true, true, false));
}

TEST_F(CheckListPeerTest, OtherItemsAreShownWithTheirState) {
    choosing.list.clear();
    choosing.list.addItem("Priority", 9);
    choosing.list.setSelected(0, true);
    EXPECT_EQ(::SendMessageW(window(), LVM_GETITEMCOUNT, 0, 0), 1);
    EXPECT_TRUE(ticked()[0]);
    EXPECT_EQ(choosing.list.items()[0].selected, true);
}

TEST_F(CheckListPeerTest, TheTextsHaveTheWholeWidth) {
    ::MoveWindow(reinterpret_cast<HWND>(choosing.handle()), 0, 0, 300, 200, TRUE);
    RECT client{};
    ::GetClientRect(window(), &client);
    EXPECT_EQ(::SendMessageW(window(), LVM_GETCOLUMNWIDTH, 0, 0), client.right);
    EXPECT_LT(client.right, 310);
}

TEST_F(CheckListPeerTest, TabLeavesTheListAndSpaceStaysOutOfTheButtons) {
    int clicks = 0;
    const auto heard = choosing.ok.clicked.subscribe([&] { ++clicks; });
    Person::press({VK_SPACE});
    EXPECT_EQ(clicks, 0);
    Person::press({VK_TAB});
    Person::press({VK_SPACE});
    EXPECT_EQ(clicks, 1);
    EXPECT_THAT(selected(), ElementsAre(true, true, false, false));
}

TEST_F(CheckListPeerTest, WhatIsTickedStaysSoOnAScreenOfAnotherResolution) {
    const auto before = selected();
    desktop.overrideDpi(192);
    ::SendMessageW(reinterpret_cast<HWND>(choosing.handle()), 0x02E3, 0, 0);
    EXPECT_EQ(selected(), before);
    EXPECT_EQ(ticked(), before);
    Person::click(window(), in(0, LVIR_BOUNDS));
    EXPECT_TRUE(choosing.list.isSelected(0));
}

}  // namespace
}  // namespace pellmark::test
