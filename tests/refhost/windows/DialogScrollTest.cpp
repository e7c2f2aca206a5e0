#include "refhost/windows/DialogScroll.h"

#include <gtest/gtest.h>

#include "support/win32/Person.h"

namespace norvex {
namespace {

using pellmark::test::Person;

/// A dialog with room for two buttons in opposite corners.
class DialogScrollTest : public testing::Test {
  protected:
    DialogScrollTest() {
        resize(kWhole);
        letScroll(dialog_);
        ShowWindow(dialog_, SW_SHOW);
        SetForegroundWindow(dialog_);
        SetFocus(first_);
        Person::pump();
    }
    ~DialogScrollTest() override { DestroyWindow(dialog_); }

    HWND button(const wchar_t* text, int left, int top) const {
        return CreateWindowExW(0, L"BUTTON", text, WS_CHILD | WS_VISIBLE | WS_TABSTOP, left, top, 80, 30,
                               dialog_, nullptr, nullptr, nullptr);
    }
    /// Gives the client area a size.
    void resize(SIZE client) const {
        RECT outer{0, 0, client.cx, client.cy};
        AdjustWindowRectEx(&outer, kStyle, FALSE, 0);
        SetWindowPos(dialog_, nullptr, 0, 0, outer.right - outer.left, outer.bottom - outer.top,
                     SWP_NOMOVE | SWP_NOZORDER);
    }
    bool hasBar(LONG_PTR style) const { return (GetWindowLongPtrW(dialog_, GWL_STYLE) & style) != 0; }
    RECT place(HWND control) const {
        RECT at{};
        GetWindowRect(control, &at);
        MapWindowPoints(nullptr, dialog_, reinterpret_cast<POINT*>(&at), 2);
        return at;
    }
    bool isInSight(HWND control) const {
        RECT room{};
        GetClientRect(dialog_, &room);
        const RECT at = place(control);
        return at.left >= 0 && at.top >= 0 && at.right <= room.right && at.bottom <= room.bottom;
    }
    /// What a dialog's own loop makes of the key.
    void pressTab() const {
        MSG message{};
        message.hwnd = GetFocus();
        message.message = WM_KEYDOWN;
        message.wParam = VK_TAB;
        IsDialogMessageW(dialog_, &message);
    }

    static constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU;
    static constexpr SIZE kWhole{400, 300};
    static constexpr SIZE kSmall{200, 150};
    HWND dialog_ = CreateWindowExW(WS_EX_CONTROLPARENT, L"#32770", L"A dialog", kStyle, 50, 50, 100, 100,
                                   nullptr, nullptr, nullptr, nullptr);
    HWND first_ = button(L"First", 10, 10);
    HWND last_ = button(L"Last", 310, 260);
};

TEST_F(DialogScrollTest, ADialogWithRoomEnoughHasNoBars) {
    EXPECT_FALSE(hasBar(WS_VSCROLL));
    EXPECT_FALSE(hasBar(WS_HSCROLL));
    const RECT contents = contentsOf(dialog_);
    EXPECT_EQ(contents.right, kWhole.cx);
    EXPECT_EQ(contents.bottom, kWhole.cy);
}

TEST_F(DialogScrollTest, ThroughTheBarsEverythingIsReached) {
    resize(kSmall);
    EXPECT_FALSE(isInSight(last_));
    for (int page = 0; page < 3; ++page) {
        SendMessageW(dialog_, WM_VSCROLL, SB_PAGEDOWN, 0);
        SendMessageW(dialog_, WM_HSCROLL, SB_PAGEDOWN, 0);
    }
    EXPECT_TRUE(isInSight(last_));
    const RECT contents = contentsOf(dialog_);
    EXPECT_EQ(place(first_).left, contents.left + 10);
    EXPECT_EQ(place(first_).top, contents.top + 10);
    EXPECT_EQ(contents.right - contents.left, kWhole.cx);
    EXPECT_EQ(contents.bottom - contents.top, kWhole.cy);
}

TEST_F(DialogScrollTest, ALyingBarAloneIsEnoughForANarrowDialog) {
    resize({200, 400});
    EXPECT_FALSE(hasBar(WS_VSCROLL));
    EXPECT_TRUE(hasBar(WS_HSCROLL));
    EXPECT_GT(contentsOf(dialog_).bottom, kWhole.cy) << "what there is beyond the least";
}

TEST_F(DialogScrollTest, ADialogMayHaveTooLittleRoomFromTheBeginning) {
    const HWND dialog = CreateWindowExW(0, L"#32770", L"Too small", kStyle, 0, 0, 300, 200, nullptr, nullptr,
                                        nullptr, nullptr);
    letScroll(dialog, {600, 100});
    EXPECT_NE(GetWindowLongPtrW(dialog, GWL_STYLE) & WS_HSCROLL, 0);
    EXPECT_EQ(GetWindowLongPtrW(dialog, GWL_STYLE) & WS_VSCROLL, 0);
    EXPECT_EQ(contentsOf(dialog).right, 600);
    DestroyWindow(dialog);
}

TEST_F(DialogScrollTest, TheTabKeyBringsWhatItReachesIntoSight) {
    resize(kSmall);
    pressTab();
    ASSERT_EQ(GetFocus(), last_);
    EXPECT_TRUE(isInSight(last_));
    pressTab();
    ASSERT_EQ(GetFocus(), first_);
    EXPECT_TRUE(isInSight(first_));
}

TEST_F(DialogScrollTest, WithRoomAgainEverythingIsWhereItWas) {
    resize(kSmall);
    pressTab();
    resize(kWhole);
    EXPECT_FALSE(hasBar(WS_VSCROLL));
    EXPECT_FALSE(hasBar(WS_HSCROLL));
    EXPECT_EQ(place(first_).left, 10);
    EXPECT_EQ(place(first_).top, 10);
}

TEST_F(DialogScrollTest, TheWheelMovesByLines) {
    resize(kSmall);
    SendMessageW(dialog_, WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)), 0);
    const LONG down = place(first_).top;
    EXPECT_LT(down, 10);
    SendMessageW(dialog_, WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
    EXPECT_EQ(place(first_).top, 10);
}

}  // namespace
}  // namespace norvex
