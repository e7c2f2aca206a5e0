#include "win32/CentredBox.h"

#include <algorithm>
#include <string_view>

namespace pellmark {

namespace {

/// What a hook cannot be handed.
thread_local CentredBox* current = nullptr;

bool isDialog(HWND window) {
    wchar_t name[16]{};
    ::GetClassNameW(window, name, 16);
    return std::wstring_view(name) == L"#32770";
}

/// Where something of this length begins in the middle of the owner's, kept on the screen; a beginning that
/// can be seen comes before an end.
LONG middle(LONG ownerFrom, LONG ownerTo, LONG length, LONG screenFrom, LONG screenTo) {
    const LONG from = (ownerFrom + ownerTo - length) / 2;
    return std::max(std::min(from, screenTo - length), screenFrom);
}

void centre(HWND box) {
    const HWND owner = ::GetWindow(box, GW_OWNER);
    if (owner == nullptr || !::IsWindowVisible(owner) || ::IsIconic(owner)) return;
    RECT at{};
    RECT over{};
    MONITORINFO screen{};
    screen.cbSize = sizeof screen;
    ::GetWindowRect(box, &at);
    ::GetWindowRect(owner, &over);
    ::GetMonitorInfoW(::MonitorFromWindow(owner, MONITOR_DEFAULTTONEAREST), &screen);
    const RECT& work = screen.rcWork;
    ::SetWindowPos(box, nullptr,
                   static_cast<int>(middle(over.left, over.right, at.right - at.left, work.left, work.right)),
                   static_cast<int>(middle(over.top, over.bottom, at.bottom - at.top, work.top, work.bottom)),
                   0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

CentredBox::CentredBox()
    : before_(current),
      hook_(::SetWindowsHookExW(WH_CBT, &CentredBox::activated, nullptr, ::GetCurrentThreadId())) {
    current = this;
}

CentredBox::~CentredBox() {
    current = before_;
    if (hook_ != nullptr) ::UnhookWindowsHookEx(hook_);
}

LRESULT CALLBACK CentredBox::activated(int code, WPARAM wParam, LPARAM lParam) noexcept {
    const auto box = reinterpret_cast<HWND>(wParam);
    if (code == HCBT_ACTIVATE && current != nullptr && !current->isPlaced_ && isDialog(box)) {
        current->isPlaced_ = true;
        centre(box);
    }
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace pellmark
