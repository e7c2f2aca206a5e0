#include "refhost/windows/Placing.h"

#include <algorithm>
#include <utility>

namespace norvex {

namespace {

LONG widthOf(const RECT& rect) {
    return rect.right - rect.left;
}

LONG heightOf(const RECT& rect) {
    return rect.bottom - rect.top;
}

/// The part of one axis that keptWithin moves.
void keep(LONG& from, LONG& to, LONG least, LONG greatest) {
    const LONG length = std::min(to - from, greatest - least);
    from = std::clamp(from, least, greatest - length);
    to = from + length;
}

/// Where the owner's middle is, or the screen's where it is not to be seen.
RECT surroundingsOf(HWND dialog) {
    const HWND owner = GetWindow(dialog, GW_OWNER);
    RECT rect{};
    if (owner != nullptr && IsWindowVisible(owner) && !IsIconic(owner) && GetWindowRect(owner, &rect))
        return rect;
    GetWindowRect(dialog, &rect);
    return workAreaNear(rect);
}

/// The hook of the one message box that this thread is about to show.
thread_local HHOOK waitingForBox = nullptr;

LRESULT CALLBACK placeBox(int code, WPARAM window, LPARAM data) {
    const HHOOK hook = waitingForBox;
    if (code == HCBT_ACTIVATE) {
        waitingForBox = nullptr;
        UnhookWindowsHookEx(hook);
        centreOverOwner(reinterpret_cast<HWND>(window));
    }
    return CallNextHookEx(hook, code, window, data);
}

}  // namespace

int dpiOf(HWND window) {
    using DpiForWindow = UINT(WINAPI*)(HWND);
    static const auto dpiForWindow =
        reinterpret_cast<DpiForWindow>(GetProcAddress(GetModuleHandleW(L"user32.dll"), "GetDpiForWindow"));
    const UINT dpi = dpiForWindow != nullptr ? dpiForWindow(window) : 0;
    if (dpi != 0) return static_cast<int>(dpi);
    const HDC screen = GetDC(nullptr);
    const int ofScreen = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return ofScreen > 0 ? ofScreen : USER_DEFAULT_SCREEN_DPI;
}

RECT workAreaNear(const RECT& rect) {
    MONITORINFO info{};
    info.cbSize = sizeof info;
    if (!GetMonitorInfoW(MonitorFromRect(&rect, MONITOR_DEFAULTTONEAREST), &info)) {
        SystemParametersInfoW(SPI_GETWORKAREA, 0, &info.rcWork, 0);
    }
    return info.rcWork;
}

RECT keptWithin(const RECT& rect, const RECT& area) {
    RECT kept = rect;
    keep(kept.left, kept.right, area.left, area.right);
    keep(kept.top, kept.bottom, area.top, area.bottom);
    return kept;
}

RECT openingPlace(const RECT& workArea, int dpi, SIZE at96) {
    constexpr int kIndent = 60;
    constexpr int kDrop = 40;
    const auto scaled = [dpi](LONG length) {
        return MulDiv(static_cast<int>(length), dpi, USER_DEFAULT_SCREEN_DPI);
    };
    RECT place{workArea.left + scaled(kIndent), workArea.top + scaled(kDrop), 0, 0};
    place.right = place.left + scaled(at96.cx);
    place.bottom = place.top + scaled(at96.cy);
    return keptWithin(place, workArea);
}

void centreOverOwner(HWND dialog) {
    RECT rect{};
    if (!GetWindowRect(dialog, &rect)) return;
    const RECT around = surroundingsOf(dialog);
    const RECT area = workAreaNear(around);
    // What is cut off in one direction gets a scroll bar there, which takes room in the other.
    const bool isTooHigh = heightOf(rect) > heightOf(area);
    if (widthOf(rect) > widthOf(area)) rect.bottom += GetSystemMetrics(SM_CYHSCROLL);
    if (isTooHigh) rect.right += GetSystemMetrics(SM_CXVSCROLL);
    const LONG left = around.left + (widthOf(around) - widthOf(rect)) / 2;
    const LONG top = around.top + (heightOf(around) - heightOf(rect)) / 2;
    const RECT place = keptWithin({left, top, left + widthOf(rect), top + heightOf(rect)}, area);
    SetWindowPos(dialog, nullptr, place.left, place.top, widthOf(place), heightOf(place),
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

int showMessage(HWND owner, const std::wstring& text, const std::wstring& title, UINT style) {
    // A box that could not be made leaves its hook to the next one, never two.
    if (waitingForBox == nullptr)
        waitingForBox = SetWindowsHookExW(WH_CBT, &placeBox, nullptr, GetCurrentThreadId());
    const int answer = MessageBoxW(owner, text.c_str(), title.c_str(), style);
    if (waitingForBox != nullptr) UnhookWindowsHookEx(std::exchange(waitingForBox, nullptr));
    return answer;
}

}  // namespace norvex
