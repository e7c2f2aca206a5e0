#include "win32/controls/SplitterPeer.h"

#include <algorithm>

#include "win32/forms/FormWindow.h"

namespace pellmark {

namespace {

constexpr Twips kStep = 10 * kTwipsPerPixelAt96Dpi;
constexpr Twips kFineStep = kTwipsPerPixelAt96Dpi;
constexpr Twips kDot = 2 * kTwipsPerPixelAt96Dpi;
constexpr int kDots = 5;

}  // namespace

SplitterPeer::SplitterPeer(FormWindow& form, Splitter& splitter, HWND parent) : ControlPeer(form, splitter) {
    createWindow(parent, form.surroundings().splitterClass(), 0);
}

// --- the mouse --------------------------------------------------------------------------------------------

int SplitterPeer::mouseNow() const {
    POINT at{};
    ::GetCursorPos(&at);
    ::ScreenToClient(::GetAncestor(window(), GA_PARENT), &at);
    return static_cast<int>(isStanding() ? at.x : at.y);
}

void SplitterPeer::take() {
    if (!splitter()->isMovable()) return;
    hold_ = Hold{mouseNow(), splitter()->first(), splitter()->share()};
    ::SetCapture(window());
}

void SplitterPeer::letGo() {
    hold_.reset();
    if (::GetCapture() == window()) ::ReleaseCapture();
}

void SplitterPeer::drop() {
    if (!hold_) return;
    const Share before = hold_->share;
    letGo();
    splitter()->choose(before);
}

bool SplitterPeer::isDragged() {
    const ControlPeer* holder = of(::GetCapture());
    return holder != nullptr && holder->control() != nullptr &&
           holder->control()->kind() == Control::Kind::Splitter;
}

bool SplitterPeer::dropDragged() {
    if (!isDragged()) return false;
    ::SendMessageW(::GetCapture(), WM_CANCELMODE, 0, 0);
    return true;
}

// --- the keyboard -----------------------------------------------------------------------------------------

bool SplitterPeer::keyDown(int key) {
    const Twips step = ::GetKeyState(VK_CONTROL) < 0 ? kFineStep : kStep;
    switch (key) {
        case VK_LEFT:
        case VK_RIGHT:
            if (isStanding()) splitter()->moveBy(key == VK_LEFT ? -step : step);
            return true;
        case VK_UP:
        case VK_DOWN:
            if (!isStanding()) splitter()->moveBy(key == VK_UP ? -step : step);
            return true;
        case VK_HOME:
            splitter()->moveTo(0);
            return true;
        case VK_END:
            splitter()->moveTo(splitter()->division().room);
            return true;
        case VK_DELETE:
            splitter()->choose(std::nullopt);
            return true;
        case VK_ESCAPE:
            splitter()->choose(entered_);
            form().keyboard().leaveSplitter();
            return true;
        case VK_RETURN:
            form().keyboard().leaveSplitter();
            return true;
        default:
            return false;
    }
}

// --- drawing ----------------------------------------------------------------------------------------------

void SplitterPeer::paint() const {
    PAINTSTRUCT paint{};
    const HDC canvas = ::BeginPaint(window(), &paint);
    RECT bar{};
    ::GetClientRect(window(), &bar);
    const bool hasKeyboard = ::GetFocus() == window();
    ::FillRect(canvas, &bar, ::GetSysColorBrush(hasKeyboard ? COLOR_HIGHLIGHT : COLOR_BTNFACE));
    if (splitter()->isMovable()) {
        const HBRUSH ink = ::GetSysColorBrush(hasKeyboard ? COLOR_HIGHLIGHTTEXT : COLOR_BTNSHADOW);
        const int dot = scale().pixels(kDot);
        const int begin = -(2 * kDots - 1) * dot / 2;
        for (int i = 0; i < kDots; ++i) {
            const int along = begin + 2 * i * dot;
            const LONG left = bar.right / 2 + (isStanding() ? -dot / 2 : along);
            const LONG top = bar.bottom / 2 + (isStanding() ? along : -dot / 2);
            const RECT spot{left, top, left + dot, top + dot};
            ::FillRect(canvas, &spot, ink);
        }
    }
    ::EndPaint(window(), &paint);
}

// --- messages ---------------------------------------------------------------------------------------------

std::optional<LRESULT> SplitterPeer::message(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SETCURSOR: {
            if (!splitter()->isMovable()) break;
            constexpr WORD kWestEast = 32644;
            constexpr WORD kNorthSouth = 32645;
            ::SetCursor(::LoadCursorW(nullptr, MAKEINTRESOURCEW(isStanding() ? kWestEast : kNorthSouth)));
            return TRUE;
        }
        case WM_LBUTTONDOWN:
            take();
            return 0;
        case WM_MOUSEMOVE:
            if (hold_) splitter()->moveTo(hold_->first + scale().twips(mouseNow() - hold_->mouse));
            return 0;
        case WM_LBUTTONUP:
        case WM_CAPTURECHANGED:
            letGo();
            return 0;
        case WM_CANCELMODE:
            drop();
            return 0;
        case WM_LBUTTONDBLCLK:
            splitter()->choose(std::nullopt);
            return 0;
        case WM_GETDLGCODE:
            return DLGC_WANTARROWS | DLGC_WANTALLKEYS;
        case WM_KEYDOWN:
            if (keyDown(static_cast<int>(wParam))) return 0;
            break;
        case WM_SETFOCUS:
            entered_ = splitter()->share();
            [[fallthrough]];
        case WM_KILLFOCUS:
        case WM_SIZE:
            ::InvalidateRect(window(), nullptr, FALSE);
            break;
        case WM_ERASEBKGND:
            return 1;  // painted in one go
        case WM_PAINT:
            paint();
            return 0;
        default:
            break;
    }
    return ControlPeer::message(message, wParam, lParam);
}

}  // namespace pellmark
