#include "win32/forms/ModalLoop.h"

namespace pellmark {

ModalLoop::ModalLoop(HWND owner)
    : owner_(owner != nullptr ? ::GetAncestor(owner, GA_ROOT) : nullptr),
      focus_(::GetFocus()),
      thread_(::GetCurrentThreadId()) {
    // An owner that somebody else has disabled already is not ours to enable.
    disabled_ = owner_ != nullptr && !::EnableWindow(owner_, FALSE);
}

void ModalLoop::run(HWND window) {
    MSG message{};
    while (running_ && ::IsWindow(window)) {
        const BOOL got = ::GetMessageW(&message, nullptr, 0, 0);
        if (got == 0) {
            ::PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        if (got < 0) return;
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
}

void ModalLoop::end() {
    running_ = false;
    ::PostThreadMessageW(thread_, WM_NULL, 0, 0);  // the loop may be waiting
}

void ModalLoop::releaseOwner() {
    if (disabled_ && ::IsWindow(owner_)) ::EnableWindow(owner_, TRUE);
    disabled_ = false;
}

void ModalLoop::restoreFocus() const {
    if (owner_ == nullptr || !::IsWindow(owner_)) return;
    ::SetActiveWindow(owner_);
    if (::IsWindow(focus_) && ::IsWindowEnabled(focus_)) ::SetFocus(focus_);
}

}  // namespace pellmark
