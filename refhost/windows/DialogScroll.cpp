#include "refhost/windows/DialogScroll.h"

#include <commctrl.h>

#include <memory>

#include "base/Viewport.h"
#include "refhost/windows/Placing.h"

namespace norvex {

namespace {

using pellmark::Point;
using pellmark::Rect;
using pellmark::Size;

Size sizeOf(const RECT& rect) {
    return {static_cast<int>(rect.right - rect.left), static_cast<int>(rect.bottom - rect.top)};
}

class DialogScroll {
  public:
    DialogScroll(HWND dialog, Size least) : dialog_(dialog), least_(least) { view_.fit(least_, least_, {}); }

    static LRESULT CALLBACK procedure(HWND dialog, UINT message, WPARAM wide, LPARAM data, UINT_PTR,
                                      DWORD_PTR self) noexcept;
    static DialogScroll* of(HWND dialog) { return static_cast<DialogScroll*>(GetPropW(dialog, kProperty)); }
    /// Lives as long as the dialog from then on.
    static void attach(std::unique_ptr<DialogScroll> scroll);

    RECT contents() const {
        const Point at = view_.at();
        const Size size = view_.content();
        return {-at.left, -at.top, size.width - at.left, size.height - at.top};
    }

  private:
    static constexpr const wchar_t* kProperty = L"Norvex.DialogScroll";
    static constexpr UINT_PTR kId = 1;

    bool hasStyle(LONG_PTR style) const { return (GetWindowLongPtrW(dialog_, GWL_STYLE) & style) != 0; }
    void fit();
    void showBar(int bar, int content, int page, int at) const;
    void moved(Point from);
    void scrollTo(Point at);
    void reveal(HWND control);
    void barMoved(bool upright, int code);
    int line() const;

    HWND dialog_;
    Size least_;
    pellmark::Viewport view_;
    bool fitting_ = false;  ///< the bars come and go, which changes the window's room in between
};

void DialogScroll::attach(std::unique_ptr<DialogScroll> scroll) {
    const HWND dialog = scroll->dialog_;
    if (!SetWindowSubclass(dialog, &procedure, kId, reinterpret_cast<DWORD_PTR>(scroll.get()))) return;
    scroll->fit();
    SetPropW(dialog, kProperty, scroll.release());
}

void DialogScroll::fit() {
    if (fitting_) return;
    RECT client{};
    GetClientRect(dialog_, &client);
    const Size bars{GetSystemMetrics(SM_CXVSCROLL), GetSystemMetrics(SM_CYHSCROLL)};
    Size room = sizeOf(client);
    if (hasStyle(WS_VSCROLL)) room.width += bars.width;
    if (hasStyle(WS_HSCROLL)) room.height += bars.height;
    const Point from = view_.at();
    view_.fit(room, least_, bars);
    fitting_ = true;
    moved(from);
    fitting_ = false;
}

void DialogScroll::showBar(int bar, int content, int page, int at) const {
    SCROLLINFO shown{};
    shown.cbSize = sizeof shown;
    shown.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    shown.nMax = content - 1;
    shown.nPage = static_cast<UINT>(page);
    shown.nPos = at;
    // The system hides a bar whose page is as large as its range.
    SetScrollInfo(dialog_, bar, &shown, TRUE);
}

void DialogScroll::moved(Point from) {
    const Point to = view_.at();
    showBar(SB_VERT, view_.content().height, view_.page().height, to.top);
    showBar(SB_HORZ, view_.content().width, view_.page().width, to.left);
    if (from == to) return;
    ScrollWindowEx(dialog_, from.left - to.left, from.top - to.top, nullptr, nullptr, nullptr, nullptr,
                   SW_SCROLLCHILDREN | SW_INVALIDATE | SW_ERASE);
    UpdateWindow(dialog_);
}

void DialogScroll::scrollTo(Point at) {
    const Point from = view_.at();
    if (view_.scrollTo(at)) moved(from);
}

void DialogScroll::reveal(HWND control) {
    RECT part{};
    GetWindowRect(control, &part);
    MapWindowPoints(nullptr, dialog_, reinterpret_cast<POINT*>(&part), 2);
    const Point from = view_.at();
    const Size size = sizeOf(part);
    const Rect wanted{static_cast<int>(part.left) + from.left, static_cast<int>(part.top) + from.top,
                      size.width, size.height};
    if (view_.reveal(wanted)) moved(from);
}

int DialogScroll::line() const {
    constexpr int kLineAt96 = 20;
    return MulDiv(kLineAt96, dpiOf(dialog_), USER_DEFAULT_SCREEN_DPI);
}

void DialogScroll::barMoved(bool upright, int code) {
    Point at = view_.at();
    int& place = upright ? at.top : at.left;
    const int page = upright ? view_.page().height : view_.page().width;
    switch (code) {
        case SB_LINEUP:
            place -= line();
            break;
        case SB_LINEDOWN:
            place += line();
            break;
        case SB_PAGEUP:
            place -= page;
            break;
        case SB_PAGEDOWN:
            place += page;
            break;
        case SB_THUMBTRACK:
        case SB_THUMBPOSITION: {
            // The message itself carries no more than 16 bits of it.
            SCROLLINFO thumb{};
            thumb.cbSize = sizeof thumb;
            thumb.fMask = SIF_TRACKPOS;
            GetScrollInfo(dialog_, upright ? SB_VERT : SB_HORZ, &thumb);
            place = thumb.nTrackPos;
            break;
        }
        default:
            return;
    }
    scrollTo(at);
}

LRESULT CALLBACK DialogScroll::procedure(HWND dialog, UINT message, WPARAM wide, LPARAM data, UINT_PTR,
                                         DWORD_PTR self) noexcept {
    auto* scroll = reinterpret_cast<DialogScroll*>(self);
    switch (message) {
        case WM_SIZE:
            if (wide != SIZE_MINIMIZED) scroll->fit();
            break;
        case WM_VSCROLL:
        case WM_HSCROLL:
            if (data != 0) break;
            scroll->barMoved(message == WM_VSCROLL, LOWORD(wide));
            return 0;
        case WM_MOUSEWHEEL: {
            const Point at = scroll->view_.at();
            constexpr int kLinesOfANotch = 3;
            const int notches = static_cast<short>(HIWORD(wide)) / WHEEL_DELTA;
            scroll->scrollTo({at.left, at.top - notches * kLinesOfANotch * scroll->line()});
            return 0;
        }
        case WM_NEXTDLGCTL: {
            // By which every key that moves the keyboard about in a dialog does so.
            const LRESULT result = DefSubclassProc(dialog, message, wide, data);
            if (IsChild(dialog, GetFocus())) scroll->reveal(GetFocus());
            return result;
        }
        case WM_NCDESTROY: {
            RemoveWindowSubclass(dialog, &procedure, kId);
            RemovePropW(dialog, kProperty);
            const std::unique_ptr<DialogScroll> gone(scroll);
            return DefSubclassProc(dialog, message, wide, data);
        }
        default:
            break;
    }
    return DefSubclassProc(dialog, message, wide, data);
}

}  // namespace

void letScroll(HWND dialog) {
    RECT client{};
    GetClientRect(dialog, &client);
    letScroll(dialog, {client.right, client.bottom});
}

void letScroll(HWND dialog, SIZE least) {
    if (DialogScroll::of(dialog) != nullptr) return;
    const Size size{static_cast<int>(least.cx), static_cast<int>(least.cy)};
    DialogScroll::attach(std::make_unique<DialogScroll>(dialog, size));
}

RECT contentsOf(HWND dialog) {
    if (const DialogScroll* scroll = DialogScroll::of(dialog)) return scroll->contents();
    RECT client{};
    GetClientRect(dialog, &client);
    return client;
}

}  // namespace norvex
