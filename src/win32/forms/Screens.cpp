#include "win32/forms/Screens.h"

#include "controls/ScreenPlace.h"

namespace pellmark {

namespace {

Rect asRect(const RECT& rect) {
    return {static_cast<int>(rect.left), static_cast<int>(rect.top), static_cast<int>(rect.right - rect.left),
            static_cast<int>(rect.bottom - rect.top)};
}

BOOL CALLBACK addWorkArea(HMONITOR monitor, HDC, RECT*, LPARAM areas) {
    MONITORINFO info{};
    info.cbSize = sizeof info;
    if (::GetMonitorInfoW(monitor, &info))
        reinterpret_cast<std::vector<Rect>*>(areas)->push_back(asRect(info.rcWork));
    return TRUE;
}

}  // namespace

std::vector<Rect> workAreas() {
    std::vector<Rect> areas;
    ::EnumDisplayMonitors(nullptr, nullptr, &addWorkArea, reinterpret_cast<LPARAM>(&areas));
    return areas;
}

RECT workAreaAt(const RECT& rect) {
    MONITORINFO info{};
    info.cbSize = sizeof info;
    ::GetMonitorInfoW(::MonitorFromRect(&rect, MONITOR_DEFAULTTONEAREST), &info);
    return info.rcWork;
}

RECT broughtIntoView(const RECT& window, bool placedByAPerson, Size bars) {
    const std::vector<Rect> areas = workAreas();
    const Rect wanted = asRect(window);
    const Rect fitting = shrunkToScreen(wanted, areas, bars);
    const bool stays = placedByAPerson && fitting == wanted && isWithinReach(wanted, areas);
    const Rect at = stays ? wanted : movedOntoScreen(fitting, areas);
    return {at.left, at.top, at.right(), at.bottom()};
}

}  // namespace pellmark
