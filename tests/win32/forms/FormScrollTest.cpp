#include <gmock/gmock.h>

#include "support/win32/PeerHarness.h"
#include "win32/forms/FormWindow.h"

namespace pellmark::test {
namespace {

/// The sample form wants 300 by 200 pixels at least.
class FormScrollTest : public ::testing::Test, protected PeerHarness {
  protected:
    void TearDown() override { EXPECT_THAT(trace.lines(), ::testing::IsEmpty()); }

    HWND window() const { return reinterpret_cast<HWND>(form->handle()); }
    void embedIn(int width, int height) {
        embed();
        resize(width, height);
    }
    void resize(int width, int height) {
        ::MoveWindow(window(), 0, 0, width, height, TRUE);
        Person::pump();
    }
    bool hasBar(LONG_PTR style) const { return (::GetWindowLongPtrW(window(), GWL_STYLE) & style) != 0; }
    SIZE room() const {
        RECT client{};
        ::GetClientRect(window(), &client);
        return {client.right, client.bottom};
    }
    /// In the form's client area.
    RECT place(Control& control) const {
        RECT at{};
        ::GetWindowRect(of(control), &at);
        ::MapWindowPoints(nullptr, window(), reinterpret_cast<POINT*>(&at), 2);
        return at;
    }
    bool isInView(Control& control) const {
        const RECT at = place(control);
        return at.left >= 0 && at.top >= 0 && at.right <= room().cx && at.bottom <= room().cy;
    }
    int barPlace(int bar) const {
        SCROLLINFO info{};
        info.cbSize = sizeof info;
        info.fMask = SIF_POS;
        ::GetScrollInfo(window(), bar, &info);
        return info.nPos;
    }
};

TEST_F(FormScrollTest, AWindowWithRoomEnoughHasNoBars) {
    embedIn(300, 200);
    EXPECT_FALSE(hasBar(WS_VSCROLL));
    EXPECT_FALSE(hasBar(WS_HSCROLL));
    EXPECT_EQ(form->clientSize(), (Size{4500, 3000}));
}

TEST_F(FormScrollTest, ALowWindowGetsAStandingBarAndTheFormKeepsItsSmallestHeight) {
    embedIn(400, 120);
    EXPECT_TRUE(hasBar(WS_VSCROLL));
    EXPECT_FALSE(hasBar(WS_HSCROLL));
    EXPECT_EQ(form->clientSize().height, 3000);
    EXPECT_EQ(form->clientSize().width, room().cx * 15);
    EXPECT_LT(room().cx, 400);
}

TEST_F(FormScrollTest, ANarrowWindowGetsALyingBar) {
    embedIn(200, 400);
    EXPECT_FALSE(hasBar(WS_VSCROLL));
    EXPECT_TRUE(hasBar(WS_HSCROLL));
    EXPECT_EQ(form->clientSize().width, 4500);
    EXPECT_EQ(form->clientSize().height, room().cy * 15);
}

TEST_F(FormScrollTest, TheBarsGoWhenTheHostGivesRoomAgain) {
    embedIn(200, 120);
    ::SendMessageW(window(), WM_VSCROLL, SB_BOTTOM, 0);
    ::SendMessageW(window(), WM_HSCROLL, SB_RIGHT, 0);
    EXPECT_LT(place(form->tabs).top, 0);
    resize(640, 480);
    EXPECT_FALSE(hasBar(WS_VSCROLL));
    EXPECT_FALSE(hasBar(WS_HSCROLL));
    EXPECT_EQ(form->clientSize(), (Size{9600, 7200}));
    EXPECT_EQ(place(form->tabs).top, 8);
    EXPECT_EQ(place(form->tabs).left, 8);
}

TEST_F(FormScrollTest, TheBarsLeadToEverythingThatDoesNotFit) {
    embedIn(200, 120);
    EXPECT_FALSE(isInView(form->help));
    ::SendMessageW(window(), WM_VSCROLL, SB_BOTTOM, 0);
    ::SendMessageW(window(), WM_HSCROLL, SB_BOTTOM, 0);
    EXPECT_TRUE(isInView(form->help));
    EXPECT_EQ(place(form->buttons).bottom, room().cy);
    ::SendMessageW(window(), WM_VSCROLL, SB_TOP, 0);
    ::SendMessageW(window(), WM_HSCROLL, SB_TOP, 0);
    EXPECT_EQ(place(form->tabs).top, 8);
}

TEST_F(FormScrollTest, TheMouseOnTheArrowOfABarScrolls) {
    embedIn(400, 120);
    Person::click(window(), {room().cx + 8, room().cy - 8});
    EXPECT_TRUE(Person::waitUntil([&] { return place(form->tabs).top == 8 - 20; })) << place(form->tabs).top;
    EXPECT_EQ(barPlace(SB_VERT), 20);
}

TEST_F(FormScrollTest, APageLeadsToTheNextPart) {
    embedIn(400, 90);
    ::SendMessageW(window(), WM_VSCROLL, SB_PAGEDOWN, 0);
    EXPECT_EQ(barPlace(SB_VERT), room().cy);
    ::SendMessageW(window(), WM_VSCROLL, SB_PAGEUP, 0);
    EXPECT_EQ(barPlace(SB_VERT), 0);
}

TEST_F(FormScrollTest, TheWheelOverAnEmptyPlaceScrolls) {
    embedIn(400, 120);
    focus(form->ok);
    ::SendMessageW(window(), WM_VSCROLL, SB_TOP, 0);
    Person::turnWheel(window(), {3, 3}, -1);
    EXPECT_TRUE(Person::waitUntil([&] { return barPlace(SB_VERT) == 60; })) << barPlace(SB_VERT);
    Person::turnWheel(window(), {3, 3}, 1);
    EXPECT_TRUE(Person::waitUntil([&] { return barPlace(SB_VERT) == 0; }));
}

TEST_F(FormScrollTest, TurningTheWheelALittleAddsUp) {
    embedIn(400, 90);
    for (int i = 0; i < 4; ++i)
        ::SendMessageW(window(), WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA / 4)), 0);
    EXPECT_EQ(barPlace(SB_VERT), 60);
}

TEST_F(FormScrollTest, TheWheelIsTheHostsWhereThereIsNothingToScroll) {
    embedIn(640, 480);
    static int heard = 0;
    heard = 0;
    const auto listen = [](HWND hwnd, UINT message, WPARAM w, LPARAM l, UINT_PTR, DWORD_PTR) -> LRESULT {
        if (message == WM_MOUSEWHEEL) ++heard;
        return ::DefSubclassProc(hwnd, message, w, l);
    };
    ::SetWindowSubclass(host(), listen, 3, 0);
    ::SendMessageW(window(), WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
    EXPECT_EQ(heard, 1);
    ::RemoveWindowSubclass(host(), listen, 3);
}

TEST_F(FormScrollTest, TheKeyboardBringsItsControlIntoView) {
    embedIn(250, 120);
    focus(form->ok);
    EXPECT_TRUE(isInView(form->ok));
    Person::press({VK_TAB});
    Person::press({VK_TAB});
    ASSERT_TRUE(hasFocus(form->help));
    EXPECT_TRUE(isInView(form->help));
    Person::press({VK_TAB});
    ASSERT_TRUE(hasFocus(form->tabs));
    EXPECT_EQ(place(form->tabs).top, 0) << "larger than the window: its beginning";
}

TEST_F(FormScrollTest, NothingMovesUnderAPressedMouse) {
    embedIn(400, 120);
    ::SendMessageW(window(), WM_VSCROLL, SB_LINEDOWN, 0);
    const RECT before = place(form->grid);
    Person::click(of(form->grid), {30, 60});
    EXPECT_TRUE(hasFocus(form->grid));
    EXPECT_EQ(place(form->grid).top, before.top);
}

TEST_F(FormScrollTest, AFieldComesIntoViewWithItsLabelAndOfAWideOneItsBeginning) {
    form->tabs.setIndex(1);
    form->setMinimumSize(form->clientSize());
    embedIn(190, 160);
    ::SendMessageW(window(), WM_HSCROLL, SB_RIGHT, 0);
    focus(form->name);
    ASSERT_GT(place(form->name).right, room().cx) << "not everything has room";
    EXPECT_GE(place(form->nameLabel).left, 0);
    EXPECT_LT(place(form->name).left, room().cx / 2);
    resize(400, 160);
    ::SendMessageW(window(), WM_HSCROLL, SB_RIGHT, 0);
    focus(form->unit);
    EXPECT_TRUE(isInView(form->unit));
    EXPECT_TRUE(isInView(form->unitLabel));
}

/// The second page's list of values, whose cells of the second column can be edited, in a form of which the
/// window shows a part.
class EditInSightTest : public FormScrollTest {
  protected:
    EditInSightTest() {
        form->tabs.setIndex(1);
        form->setMinimumSize(form->clientSize());
        embedIn(250, 160);
        focus(form->values);
        form->values.select(3, 0);
    }
    /// The box over the cell, in the form's client area.
    RECT box() const {
        RECT at{};
        ::GetWindowRect(::GetFocus(), &at);
        ::MapWindowPoints(nullptr, window(), reinterpret_cast<POINT*>(&at), 2);
        return at;
    }
    bool isEditing() const { return ::GetParent(::GetFocus()) == of(form->values); }
    bool isBoxInView() const {
        const RECT at = box();
        return at.left >= 0 && at.top >= 0 && at.right <= room().cx && at.bottom <= room().cy;
    }
};

TEST_F(EditInSightTest, TheCellThatIsEditedComesIntoViewAndStaysThereAfterwards) {
    ASSERT_GT(place(form->values).right, room().cx) << "the list is wider than the window";
    Person::press({VK_F2});
    ASSERT_TRUE(isEditing());
    EXPECT_TRUE(isBoxInView()) << box().left << " to " << box().right << " of " << room().cx;
    const RECT during = place(form->values);
    Person::press({VK_RETURN});
    EXPECT_TRUE(hasFocus(form->values));
    EXPECT_EQ(place(form->values).left, during.left);
    EXPECT_EQ(place(form->values).top, during.top);
}

TEST_F(EditInSightTest, SoDoesACellWithChoices) {
    form->values.select(1, 0);
    Person::press({VK_MENU, VK_DOWN});
    ASSERT_TRUE(isEditing());
    EXPECT_TRUE(isBoxInView()) << box().left << " to " << box().right << " of " << room().cx;
}

TEST_F(EditInSightTest, UnderThePressedMouseNothingMoves) {
    ::SendMessageW(window(), WM_HSCROLL, SB_LEFT, 0);
    const RECT before = place(form->values);
    Person::doubleClick(of(form->values), {140, 70});
    EXPECT_EQ(place(form->values).left, before.left);
}

TEST_F(FormScrollTest, AFormWhoseNeedsGrowGetsItsBarsAtOnce) {
    embedIn(400, 300);
    EXPECT_FALSE(hasBar(WS_VSCROLL));
    form->setMinimumSize({4500, 6000});
    EXPECT_TRUE(hasBar(WS_VSCROLL));
    EXPECT_EQ(form->clientSize().height, 6000);
    form->setMinimumSize({4500, 3000});
    EXPECT_FALSE(hasBar(WS_VSCROLL));
}

class ModalScrollTest : public FormScrollTest {
  protected:
    static RECT workArea() {
        RECT area{};
        ::SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
        return area;
    }
};

TEST_F(ModalScrollTest, AFixedDialogLargerThanTheScreenIsAsLargeAsThatAndScrolls) {
    form->setBorderStyle(BorderStyle::FixedDialog);
    form->setClientSize({60000, 45000});
    RECT at{};
    bool scrolls = false;
    Size laidOut;
    showModal([&] {
        ::GetWindowRect(window(), &at);
        scrolls = hasBar(WS_VSCROLL) && hasBar(WS_HSCROLL);
        laidOut = form->clientSize();
    });
    const RECT screen = workArea();
    EXPECT_TRUE(::EqualRect(&at, &screen)) << at.left << ' ' << at.top << ' ' << at.right << ' ' << at.bottom;
    EXPECT_TRUE(scrolls);
    EXPECT_EQ(laidOut, (Size{60000, 45000}));
}

TEST_F(ModalScrollTest, AFixedDialogThatIsOnlyTooWideDoesNotScrollUpAndDownForItsBar) {
    form->setBorderStyle(BorderStyle::FixedDialog);
    form->setClientSize({60000, 6000});
    bool lying = false;
    bool standing = true;
    showModal([&] {
        lying = hasBar(WS_HSCROLL);
        standing = hasBar(WS_VSCROLL);
    });
    EXPECT_TRUE(lying);
    EXPECT_FALSE(standing);
}

TEST_F(ModalScrollTest, ASizableDialogWhoseLeastIsLargerThanTheScreenIsToo) {
    form->setMinimumSize({9000, 45000});
    RECT at{};
    bool scrolls = false;
    showModal([&] {
        ::SetWindowPos(window(), nullptr, 0, 0, 700, 5000, SWP_NOMOVE | SWP_NOZORDER);
        ::SetWindowPos(window(), nullptr, 0, 0, 1, 1, SWP_NOMOVE | SWP_NOZORDER);
        ::GetWindowRect(window(), &at);
        scrolls = hasBar(WS_VSCROLL);
    });
    const RECT screen = workArea();
    EXPECT_EQ(at.bottom - at.top, screen.bottom - screen.top);
    EXPECT_TRUE(scrolls);
}

TEST_F(ModalScrollTest, APersonDoesNotGetADialogSmallerThanItsLeast) {
    RECT client{};
    showModal([&] {
        ::SetWindowPos(window(), nullptr, 0, 0, 1, 1, SWP_NOMOVE | SWP_NOZORDER);
        ::GetClientRect(window(), &client);
    });
    EXPECT_EQ(client.right, 300);
    EXPECT_EQ(client.bottom, 200);
}

TEST_F(ModalScrollTest, ADialogThatWasLeftOnALargerScreenIsNoLargerThanThisOne) {
    form->setBounds({1500, 1500, 60000, 9000});
    RECT at{};
    showModal([&] { ::GetWindowRect(window(), &at); });
    const RECT screen = workArea();
    EXPECT_EQ(at.left, screen.left);
    EXPECT_EQ(at.right, screen.right);
    EXPECT_EQ(at.top, 100);
}

}  // namespace
}  // namespace pellmark::test
