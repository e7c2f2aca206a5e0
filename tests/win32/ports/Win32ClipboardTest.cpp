#include "win32/ports/Win32Clipboard.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "ports/ClipboardHtml.h"
#include "win32/WideText.h"
#include "win32/WindowsApi.h"

namespace pellmark::test {
namespace {

/// The clipboard in the hands of another thread, which is as good as another program's.
class Occupied {
  public:
    explicit Occupied(DWORD forMs)
        : holder_([this, forMs] {
              const BOOL opened = ::OpenClipboard(nullptr);
              held_ = true;
              for (DWORD waited = 0; waited < forMs && !enough_; waited += 10)
                  ::Sleep(10);
              if (opened != FALSE) ::CloseClipboard();
          }) {
        while (!held_)
            ::Sleep(1);
    }
    ~Occupied() {
        enough_ = true;
        holder_.join();
    }
    Occupied(const Occupied&) = delete;
    Occupied& operator=(const Occupied&) = delete;

  private:
    std::atomic<bool> held_ = false;
    std::atomic<bool> enough_ = false;
    std::thread holder_;
};

class Win32ClipboardTest : public testing::Test {
  protected:
    Win32ClipboardTest()
        : window(
              ::CreateWindowW(L"STATIC", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr)) {}
    ~Win32ClipboardTest() override { ::DestroyWindow(window); }

    WindowHandle owner() const { return reinterpret_cast<WindowHandle>(window); }
    template <class Character>
    std::basic_string<Character> held(UINT format) const {
        std::basic_string<Character> text;
        if (::OpenClipboard(window) == FALSE) return text;
        if (const HANDLE data = ::GetClipboardData(format)) {
            text = static_cast<const Character*>(::GlobalLock(data));
            ::GlobalUnlock(data);
        }
        ::CloseClipboard();
        return text;
    }
    std::string text() const { return fromWide(held<wchar_t>(CF_UNICODETEXT)); }
    std::string html() const { return held<char>(::RegisterClipboardFormatW(L"HTML Format")); }

    HWND window;
    Win32Clipboard clipboard;
};

TEST_F(Win32ClipboardTest, BothFormsCanBePastedWhole) {
    const std::string rows = "Name\r\n\xC3\x98 8 \xF0\x9F\x94\xA9\r\n";
    const std::string table = "<table><tr><td>\xC3\x98 8 \xF0\x9F\x94\xA9</td></tr></table>";
    ASSERT_TRUE(clipboard.put({rows, table}, owner()));
    EXPECT_EQ(text(), rows);
    EXPECT_EQ(html(), clipboardHtml(table));
}

TEST_F(Win32ClipboardTest, WhatWasThereIsReplaced) {
    clipboard.put({"a", "<b>a</b>"}, owner());
    ASSERT_TRUE(clipboard.put({"c", ""}, owner()));
    EXPECT_EQ(text(), "c");
    EXPECT_EQ(html(), "");
}

TEST_F(Win32ClipboardTest, AProgramThatHasItOpenForAMomentIsWaitedFor) {
    clipboard.put({"a", ""}, owner());
    const Occupied moment(100);
    EXPECT_TRUE(clipboard.put({"b", ""}, owner()));
    EXPECT_EQ(text(), "b");
}

TEST_F(Win32ClipboardTest, AProgramThatKeepsItOpenKeepsWhatItHolds) {
    clipboard.put({"a", ""}, owner());
    {
        const Occupied forLong(5000);
        EXPECT_FALSE(clipboard.put({"b", ""}, owner()));
    }
    EXPECT_EQ(text(), "a");
}

}  // namespace
}  // namespace pellmark::test
