#include "win32/forms/PopupMenu.h"

#include <gmock/gmock.h>

#include "support/win32/PeerHarness.h"
#include "win32/WideText.h"

namespace pellmark::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PopupMenuTest : public ::testing::Test, protected PeerHarness {
  protected:
    PopupMenuTest() {
        menu.add("new", "&New...", [this] { ran.push_back("new"); });
        menu.add("bar2", "-");
        menu.add("delete", "Delete", [this] { ran.push_back("delete"); });
        menu.add("remove", "Remove", [this] { ran.push_back("remove"); });
        menu.add("bar1", "-");
        menu.add("print", "Print...", [this] { ran.push_back("print"); });
    }
    void TearDown() override { EXPECT_THAT(trace.lines(), IsEmpty()); }

    static std::vector<std::string> shown(const PopupMenu& popup) {
        std::vector<std::string> lines;
        for (int i = 0; i < ::GetMenuItemCount(popup.handle()); ++i) {
            wchar_t text[100] = L"";
            ::GetMenuStringW(popup.handle(), static_cast<UINT>(i), text, 100, MF_BYPOSITION);
            const UINT state = ::GetMenuState(popup.handle(), static_cast<UINT>(i), MF_BYPOSITION);
            lines.push_back((state & MF_SEPARATOR) != 0
                                ? "-"
                                : fromWide(text) + ((state & MF_GRAYED) != 0 ? " (off)" : ""));
        }
        return lines;
    }
    static HWND open() { return visibleWindowOfClass(L"#32768"); }
    void popUp(std::initializer_list<WORD> keys) {
        embed();
        focus(form->grid);
        std::vector<WORD> left(keys);
        const Meanwhile meanwhile({[] { return open() != nullptr; },
                                   [&] {
                                       if (left.empty()) return true;
                                       Person::sendKeys({left.front()});
                                       left.erase(left.begin());
                                       return false;
                                   }});
        form->popUp(menu, form->grid, {-1, -1});
    }
    static MenuItem& item(Menu& menu, const std::string& name) {
        return *std::find_if(menu.items().begin(), menu.items().end(),
                             [&](const MenuItem& each) { return each.name == name; });
    }

    Menu menu{"mnuProcess", "ProcessContext"};
    std::vector<std::string> ran;
};

TEST_F(PopupMenuTest, ItemsAreShownInOrderAndDisabledOnesGrey) {
    item(menu, "delete").enabled = false;
    EXPECT_THAT(shown(PopupMenu(menu)),
                ElementsAre("&New...", "-", "Delete (off)", "Remove", "-", "Print..."));
}

TEST_F(PopupMenuTest, AKeyThatDoesTheSameStandsAtTheRight) {
    item(menu, "delete").shortcut = "Del";
    EXPECT_THAT(shown(PopupMenu(menu)),
                ElementsAre("&New...", "-", "Delete\tDel", "Remove", "-", "Print..."));
}

TEST_F(PopupMenuTest, SeparatorsStandOnlyBetweenItems) {
    item(menu, "new").visible = false;
    item(menu, "print").visible = false;
    EXPECT_THAT(shown(PopupMenu(menu)), ElementsAre("Delete", "Remove"));
}

TEST_F(PopupMenuTest, SeparatorsNextToEachOtherBecomeOne) {
    item(menu, "delete").visible = false;
    item(menu, "remove").visible = false;
    EXPECT_THAT(shown(PopupMenu(menu)), ElementsAre("&New...", "-", "Print..."));
}

TEST_F(PopupMenuTest, TheChosenItemRunsAfterTheMenuHasClosed) {
    bool wasOpen = true;
    item(menu, "delete").command = [&] {
        wasOpen = open() != nullptr;
        ran.push_back("delete");
    };
    popUp({VK_DOWN, VK_DOWN, VK_RETURN});
    EXPECT_THAT(ran, ElementsAre("delete"));
    EXPECT_FALSE(wasOpen);
}

TEST_F(PopupMenuTest, EscapeRunsNothing) {
    popUp({VK_DOWN, VK_ESCAPE});
    EXPECT_THAT(ran, IsEmpty());
    EXPECT_TRUE(form->isLoaded());
}

TEST_F(PopupMenuTest, ACommandMayDestroyTheFormThatTheMenuStoodOver) {
    item(menu, "new").command = [&] {
        form->unload();
        ran.push_back("new");
    };
    popUp({VK_DOWN, VK_RETURN});
    EXPECT_THAT(ran, ElementsAre("new"));
    EXPECT_FALSE(form->isLoaded());
}

}  // namespace
}  // namespace pellmark::test
