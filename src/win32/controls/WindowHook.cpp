#include "win32/controls/WindowHook.h"

namespace pellmark {

namespace {
/// For windows before which somebody else has put a procedure of his own.
constexpr const wchar_t* kProperty = L"Pellmark.Window";
}  // namespace

struct WindowHook::Link {
    WNDPROC before;
    WindowHook* hook;  ///< null once the owner has let go
};

WindowHook::WindowHook(HWND window, Owner& owner, const Operations& operations, ControlPeer* peer)
    : owner_(owner), operations_(operations), peer_(peer), link_(new Link{nullptr, this}) {
    ::SetPropW(window, kProperty, link_);
    ::SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(link_));
    link_->before = reinterpret_cast<WNDPROC>(
        ::SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&procedure)));
}

WindowHook::~WindowHook() {
    if (link_ != nullptr) link_->hook = nullptr;
}

WindowHook::Link* WindowHook::linkOf(HWND window) {
    if (window == nullptr) return nullptr;
    const bool isFirst = ::GetWindowLongPtrW(window, GWLP_WNDPROC) == reinterpret_cast<LONG_PTR>(&procedure);
    return isFirst ? reinterpret_cast<Link*>(::GetWindowLongPtrW(window, GWLP_USERDATA))
                   : static_cast<Link*>(::GetPropW(window, kProperty));
}

LRESULT WindowHook::pass(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const Link* link = linkOf(window);
    return link != nullptr ? ::CallWindowProcW(link->before, window, message, wParam, lParam) : 0;
}

ControlPeer* WindowHook::peerOf(HWND window) {
    const Link* link = linkOf(window);
    return link != nullptr && link->hook != nullptr ? link->hook->peer_ : nullptr;
}

LRESULT CALLBACK WindowHook::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    auto* link = reinterpret_cast<Link*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
    if (link == nullptr) return ::DefWindowProcW(window, message, wParam, lParam);
    const WNDPROC before = link->before;
    std::optional<Operations::Scope> scope;
    std::optional<LRESULT> answer;
    if (link->hook != nullptr) {
        scope.emplace(link->hook->operations_);
        // The owner, the hook and even the window may be gone after this.
        answer = link->hook->owner_.seen(window, message, wParam, lParam);
    }
    if (message == WM_NCDESTROY) {
        if (link->hook != nullptr) link->hook->link_ = nullptr;
        ::SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        ::RemovePropW(window, kProperty);
        delete link;
    }
    return answer ? *answer : ::CallWindowProcW(before, window, message, wParam, lParam);
}

}  // namespace pellmark
