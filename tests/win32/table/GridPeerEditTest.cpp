#include "win32/table/GridPeer.h"

#include "support/win32/GridPeerFixture.h"

namespace pellmark::test {
namespace {

class GridPeerEditTest : public GridPeerFixture {
  protected:
    GridPeerEditTest() {
        form->tabs.setIndex(1);
        focus(values());
    }
    Grid& values() { return form->values; }
    HWND editor(const wchar_t* className) {
        return ::FindWindowExW(of(values()), nullptr, className, nullptr);
    }
    HWND line() { return editor(L"Edit"); }
    HWND choices() { return editor(L"ComboBox"); }
    POINT inValue(int row) {
        RECT rect{};
        rect.left = LVIR_BOUNDS;
        ::SendMessageW(of(values()), LVM_GETITEMRECT, static_cast<WPARAM>(row),
                       reinterpret_cast<LPARAM>(&rect));
        return {140, (rect.top + rect.bottom) / 2};
    }
};

TEST_F(GridPeerEditTest, F2EditsTheLineAndEnterCommits) {
    values().select(3, 0);
    Person::press({VK_F2});
    ASSERT_NE(line(), nullptr);
    Person::type("deep");
    Person::press({VK_RETURN});
    EXPECT_EQ(values().text(3, 1), "deep");
    EXPECT_EQ(line(), nullptr);
    EXPECT_TRUE(hasFocus(values()));
}

TEST_F(GridPeerEditTest, EscapeLeavesTheCellAsItWas) {
    values().select(2, 0);
    Person::press({VK_F2});
    Person::type("x");
    Person::press({VK_ESCAPE});
    EXPECT_EQ(values().text(2, 1), "H7");
    EXPECT_FALSE(values().isEditing());
    EXPECT_EQ(line(), nullptr);
}

TEST_F(GridPeerEditTest, LosingTheFocusCommits) {
    values().select(2, 0);
    Person::press({VK_F2});
    Person::type("H8");
    Person::click(of(form->name));
    EXPECT_EQ(values().text(2, 1), "H8");
    EXPECT_EQ(line(), nullptr);
}

TEST_F(GridPeerEditTest, ARefusedValueKeepsThePersonInTheCell) {
    const auto veto =
        values().validateEdit.subscribe([](CellEdit& edit) { edit.cancel = edit.text == "bad"; });
    values().select(2, 0);
    Person::press({VK_F2});
    Person::type("bad");
    Person::press({VK_RETURN});
    EXPECT_NE(line(), nullptr);
    EXPECT_TRUE(values().isEditing());
    Person::press({VK_ESCAPE});
    EXPECT_EQ(values().text(2, 1), "H7");
}

TEST_F(GridPeerEditTest, ARefusalThatIsToldInABoxKeepsThePersonInTheCell) {
    int offered = 0;
    const auto veto = values().validateEdit.subscribe([&](CellEdit& edit) {
        ++offered;
        edit.cancel = true;
        const HWND focus = ::GetFocus();
        ::SetFocus(host());  // as a message box does
        ::SetFocus(focus);
    });
    values().select(2, 0);
    Person::press({VK_F2});
    Person::type("bad");
    Person::press({VK_RETURN});
    EXPECT_EQ(offered, 1);
    EXPECT_NE(line(), nullptr);
    EXPECT_TRUE(values().isEditing());
    Person::press({VK_ESCAPE});
    EXPECT_FALSE(values().isEditing());
}

TEST_F(GridPeerEditTest, ACellWithChoicesOpensItsListAtOnce) {
    Person::click(of(values()), inValue(0));
    ASSERT_NE(choices(), nullptr);
    EXPECT_TRUE(::SendMessageW(choices(), CB_GETDROPPEDSTATE, 0, 0));
    EXPECT_EQ(::SendMessageW(choices(), CB_GETCURSEL, 0, 0), 1);
    Person::press({VK_DOWN});
    Person::press({VK_RETURN});
    EXPECT_EQ(values().text(1, 1), "M10");
    EXPECT_EQ(choices(), nullptr);
}

TEST_F(GridPeerEditTest, ACellByWhichItsRowIsDraggedIsNotEdited) {
    int drags = 0;
    const auto drag = values().dragStarted.subscribe([&](DragData&) { ++drags; });
    values().select(2, 0);
    Person::drag(of(values()), inValue(1), {inValue(1).x + 40, inValue(1).y + 20});
    EXPECT_EQ(drags, 1);
    const auto end = ::GetTickCount64() + 2 * ::GetDoubleClickTime();
    EXPECT_TRUE(Person::waitUntil([&] { return ::GetTickCount64() >= end; }));
    EXPECT_FALSE(values().isEditing());
}

TEST_F(GridPeerEditTest, AListDoesNotOpenAfterADragThatThePressBegan) {
    values().select(3, 0);
    int drags = 0;
    const auto drag = values().dragStarted.subscribe([&](DragData&) { ++drags; });
    const auto duringThePress = values().rowChanged.subscribe([&] {
        NMLISTVIEW begun{};
        begun.hdr = {of(values()), 0, LVN_BEGINDRAG};
        ::SendMessageW(::GetParent(of(values())), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&begun));
    });
    Person::click(of(values()), inValue(0));
    EXPECT_EQ(drags, 1);
    EXPECT_EQ(choices(), nullptr);
}

TEST_F(GridPeerEditTest, AltAndDownOpenTheListOfACell) {
    values().select(1, 0);
    Person::press({VK_MENU, VK_DOWN});
    ASSERT_NE(choices(), nullptr);
    EXPECT_TRUE(::SendMessageW(choices(), CB_GETDROPPEDSTATE, 0, 0));
    Person::press({VK_DOWN});
    Person::press({VK_RETURN});
    EXPECT_EQ(values().text(1, 1), "M10");
    EXPECT_TRUE(hasFocus(values()));
}

TEST_F(GridPeerEditTest, EnterOpensTheCellWhereNothingElseIsMeantByIt) {
    form->setDefaultButton(nullptr);
    values().select(1, 0);
    Person::press({VK_RETURN});
    ASSERT_NE(choices(), nullptr);
    Person::press({VK_ESCAPE});
    EXPECT_EQ(values().text(1, 1), "M8");
    const auto taken = values().keyPressed.subscribe([](KeyPress& key) { key.handled = true; });
    Person::press({VK_RETURN});
    EXPECT_EQ(choices(), nullptr);
}

TEST_F(GridPeerEditTest, AChoiceMadeWithTheMouseIsCommitted) {
    Person::click(of(values()), inValue(0));
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    ASSERT_TRUE(::GetComboBoxInfo(choices(), &info));
    Person::click(info.hwndList, {20, 5});
    EXPECT_TRUE(Person::waitUntil([&] { return choices() == nullptr; }));
    EXPECT_EQ(values().text(1, 1), "M6");
}

TEST_F(GridPeerEditTest, ADoubleClickOnAnEditableLineEditsIt) {
    int doubleClicks = 0;
    const auto clicked = values().doubleClicked.subscribe([&](int) { ++doubleClicks; });
    Person::doubleClick(of(values()), inValue(2));
    EXPECT_NE(line(), nullptr);
    EXPECT_EQ(doubleClicks, 0);
}

TEST_F(GridPeerEditTest, ACellBeyondTheEdgeComesIntoSight) {
    values().setColWidth(0, 6000);
    values().select(2, 0);
    Person::press({VK_F2});
    RECT area{};
    RECT box{};
    ::GetClientRect(of(values()), &area);
    ::GetWindowRect(line(), &box);
    ::MapWindowPoints(nullptr, of(values()), reinterpret_cast<POINT*>(&box), 2);
    EXPECT_GE(box.left, 0);
    EXPECT_LE(box.right, area.right);
    Person::press({VK_ESCAPE});
    ::SendMessageW(of(values()), LVM_SCROLL, static_cast<WPARAM>(-1000), 0);
    values().setColWidth(1, 12000);
    Person::press({VK_F2});
    ::GetWindowRect(line(), &box);
    ::MapWindowPoints(nullptr, of(values()), reinterpret_cast<POINT*>(&box), 2);
    EXPECT_EQ(box.left, 0) << "wider than the window: its beginning";
}

/// Three columns, the last two of which can be edited.
class GridPeerTabTest : public GridPeerEditTest {
  protected:
    GridPeerTabTest() {
        values().setHeadings("Key|Value|Note");
        values().setColEditable(1, true);
        values().setColEditable(2, true);
        values().setRows(4);
        values().select(2, 0);
    }
};

TEST_F(GridPeerTabTest, TabCommitsAndGoesOnInTheNextCellThatCanBeEdited) {
    Person::press({VK_F2});
    Person::type("H8");
    Person::press({VK_TAB});
    EXPECT_EQ(values().text(2, 1), "H8");
    ASSERT_TRUE(values().isEditing());
    EXPECT_EQ(values().editing()->row, 2);
    EXPECT_EQ(values().editing()->col, 2);
    Person::type("reamed");
    Person::press({VK_TAB});
    EXPECT_EQ(values().text(2, 2), "reamed");
    EXPECT_FALSE(values().isEditing()) << "the last of the row";
    EXPECT_TRUE(hasFocus(values()));
}

TEST_F(GridPeerTabTest, ShiftAndTabGoBack) {
    values().setCurrent(2, 2);
    Person::press({VK_F2});
    ASSERT_EQ(values().editing()->col, 2);
    Person::press({VK_SHIFT, VK_TAB});
    ASSERT_TRUE(values().isEditing());
    EXPECT_EQ(values().editing()->col, 1);
    Person::press({VK_SHIFT, VK_TAB});
    EXPECT_FALSE(values().isEditing());
    EXPECT_TRUE(hasFocus(values()));
}

TEST_F(GridPeerTabTest, ARefusedValueKeepsThePersonInTheCell) {
    const auto veto = values().validateEdit.subscribe([](CellEdit& edit) { edit.cancel = true; });
    Person::press({VK_F2});
    Person::type("bad");
    Person::press({VK_TAB});
    ASSERT_TRUE(values().isEditing());
    EXPECT_EQ(values().editing()->col, 1);
}

TEST_F(GridPeerTabTest, ARowThatGoesWhenItsValueIsStoredIsNotEditedFurther) {
    const auto stored = values().afterEdit.subscribe([&](int row, int) { values().removeRow(row); });
    Person::press({VK_F2});
    Person::type("H8");
    Person::press({VK_TAB});
    EXPECT_EQ(values().rows(), 3);
    EXPECT_FALSE(values().isEditing());
}

TEST_F(GridPeerTabTest, AGridThatGoesWhenItsValueIsStoredIsLeftAlone) {
    const auto stored = values().afterEdit.subscribe([&](int, int) { form->unload(); });
    Person::press({VK_F2});
    Person::type("H8");
    Person::press({VK_TAB});
    EXPECT_FALSE(form->isLoaded());
    EXPECT_EQ(values().text(2, 1), "H8");
}

TEST_F(GridPeerEditTest, AColumnThatIsNotEditableStaysShut) {
    values().setColEditable(1, false);
    values().select(2, 0);
    Person::press({VK_F2});
    EXPECT_EQ(line(), nullptr);
}

}  // namespace
}  // namespace pellmark::test
