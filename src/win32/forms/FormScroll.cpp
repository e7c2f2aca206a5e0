#include "win32/forms/FormScroll.h"

#include "win32/forms/FormWindow.h"

namespace pellmark {

namespace {

constexpr Twips kLine = 20 * kTwipsPerPixelAt96Dpi;

bool hasStyle(HWND window, LONG_PTR style) {
    return (::GetWindowLongPtrW(window, GWL_STYLE) & style) != 0;
}

}  // namespace

// --- room -------------------------------------------------------------------------------------------------

Size FormScroll::barSizes() const {
    const Surroundings& around = form_.surroundings();
    return {around.metric(SM_CXVSCROLL, form_.window()), around.metric(SM_CYHSCROLL, form_.window())};
}

Size FormScroll::roomWithoutBars() const {
    RECT client{};
    ::GetClientRect(form_.window(), &client);
    Size room{static_cast<int>(client.right), static_cast<int>(client.bottom)};
    const Size bars = barSizes();
    if (hasStyle(form_.window(), WS_VSCROLL)) room.width += bars.width;
    if (hasStyle(form_.window(), WS_HSCROLL)) room.height += bars.height;
    return room;
}

Size FormScroll::fit(Size least) {
    view_.fit(roomWithoutBars(), least, barSizes());
    fitting_ = true;
    showBars();
    fitting_ = false;
    return view_.content();
}

void FormScroll::showBar(int bar, int content, int page, int at) const {
    SCROLLINFO shown{};
    shown.cbSize = sizeof shown;
    shown.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    shown.nMax = content - 1;
    shown.nPage = static_cast<UINT>(page);
    shown.nPos = at;
    // The system hides a bar whose page is as large as its range.
    ::SetScrollInfo(form_.window(), bar, &shown, TRUE);
}

void FormScroll::showBars() const {
    showBar(SB_VERT, view_.content().height, view_.page().height, view_.at().top);
    showBar(SB_HORZ, view_.content().width, view_.page().width, view_.at().left);
}

// --- scrolling --------------------------------------------------------------------------------------------

void FormScroll::moved(Point from) const {
    showBars();
    const Point to = view_.at();
    ::ScrollWindowEx(form_.window(), from.left - to.left, from.top - to.top, nullptr, nullptr, nullptr,
                     nullptr, SW_SCROLLCHILDREN | SW_INVALIDATE | SW_ERASE);
    ::UpdateWindow(form_.window());
}

void FormScroll::scrollTo(Point at) {
    const Point from = view_.at();
    if (view_.scrollTo(at)) moved(from);
}

bool FormScroll::isMousePressed() {
    return ::GetKeyState(VK_LBUTTON) < 0 || ::GetKeyState(VK_RBUTTON) < 0 || ::GetKeyState(VK_MBUTTON) < 0;
}

std::optional<Rect> FormScroll::placeOf(HWND control) const {
    RECT whole{};
    ::GetWindowRect(control, &whole);
    ::MapWindowPoints(nullptr, control, reinterpret_cast<POINT*>(&whole), 2);
    return placeOf(control, whole);
}

std::optional<Rect> FormScroll::placeOf(HWND window, RECT part) const {
    if (isMousePressed() || (!view_.hasVerticalBar() && !view_.hasHorizontalBar())) return std::nullopt;
    ::MapWindowPoints(window, form_.window(), reinterpret_cast<POINT*>(&part), 2);
    ::OffsetRect(&part, view_.at().left, view_.at().top);
    return Rect{static_cast<int>(part.left), static_cast<int>(part.top),
                static_cast<int>(part.right - part.left), static_cast<int>(part.bottom - part.top)};
}

void FormScroll::reveal(HWND control) {
    reveal(placeOf(control));
}

void FormScroll::reveal(HWND window, RECT part) {
    reveal(placeOf(window, part));
}

void FormScroll::reveal(HWND control, HWND label) {
    const Point from = view_.at();
    const std::optional<Rect> wanted = placeOf(control);
    const std::optional<Rect> beside = placeOf(label);
    if (wanted && beside && view_.reveal(*wanted, *beside)) moved(from);
}

void FormScroll::reveal(const std::optional<Rect>& wanted) {
    const Point from = view_.at();
    if (wanted && view_.reveal(*wanted)) moved(from);
}

int FormScroll::line() const {
    return form_.currentScale().pixels(kLine);
}

std::optional<int> FormScroll::barMoved(int bar, int code, int at, int page) const {
    switch (code) {
        case SB_LINEUP:
            return at - line();
        case SB_LINEDOWN:
            return at + line();
        case SB_PAGEUP:
            return at - page;
        case SB_PAGEDOWN:
            return at + page;
        case SB_TOP:
            return 0;
        case SB_BOTTOM:
            return bar == SB_VERT ? view_.content().height : view_.content().width;
        case SB_THUMBTRACK:
        case SB_THUMBPOSITION: {
            // The message itself carries no more than 16 bits of it.
            SCROLLINFO thumb{};
            thumb.cbSize = sizeof thumb;
            thumb.fMask = SIF_TRACKPOS;
            ::GetScrollInfo(form_.window(), bar, &thumb);
            return thumb.nTrackPos;
        }
        default:
            return std::nullopt;
    }
}

bool FormScroll::turnWheel(bool across, int delta) {
    if (across ? !view_.hasHorizontalBar() : !view_.hasVerticalBar()) return false;
    UINT lines = 3;
    ::SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    const Size page = view_.page();
    const int notch =
        lines == WHEEL_PAGESCROLL ? (across ? page.width : page.height) : static_cast<int>(lines) * line();
    wheel_ += delta * notch;
    const int way = wheel_ / WHEEL_DELTA;
    wheel_ -= way * WHEEL_DELTA;
    const Point at = view_.at();
    scrollTo(across ? Point{at.left - way, at.top} : Point{at.left, at.top - way});
    return true;
}

std::optional<LRESULT> FormScroll::message(UINT message, WPARAM wParam, LPARAM lParam) {
    Point at = view_.at();
    const auto delta = static_cast<short>(HIWORD(wParam));
    switch (message) {
        case WM_VSCROLL:
        case WM_HSCROLL: {
            if (lParam != 0) return std::nullopt;
            const bool upright = message == WM_VSCROLL;
            int& place = upright ? at.top : at.left;
            const auto wanted = barMoved(upright ? SB_VERT : SB_HORZ, LOWORD(wParam), place,
                                         upright ? view_.page().height : view_.page().width);
            if (!wanted) return 0;
            place = *wanted;
            scrollTo(at);
            return 0;
        }
        case WM_MOUSEWHEEL:
            if ((wParam & MK_CONTROL) != 0 || !turnWheel((wParam & MK_SHIFT) != 0, delta))
                return std::nullopt;
            return 0;
        case WM_MOUSEHWHEEL:
            if (!turnWheel(true, -delta)) return std::nullopt;
            return 0;
        default:
            return std::nullopt;
    }
}

}  // namespace pellmark
