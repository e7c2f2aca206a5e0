#include <gmock/gmock.h>
#include <windows.h>

#include "win32/Win32Clock.h"
#include "win32/Win32CodePage.h"
#include "win32/Win32Idle.h"

namespace pellmark::test {

TEST(Win32ClockTest, TheTimeIsWrittenWithItsMilliseconds) {
    EXPECT_THAT(Win32Clock().now(),
                ::testing::MatchesRegex(
                    "[0-9]+-[0-9][0-9]-[0-9][0-9] [0-9][0-9]:[0-9][0-9]:[0-9][0-9].[0-9][0-9][0-9]"));
}

TEST(Win32CodePageTest, CharactersOfTheCodePageSurviveBothWays) {
    if (::GetACP() != 1252) GTEST_SKIP() << "the texts are those of Windows-1252";
    const Win32CodePage codePage;
    EXPECT_EQ(codePage.toAnsi("\xC3\x98 8 \xE2\x82\xAC"), "\xD8 8 \x80");
    EXPECT_EQ(codePage.fromAnsi("\xD8 8 \x80"), "\xC3\x98 8 \xE2\x82\xAC");
    EXPECT_EQ(codePage.toAnsi(std::string("a\0b", 3)), std::string("a\0b", 3));
    EXPECT_EQ(codePage.fromAnsi(std::string("a\0b", 3)), std::string("a\0b", 3));
}

TEST(Win32CodePageTest, WhatTheCodePageLacksBecomesAQuestionMarkAndNoLookAlike) {
    if (::GetACP() != 1252) GTEST_SKIP() << "the texts are those of Windows-1252";
    const Win32CodePage codePage;
    EXPECT_EQ(codePage.toAnsi("\xEF\xBC\x8E\xEF\xBC\x8E\xEF\xBC\xBC"), "???");  // fullwidth "..\"
    EXPECT_EQ(codePage.toAnsi("\xC4\x80"), "?");                                // A with macron
}

class Win32IdleTest : public ::testing::Test {
  protected:
    static constexpr UINT kKnock = WM_APP + 1;

    Win32IdleTest() {
        WNDCLASSW description{};
        description.lpszClassName = L"PellmarkIdleTest";
        description.lpfnWndProc = [](HWND window, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
            if (message == kKnock) ++*reinterpret_cast<int*>(lParam);
            return ::DefWindowProcW(window, message, wParam, lParam);
        };
        ::RegisterClassW(&description);
        window_ = ::CreateWindowExW(0, description.lpszClassName, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                    nullptr, nullptr);
    }
    ~Win32IdleTest() override {
        ::DestroyWindow(window_);
        ::UnregisterClassW(L"PellmarkIdleTest", nullptr);
    }

    void knock() { ::PostMessageW(window_, kKnock, 0, reinterpret_cast<LPARAM>(&knocks)); }

    int knocks = 0;

  private:
    HWND window_ = nullptr;
};

TEST_F(Win32IdleTest, EveryWaitingMessageIsDispatched) {
    knock();
    knock();
    EXPECT_EQ(knocks, 0);
    Win32Idle().yield();
    EXPECT_EQ(knocks, 2);
}

TEST_F(Win32IdleTest, ARequestToQuitIsLeftForTheHostsLoop) {
    ::PostQuitMessage(7);
    Win32Idle().yield();
    MSG message{};
    ASSERT_TRUE(::PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 7U);
}

}  // namespace pellmark::test
