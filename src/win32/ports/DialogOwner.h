#pragma once

#include "base/Geometry.h"
#include "win32/WindowsApi.h"

namespace pellmark {

/// What a dialog of the system's is opened over: while one of these lives, and behind it the keyboard returns
/// to where it was.
class DialogOwner {
  public:
    explicit DialogOwner(WindowHandle owner) : owner_(owner), focus_(::GetFocus()) {}
    ~DialogOwner() {
        if (focus_ != nullptr && ::IsWindow(focus_)) ::SetFocus(focus_);
    }
    DialogOwner(const DialogOwner&) = delete;
    DialogOwner& operator=(const DialogOwner&) = delete;

    /// The window at the top, null for none: one within the host's would leave the rest of the host's usable
    /// while the dialog is open.
    HWND window() const {
        return owner_ != 0 ? ::GetAncestor(reinterpret_cast<HWND>(owner_), GA_ROOT) : nullptr;
    }

  private:
    WindowHandle owner_;
    HWND focus_;
};

}  // namespace pellmark
