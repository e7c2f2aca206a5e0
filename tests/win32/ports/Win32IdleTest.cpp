#include "win32/ports/Win32Idle.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace pellmark::test {

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
