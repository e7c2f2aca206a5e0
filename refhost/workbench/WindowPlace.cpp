#include "refhost/workbench/WindowPlace.h"

#include <algorithm>
#include <array>
#include <sstream>

#include "automation/Automation.h"
#include "refhost/windows/Placing.h"

namespace norvex {

namespace {

constexpr const wchar_t* kKey = L"Software\\Orvane\\Norvex\\Workbench";
constexpr const wchar_t* kValue = L"MainWindow";

int scaled(LONG length, int from, int to) {
    return MulDiv(static_cast<int>(length), to, from);
}

/// GetWindowPlacement counts from the corner of the work area, and everything else from that of the screen.
RECT onScreen(RECT rect) {
    MONITORINFO info{};
    info.cbSize = sizeof info;
    if (GetMonitorInfoW(MonitorFromRect(&rect, MONITOR_DEFAULTTONEAREST), &info))
        OffsetRect(&rect, info.rcWork.left - info.rcMonitor.left, info.rcWork.top - info.rcMonitor.top);
    return rect;
}

}  // namespace

std::string WindowPlace::text() const {
    std::ostringstream out;
    out << area.left << ' ' << area.top << ' ' << area.right - area.left << ' ' << area.bottom - area.top
        << ' ' << dpi << ' ' << (isMaximized ? 1 : 0);
    return out.str();
}

std::optional<WindowPlace> WindowPlace::from(const std::string& text) {
    std::istringstream in(text);
    std::array<int, 6> figures{};
    for (int& figure : figures) {
        if (!(in >> figure)) return std::nullopt;
    }
    const auto [left, top, width, height, dpi, maximized] = figures;
    constexpr int kGreatest = 100'000;
    const auto isNear = [](int figure) { return figure > -kGreatest && figure < kGreatest; };
    const bool isPossible = isNear(left) && isNear(top) && width > 0 && width < kGreatest && height > 0 &&
                            height < kGreatest && dpi >= 48 && dpi <= 960;
    if (!isPossible) return std::nullopt;
    return WindowPlace{{left, top, left + width, top + height}, dpi, maximized != 0};
}

WindowPlace WindowPlace::of(HWND window) {
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    GetWindowPlacement(window, &placement);
    const bool isMaximized =
        placement.showCmd == SW_SHOWMAXIMIZED ||
        (placement.showCmd == SW_SHOWMINIMIZED && (placement.flags & WPF_RESTORETOMAXIMIZED) != 0);
    RECT area = onScreen(placement.rcNormalPosition);
    if (placement.showCmd == SW_SHOWNORMAL) GetWindowRect(window, &area);
    return {area, dpiOf(window), isMaximized};
}

std::optional<WindowPlace> WindowPlace::stored() {
    wchar_t text[128] = {};
    DWORD bytes = sizeof text;
    if (RegGetValueW(HKEY_CURRENT_USER, kKey, kValue, RRF_RT_REG_SZ, nullptr, text, &bytes) != ERROR_SUCCESS)
        return std::nullopt;
    return from(pellmark::fromWide(text));
}

void WindowPlace::store() const {
    const std::wstring value = pellmark::toWide(text());
    RegSetKeyValueW(HKEY_CURRENT_USER, kKey, kValue, REG_SZ, value.c_str(),
                    static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
}

int restorePlace(HWND window, SIZE firstSizeAt96) {
    const auto put = [window](const RECT& area) {
        SetWindowPos(window, nullptr, area.left, area.top, area.right - area.left, area.bottom - area.top,
                     SWP_NOZORDER | SWP_NOACTIVATE);
    };
    const auto left = WindowPlace::stored();
    if (!left) {
        RECT area{};
        GetWindowRect(window, &area);
        put(openingPlace(workAreaNear(area), dpiOf(window), firstSizeAt96));
        return SW_SHOWNORMAL;
    }
    const RECT workArea = workAreaNear(left->area);
    put(keptWithin(left->area, workArea));
    // The screen may be finer, or coarser, than the one on which the size was chosen.
    if (const int dpi = dpiOf(window); dpi != left->dpi) {
        RECT area = left->area;
        area.right = area.left + scaled(area.right - area.left, left->dpi, dpi);
        area.bottom = area.top + scaled(area.bottom - area.top, left->dpi, dpi);
        put(keptWithin(area, workArea));
    }
    return left->isMaximized ? SW_SHOWMAXIMIZED : SW_SHOWNORMAL;
}

POINT leastSize(HWND window, SIZE at96) {
    RECT area{};
    GetWindowRect(window, &area);
    const RECT workArea = workAreaNear(area);
    const int dpi = dpiOf(window);
    return {std::min<LONG>(scaled(at96.cx, USER_DEFAULT_SCREEN_DPI, dpi), workArea.right - workArea.left),
            std::min<LONG>(scaled(at96.cy, USER_DEFAULT_SCREEN_DPI, dpi), workArea.bottom - workArea.top)};
}

}  // namespace norvex
