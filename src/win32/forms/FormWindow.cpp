#include "win32/forms/FormWindow.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "base/Error.h"
#include "win32/forms/PopupMenu.h"
#include "win32/forms/Screens.h"

namespace pellmark {

namespace {

constexpr UINT kDpiChangedAfterParent = 0x02E3;
constexpr UINT kDpiChanged = 0x02E0;
constexpr LONG_PTR kScrollBars = WS_VSCROLL | WS_HSCROLL;

}  // namespace

FormWindow::FormWindow(std::shared_ptr<Surroundings> surroundings, Form& form)
    : ContainerPeer(*this, form),
      surroundings_(std::move(surroundings)),
      opened_(form.clientSize()),
      scroll_(*this),
      keyboard_(*this),
      keys_(*this),
      toolTips_(*this) {
    const ActivationContext::Active themed(surroundings_->theme());
    scale_ = Scale(surroundings_->dpiOf(::GetDesktopWindow()));
    createWindow(nullptr, surroundings_->formClass(), captionedStyle(), captionedExStyle());
    scale_ = Scale(surroundings_->dpiOf(window()));
    font_ = surroundings_->messageFont(scale_.dpi());
    createChildren();
    keyboard_.showDefaultButton(nullptr);
    settled_ = true;
    place();
}

FormWindow::~FormWindow() {
    if (window() != nullptr) ::ShowWindow(window(), SW_HIDE);
    destroyChildren();
    toolTips_.destroy();
}

void FormWindow::retire(std::unique_ptr<FormWindow> window) {
    window->detach();
    if (const auto modal = window->modal_) {
        modal->releaseOwner();
        modal->end();
    }
    if (window->modalEnded_) return;
    if (window->window() != nullptr) ::ShowWindow(window->window(), SW_HIDE);
    const Operations operations = window->surroundings_->operations();
    operations.whenIdle([kept = std::shared_ptr<FormWindow>(std::move(window))]() mutable { kept.reset(); });
}

DWORD FormWindow::captionedStyle() const {
    DWORD style = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
    if (model()->isSizable()) style |= WS_THICKFRAME;
    if (model()->borderStyle() == BorderStyle::Sizable) style |= WS_MAXIMIZEBOX;
    return style;
}

DWORD FormWindow::captionedExStyle() const {
    const bool isTool = model()->borderStyle() == BorderStyle::SizableToolWindow;
    return WS_EX_CONTROLPARENT | (isTool ? WS_EX_TOOLWINDOW : WS_EX_DLGMODALFRAME);
}

// --- place and size ---------------------------------------------------------------------------------------

RECT FormWindow::outerRect(Size client) const {
    RECT outer{0, 0, scale_.pixels(client.width), scale_.pixels(client.height)};
    const auto style =
        static_cast<DWORD>(window() ? ::GetWindowLongPtrW(window(), GWL_STYLE) : captionedStyle());
    const auto exStyle = static_cast<DWORD>(window() ? ::GetWindowLongPtrW(window(), GWL_EXSTYLE) : 0);
    surroundings_->addFrame(outer, style, exStyle, window());
    return {0, 0, outer.right - outer.left, outer.bottom - outer.top};
}

/// Places on the screen are measured alike wherever they are, sizes as the screen below the window has it: a
/// window that was left on a finer screen must come back there.
Scale FormWindow::screenScale() const {
    return Scale(surroundings_->dpiOf(::GetDesktopWindow()));
}

RECT FormWindow::placement() const {
    RECT outer = outerRect(model()->clientSize());
    const Rect& saved = model()->bounds();
    if (model()->isSizable() && saved.width > 0 && saved.height > 0) {
        outer.right = scale_.pixels(saved.width);
        outer.bottom = scale_.pixels(saved.height);
    }
    const RECT least = outerRect(model()->minimumSize());
    outer.right = std::max(outer.right, least.right);
    outer.bottom = std::max(outer.bottom, least.bottom);
    const Scale screen = screenScale();
    ::OffsetRect(&outer, screen.pixels(saved.left), screen.pixels(saved.top));
    return outer;
}

void FormWindow::place() {
    if (model() == nullptr || embedded_ || !settled_) return;
    const RECT at = placement();
    ::SetWindowPos(window(), nullptr, at.left, at.top, at.right - at.left, at.bottom - at.top,
                   SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormWindow::arrange() {
    Form* form = model();
    const Size least = form->minimumSize();
    const Point before = scroll_.at();
    const Size room = scroll_.fit({scale_.pixels(least.width), scale_.pixels(least.height)});
    // The same room gives the same size, whatever was shown in between, and a size that is the one of the
    // beginning up to rounding must not creep by a twip at every opening.
    const auto taken = [this](int pixels, Twips opened, Twips smallest) {
        if (pixels == scale_.pixels(opened)) return opened;
        return pixels == scale_.pixels(smallest) ? smallest : scale_.twips(pixels);
    };
    const Size client{taken(room.width, opened_.width, least.width),
                      taken(room.height, opened_.height, least.height)};
    moved_.begin();
    if (scroll_.at() != before) {
        for (const auto& each : children())
            moved_.add(*each);
    }
    trap(surroundings_->trace(), "FormWindow::arrange", [&] { form->resized(client); });
    moved_.place();
}

void FormWindow::moved(ControlPeer& peer) {
    if (moved_.isCollecting()) {
        moved_.add(peer);
    } else {
        peer.place();
    }
    if (&peer != this) peer.arrange();
}

void FormWindow::limitSize(MINMAXINFO& limits) const {
    const Size minimum = model()->minimumSize();
    if (embedded_ || minimum == Size{}) return;
    const RECT outer = outerRect(minimum);
    RECT at{};
    ::GetWindowRect(window(), &at);
    const RECT screen = workAreaAt(at);
    limits.ptMinTrackSize = {std::min(outer.right, screen.right - screen.left),
                             std::min(outer.bottom, screen.bottom - screen.top)};
}

void FormWindow::keepPlace() {
    if (embedded_ || !::IsWindowVisible(window())) return;
    const bool minimized = ::IsIconic(window()) != FALSE;
    const bool maximized = ::IsZoomed(window()) != FALSE;
    model()->setWindowState(minimized   ? WindowState::Minimized
                            : maximized ? WindowState::Maximized
                                        : WindowState::Normal);
    if (minimized || maximized) return;
    RECT at{};
    ::GetWindowRect(window(), &at);
    const bool wasSettled = std::exchange(settled_, false);
    const Scale screen = screenScale();
    model()->setBounds({screen.twips(static_cast<int>(at.left)), screen.twips(static_cast<int>(at.top)),
                        scale_.twips(static_cast<int>(at.right - at.left)),
                        scale_.twips(static_cast<int>(at.bottom - at.top))});
    settled_ = wasSettled;
}

bool FormWindow::takeResolution(const RECT* wanted) {
    const int dpi = surroundings_->dpiOf(window());
    if (dpi == scale_.dpi() && wanted == nullptr) return false;
    // First of all, since the size that the system wants is held against the smallest at that resolution.
    scale_ = Scale(dpi);
    const FontHandle old = std::move(font_);  // the windows use it until they have the other
    font_ = surroundings_->messageFont(dpi);
    if (wanted != nullptr) {
        settled_ = false;
        ::SetWindowPos(window(), nullptr, wanted->left, wanted->top, wanted->right - wanted->left,
                       wanted->bottom - wanted->top, SWP_NOZORDER | SWP_NOACTIVATE);
        settled_ = true;
    }
    for (const auto& each : children())
        each->rescale();
    arrange();
    keepPlace();
    toolTips_.rescale();
    ::InvalidateRect(window(), nullptr, TRUE);
    return true;
}

void FormWindow::rescale() {
    takeResolution(nullptr);
}

void FormWindow::goToScreenOf(HWND owner) {
    const Rect& saved = model()->bounds();
    POINT at = screenScale().pixels(Point{saved.left, saved.top});
    RECT above{};
    if (saved == Rect{} && owner != nullptr && ::GetWindowRect(owner, &above)) at = {above.left, above.top};
    ::SetWindowPos(window(), nullptr, at.x, at.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    rescale();
}

void FormWindow::takeFont() {
    const FontHandle old = std::move(font_);  // the windows use it until they have the other
    font_ = surroundings_->messageFont(scale_.dpi());
    for (const auto& each : children())
        each->rescale();
    arrange();
}

// --- showing ----------------------------------------------------------------------------------------------

void FormWindow::embed(const EmbeddedPlace& place) {
    const auto parent = reinterpret_cast<HWND>(place.parent);
    if (!::IsWindow(parent)) {
        // without one the form would stand on the desktop, with nobody to close it
        throw Error(errors::kHostInterface, "FormWindow", "The host's window does not exist, or no longer.");
    }
    embedded_ = true;
    modalEnded_ = false;
    const LONG_PTR own = ::GetWindowLongPtrW(window(), GWL_STYLE) & (WS_DISABLED | WS_VISIBLE | kScrollBars);
    ::SetWindowLongPtrW(window(), GWL_STYLE, own | WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS);
    ::SetWindowLongPtrW(window(), GWL_EXSTYLE, WS_EX_CONTROLPARENT);
    ::SetParent(window(), parent);
    rescale();
    RECT client{};
    ::GetClientRect(parent, &client);
    const Rect area = place.area.value_or(Rect{0, 0, client.right, client.bottom});
    ::SetWindowPos(window(), HWND_TOP, area.left, area.top, area.width, area.height,
                   SWP_NOACTIVATE | SWP_FRAMECHANGED);
    arrange();
    ::ShowWindow(window(), SW_SHOWNORMAL);
    keyboard_.shownEmbedded();
}

std::optional<EmbeddedPlace> FormWindow::embeddedPlace() const {
    const HWND parent = embedded_ && window() != nullptr ? ::GetAncestor(window(), GA_PARENT) : nullptr;
    if (parent == nullptr) return std::nullopt;
    RECT at{};
    ::GetWindowRect(window(), &at);
    ::MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&at), 2);
    return EmbeddedPlace{
        reinterpret_cast<WindowHandle>(parent),
        Rect{static_cast<Twips>(at.left), static_cast<Twips>(at.top), static_cast<Twips>(at.right - at.left),
             static_cast<Twips>(at.bottom - at.top)}};
}

void FormWindow::makeTopLevel(HWND owner) {
    if (embedded_) {
        embedded_ = false;
        ::ShowWindow(window(), SW_HIDE);
        ::SetParent(window(), nullptr);
        const LONG_PTR own = ::GetWindowLongPtrW(window(), GWL_STYLE) & kScrollBars;
        ::SetWindowLongPtrW(window(), GWL_STYLE, own | static_cast<LONG_PTR>(captionedStyle()));
        ::SetWindowLongPtrW(window(), GWL_EXSTYLE, static_cast<LONG_PTR>(captionedExStyle()));
    }
    ::SetWindowLongPtrW(window(), GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(owner));
}

void FormWindow::takeIcon(HWND owner) const {
    if (owner == nullptr || model()->borderStyle() != BorderStyle::Sizable) return;
    for (const WPARAM size : {ICON_SMALL, ICON_BIG}) {
        const LRESULT icon = ::SendMessageW(owner, WM_GETICON, size, 0);
        if (icon != 0) ::SendMessageW(window(), WM_SETICON, size, icon);
    }
}

void FormWindow::runModal(HWND owner) {
    const HWND handle = window();
    showAbove(owner, [handle](ModalLoop& loop) { loop.run(handle); });
}

void FormWindow::runWhile(HWND owner, const std::function<void()>& work) {
    std::exception_ptr failure;
    showAbove(owner, [&](ModalLoop&) {
        ::UpdateWindow(window());
        try {
            work();
        } catch (...) {
            failure = std::current_exception();  // thrown on when the owner can be used again
        }
    });
    if (failure) std::rethrow_exception(failure);
}

void FormWindow::showAbove(HWND owner, const std::function<void(ModalLoop&)>& run) {
    const auto modal = std::make_shared<ModalLoop>(owner);
    modal_ = modal;
    const bool wasEmbedded = embedded_;  // from a handler of its own, perhaps
    makeTopLevel(modal->owner());
    goToScreenOf(modal->owner());
    RECT at = placement();
    const Rect& saved = model()->bounds();
    if (saved == Rect{}) {
        RECT above = workAreaAt(at);
        if (modal->owner() != nullptr && ::IsWindowVisible(modal->owner()))
            ::GetWindowRect(modal->owner(), &above);
        ::OffsetRect(&at, (above.left + above.right - at.left - at.right) / 2,
                     (above.top + above.bottom - at.top - at.bottom) / 2);
    }
    at = broughtIntoView(at, saved != Rect{}, model()->isSizable() ? Size{} : scroll_.barSizes());
    ::SetWindowPos(window(), HWND_TOP, at.left, at.top, at.right - at.left, at.bottom - at.top,
                   SWP_FRAMECHANGED);
    arrange();
    takeIcon(modal->owner());
    const bool maximized =
        model()->windowState() == WindowState::Maximized && model()->borderStyle() == BorderStyle::Sizable;
    ::ShowWindow(window(), maximized ? SW_SHOWMAXIMIZED : SW_SHOWNORMAL);
    keepPlace();  // which may be another one than the model asked for
    ::SetActiveWindow(window());
    keyboard_.enter();
    const HWND handle = window();
    run(*modal);
    // From here the form may be gone; this object waits for the operation that shows it.
    modal->releaseOwner();
    if (::IsWindow(handle)) ::ShowWindow(handle, SW_HIDE);
    modal->restoreFocus();
    modalEnded_ = !wasEmbedded;
}

void FormWindow::endModal() {
    if (modal_) modal_->end();
}

void FormWindow::popUp(Menu& menu, Control& over, Point at) {
    ControlPeer* peer = find(over);
    if (peer == nullptr) return;
    POINT where = at.left < 0 || at.top < 0 ? peer->keyboardMenuPoint() : scale_.pixels(at);
    ::ClientToScreen(peer->window(), &where);
    PopupMenu shown(menu);
    std::optional<int> chosen;
    {
        const DialogKeys::Off keysOff(keys_);
        inMenu_ = true;
        chosen = shown.track(window(), where);
        inMenu_ = false;
    }
    if (chosen && control() != nullptr) PopupMenu::run(menu, *chosen);
}

// --- messages ---------------------------------------------------------------------------------------------

void FormWindow::detach() {
    ContainerPeer::detach();
    moved_.forget();
}

void FormWindow::controlChanged(ControlChange change) {
    switch (change) {
        case ControlChange::Bounds:
            if (settled_ && !embedded_) place();
            break;
        case ControlChange::MinimumSize:
            if (settled_) arrange();
            break;
        case ControlChange::Visible:
            break;  // a form is shown by embed and showModal
        default:
            ContainerPeer::controlChanged(change);
    }
}

std::optional<LRESULT> FormWindow::message(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == DialogKeys::message()) {
        keys_.perform();
        return 0;
    }
    if (const auto answer = scroll_.message(message, wParam, lParam)) return answer;
    switch (message) {
        case WM_SIZE:
            if (settled_ && wParam != SIZE_MINIMIZED && !scroll_.isFitting()) {
                // Some hosts take their children to another screen without a word, but with another size.
                if (!embedded_ || !takeResolution(nullptr)) arrange();
                keepPlace();
            }
            return 0;
        case WM_MOVE:
            keepPlace();
            return 0;
        case WM_GETMINMAXINFO:
            limitSize(*reinterpret_cast<MINMAXINFO*>(lParam));
            return 0;
        case WM_CLOSE:
            model()->close();
            return 0;
        case WM_ACTIVATE:
            if (LOWORD(wParam) != WA_INACTIVE) keyboard_.enter();
            return 0;
        case WM_SETFOCUS:
            keyboard_.enter();
            return 0;
        case kDpiChanged:
            takeResolution(reinterpret_cast<const RECT*>(lParam));
            return 0;
        case kDpiChangedAfterParent:
            rescale();
            return 0;
        case WM_SETTINGCHANGE:
            if (wParam == SPI_SETNONCLIENTMETRICS) takeFont();
            break;
        case WM_DESTROY:
            // The host has destroyed the window around this one, or a dialog's owner, without a word.
            if (inMenu_) ::EndMenu();
            endModal();
            break;
        case WM_NCDESTROY:
            if (Form* form = model()) form->windowGone();
            break;
        default:
            break;
    }
    return ContainerPeer::message(message, wParam, lParam);
}

}  // namespace pellmark
