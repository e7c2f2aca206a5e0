#include "win32/controls/FramePeer.h"

#include "win32/WideText.h"
#include "win32/forms/FormWindow.h"

#include <uxtheme.h>
#include <vssym32.h>

namespace pellmark {

namespace {
constexpr Twips kCaptionIndent = 9 * kTwipsPerPixelAt96Dpi;
constexpr Twips kCaptionGap = 2 * kTwipsPerPixelAt96Dpi;
}  // namespace

FramePeer::FramePeer(FormWindow& form, Frame& frame, HWND parent) : ContainerPeer(form, frame) {
    createWindow(parent, form.surroundings().containerClass(), WS_CLIPCHILDREN, WS_EX_CONTROLPARENT);
    createChildren();
    arrange();
}

void FramePeer::controlChanged(ControlChange change) {
    ContainerPeer::controlChanged(change);
    if (change == ControlChange::Caption || change == ControlChange::Enabled) {
        ::InvalidateRect(window(), nullptr, TRUE);
    }
}

std::optional<LRESULT> FramePeer::message(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_ERASEBKGND:
            return 1;  // painted with the box, in one go
        case WM_PAINT:
            paint();
            return 0;
        case WM_SIZE:
            ::InvalidateRect(window(), nullptr, FALSE);
            break;
        case WM_GETDLGCODE:
            return DLGC_STATIC;
        default:
            break;
    }
    return ContainerPeer::message(message, wParam, lParam);
}

void FramePeer::paint() {
    PAINTSTRUCT paint{};
    const HDC screen = ::BeginPaint(window(), &paint);
    RECT client{};
    ::GetClientRect(window(), &client);
    HDC canvas = nullptr;
    const HPAINTBUFFER buffer =
        ::BeginBufferedPaint(screen, &client, BPBF_COMPATIBLEBITMAP, nullptr, &canvas);
    if (buffer == nullptr) canvas = screen;
    ::FillRect(canvas, &client, ::GetSysColorBrush(COLOR_BTNFACE));
    if (static_cast<const Frame*>(control())->bordered()) drawBox(canvas, client);
    if (buffer != nullptr) ::EndBufferedPaint(buffer, TRUE);
    ::EndPaint(window(), &paint);
}

void FramePeer::drawBox(HDC canvas, const RECT& client) const {
    const std::wstring caption = toWide(control()->caption());
    const HGDIOBJ oldFont = ::SelectObject(canvas, form().font());
    RECT text{};
    TEXTMETRICW metrics{};
    ::GetTextMetricsW(canvas, &metrics);
    ::DrawTextW(canvas, caption.c_str(), -1, &text, DT_SINGLELINE | DT_CALCRECT);
    ::OffsetRect(&text, scale().pixels(kCaptionIndent), 0);

    RECT box = client;
    box.top += metrics.tmHeight / 2;
    const int saved = ::SaveDC(canvas);
    if (!caption.empty()) {
        const int gap = scale().pixels(kCaptionGap);
        ::ExcludeClipRect(canvas, text.left - gap, text.top, text.right + gap, text.bottom);
    }
    const int state = ::IsWindowEnabled(window()) ? GBS_NORMAL : GBS_DISABLED;
    if (const HTHEME theme = ::OpenThemeData(window(), L"BUTTON")) {
        ::DrawThemeBackground(theme, canvas, BP_GROUPBOX, state, &box, nullptr);
        ::CloseThemeData(theme);
    } else {
        ::DrawEdge(canvas, &box, EDGE_ETCHED, BF_RECT);
    }
    ::RestoreDC(canvas, saved);

    ::SelectObject(canvas, form().font());
    ::SetBkMode(canvas, TRANSPARENT);
    ::SetTextColor(canvas, ::GetSysColor(state == GBS_NORMAL ? COLOR_BTNTEXT : COLOR_GRAYTEXT));
    ::DrawTextW(canvas, caption.c_str(), -1, &text, DT_SINGLELINE);
    ::SelectObject(canvas, oldFont);
}

}  // namespace pellmark
