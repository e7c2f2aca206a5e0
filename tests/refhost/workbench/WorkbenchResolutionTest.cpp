// The workbench's own window when it comes to a screen of another resolution.
#include <gtest/gtest.h>

#include "automation/Automation.h"
#include "com/ChildProgram.h"
#include "refhost/automation/NorvexLibrary.h"
#include "support/TemporaryFolder.h"

#include <commctrl.h>

namespace norvex {
namespace {

using pellmark::toWide;

constexpr UINT kDpiChanged = 0x02E0;

/// A window of another program, and what is in it.
class MainWindow {
  public:
    /// That of a running workbench; null where it has none yet.
    explicit MainWindow(DWORD process) {
        HWND window = nullptr;
        while ((window = FindWindowExW(nullptr, window, L"NorvexWorkbench", nullptr)) != nullptr) {
            DWORD owner = 0;
            GetWindowThreadProcessId(window, &owner);
            if (owner == process) window_ = window;
        }
        process_ = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_WRITE, FALSE, process);
    }
    ~MainWindow() { CloseHandle(process_); }
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;

    HWND get() const { return window_; }
    HWND statusLine() const { return FindWindowExW(window_, nullptr, STATUSCLASSNAMEW, nullptr); }
    HWND area() const { return FindWindowExW(window_, nullptr, L"NorvexViewArea", nullptr); }
    HWND view() const { return GetWindow(area(), GW_CHILD); }
    RECT place() const {
        RECT at{};
        GetWindowRect(window_, &at);
        return at;
    }
    RECT placeOf(HWND child) const {
        RECT at{};
        GetWindowRect(child, &at);
        MapWindowPoints(nullptr, window_, reinterpret_cast<POINT*>(&at), 2);
        return at;
    }
    int statusHeight() const {
        const RECT at = placeOf(statusLine());
        return static_cast<int>(at.bottom - at.top);
    }

    /// What the system tells a window: the rectangle must lie where the program can read it.
    void tell(int dpi, const RECT& wanted) const {
        void* there =
            VirtualAllocEx(process_, nullptr, sizeof wanted, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
        ASSERT_TRUE(WriteProcessMemory(process_, there, &wanted, sizeof wanted, nullptr));
        SendMessageW(window_, kDpiChanged, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(there));
        VirtualFreeEx(process_, there, 0, MEM_RELEASE);
    }

    /// From the upper edge to the lower one and from side to side, without a gap.
    void expectFilled() const {
        RECT client{};
        GetClientRect(window_, &client);
        const RECT line = placeOf(statusLine());
        EXPECT_EQ(line.bottom, client.bottom);
        EXPECT_EQ(line.right, client.right);
        for (HWND each : {area(), view()}) {
            const RECT at = placeOf(each);
            EXPECT_EQ(at.left, 0);
            EXPECT_EQ(at.top, 0);
            EXPECT_EQ(at.right, client.right);
            EXPECT_EQ(at.bottom, line.top);
        }
    }

  private:
    HWND window_ = nullptr;
    HANDLE process_ = nullptr;
};

void expectPlace(const RECT& found, const RECT& wanted) {
    EXPECT_TRUE(EqualRect(&found, &wanted))
        << found.left << ' ' << found.top << ' ' << found.right << ' ' << found.bottom;
}

TEST(WorkbenchResolutionTest, ItTakesThePlaceThatTheSystemWantsAndComesBackAsItWas) {
    const pellmark::test::TemporaryFolder folder;
    const std::string ready = folder.file("ready");
    const std::wstring command = L"\"" + pellmark::test::NorvexLibrary::folder() +
                                 L"\\Workbench.exe\" --kb \"" + toWide(folder.file("knowledge.db")) +
                                 L"\" --screenshot-ready \"" + toWide(ready) + L"\"";
    bool isDone = false;
    const auto result = pellmark::runChild(command, [&](DWORD process) {
        const MainWindow window(process);
        if (window.get() == nullptr || GetFileAttributesW(toWide(ready).c_str()) == INVALID_FILE_ATTRIBUTES)
            return;
        if (!isDone) {
            isDone = true;
            ASSERT_NE(window.view(), nullptr);
            const RECT before = window.place();
            const int line = window.statusHeight();
            const RECT wanted{30, 40, 1130, 840};
            window.tell(192, wanted);
            expectPlace(window.place(), wanted);
            EXPECT_GT(window.statusHeight() * 2, line * 3) << "its letters are twice as large";
            window.expectFilled();
            window.tell(96, before);
            expectPlace(window.place(), before);
            EXPECT_EQ(window.statusHeight(), line);
            window.expectFilled();
        }
        PostMessageW(window.get(), WM_CLOSE, 0, 0);
    });
    EXPECT_TRUE(isDone);
    EXPECT_EQ(result.exitCode, 0U);
    RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Orvane\\Norvex\\Workbench");
}

}  // namespace
}  // namespace norvex
