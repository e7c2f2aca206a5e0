#include "win32/controls/ControlPeer.h"

#include "base/Error.h"
#include "win32/WideText.h"
#include "win32/controls/NameAnswer.h"
#include "win32/forms/FormWindow.h"

namespace pellmark {

ControlPeer::ControlPeer(FormWindow& form, Control& control) : form_(form), control_(&control) {
    changed_ = control.changed.subscribe([this](ControlChange change) {
        trap(form_.surroundings().trace(), "ControlPeer::changed", [&] {
            if (window_ != nullptr) controlChanged(change);
        });
    });
    focusRequested_ = control.focusRequested.subscribe([this] { form_.keyboard().focus(*this); });
}

ControlPeer::~ControlPeer() {
    control_ = nullptr;
    hook_.reset();
    innerHook_.reset();
    if (window_ != nullptr) ::DestroyWindow(window_);
}

const Scale& ControlPeer::scale() const {
    return form_.currentScale();
}

void ControlPeer::createWindow(HWND parent, const wchar_t* className, DWORD style, DWORD exStyle) {
    if ((style & WS_POPUP) == 0) {
        style |= WS_CHILD | WS_CLIPSIBLINGS;
        if (control_->visible()) style |= WS_VISIBLE;
        if (control_->tabStop()) style |= WS_TABSTOP;
    }
    if (!control_->enabled()) style |= WS_DISABLED;
    const RECT at = placement();
    window_ = ::CreateWindowExW(exStyle, className, toWide(control_->caption()).c_str(), style, at.left,
                                at.top, at.right - at.left, at.bottom - at.top, parent, nullptr,
                                form_.surroundings().instance(), nullptr);
    if (window_ == nullptr) {
        throw Error(static_cast<std::int32_t>(::GetLastError()), "ControlPeer",
                    "The window of " + control_->name() + " could not be created.");
    }
    hook_.emplace(window_, *this, form_.surroundings().operations(), this);
    // The Tab key follows the order of the windows; peers are created in tab order.
    if ((style & WS_CHILD) != 0) {
        ::SetWindowPos(window_, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        ::SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(form_.font()), FALSE);
        if (!control_->toolTip().empty()) form_.toolTips().set(window_, control_->toolTip());
    }
}

void ControlPeer::watchInner(HWND inner) {
    innerHook_.emplace(inner, *this, form_.surroundings().operations());
}

ControlPeer* ControlPeer::around(HWND window) {
    while (window != nullptr) {
        if (ControlPeer* peer = of(window)) return peer;
        window = ::GetAncestor(window, GA_PARENT);
    }
    return nullptr;
}

void ControlPeer::detach() {
    control_ = nullptr;
    changed_.reset();
    focusRequested_.reset();
}

RECT ControlPeer::placement() const {
    RECT at = scale().pixels(control_->bounds());
    // What stands in the form itself moves when the form is scrolled; all else moves with it.
    if (control_->parent() == form_.control()) {
        const Point scrolled = form_.scroll().at();
        ::OffsetRect(&at, -scrolled.left, -scrolled.top);
    }
    return at;
}

void ControlPeer::place() {
    if (control_ == nullptr) return;
    const RECT at = placement();
    ::SetWindowPos(window_, nullptr, at.left, at.top, at.right - at.left, at.bottom - at.top,
                   SWP_NOZORDER | SWP_NOACTIVATE);
}

void ControlPeer::rescale() {
    ::SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(form_.font()), FALSE);
    place();
}

POINT ControlPeer::keyboardMenuPoint() const {
    RECT client{};
    ::GetClientRect(window_, &client);
    return {client.right / 2, client.bottom / 2};
}

void ControlPeer::controlChanged(ControlChange change) {
    switch (change) {
        case ControlChange::Caption:
            ::SetWindowTextW(window_, toWide(control_->caption()).c_str());
            break;
        case ControlChange::Bounds:
            form_.moved(*this);
            break;
        case ControlChange::Visible:
            ::ShowWindow(window_, control_->visible() ? SW_SHOWNA : SW_HIDE);
            break;
        case ControlChange::Enabled:
            ::EnableWindow(window_, control_->enabled());
            break;
        case ControlChange::ToolTip:
            form_.toolTips().set(window_, control_->toolTip());
            break;
        case ControlChange::MinimumSize:
            break;  // the form's own
    }
}

std::optional<LRESULT> ControlPeer::message(UINT message, WPARAM wParam, LPARAM lParam) {
    if (const auto name = answerWithName(*control_, message, wParam, lParam)) return name;
    if (message == WM_SETFOCUS && control_->kind() != Control::Kind::Form) {
        form_.keyboard().arrived(*this, reinterpret_cast<HWND>(wParam));
        control_->entered.raise();
    }
    return std::nullopt;
}

std::optional<LRESULT> ControlPeer::innerMessage(HWND, UINT, WPARAM, LPARAM) {
    return std::nullopt;
}

std::optional<LRESULT> ControlPeer::seen(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    std::optional<LRESULT> answer;
    if (control_ != nullptr) {
        trap(form_.surroundings().trace(), "ControlPeer::procedure", [&] {
            answer = window == window_ ? this->message(message, wParam, lParam)
                                       : innerMessage(window, message, wParam, lParam);
        });
    }
    if (message == WM_NCDESTROY && window == window_) window_ = nullptr;
    return answer;
}

}  // namespace pellmark
