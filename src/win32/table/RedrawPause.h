#pragma once

#include "win32/WindowsApi.h"

namespace pellmark {

/// While one of these lives the window does not draw itself; then it does once. A hidden window is left
/// alone: turning its drawing on again would show it.
class [[nodiscard]] RedrawPause {
  public:
    explicit RedrawPause(HWND window)
        : window_((::GetWindowLongPtrW(window, GWL_STYLE) & WS_VISIBLE) != 0 ? window : nullptr) {
        if (window_ != nullptr) ::SendMessageW(window_, WM_SETREDRAW, FALSE, 0);
    }
    ~RedrawPause() {
        if (window_ == nullptr) return;
        ::SendMessageW(window_, WM_SETREDRAW, TRUE, 0);
        ::InvalidateRect(window_, nullptr, FALSE);
    }
    RedrawPause(const RedrawPause&) = delete;
    RedrawPause& operator=(const RedrawPause&) = delete;

  private:
    HWND window_;
};

}  // namespace pellmark
