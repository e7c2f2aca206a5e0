#pragma once

#include "win32/WindowsApi.h"

namespace pellmark {

/// Pumps the thread's messages while a window is shown above its disabled owner. It touches windows by
/// handle only, so that the form may be destroyed while it runs.
class ModalLoop {
  public:
    /// Disables the owner's top-level window. `owner` may be a child or null.
    explicit ModalLoop(HWND owner);
    ~ModalLoop() { releaseOwner(); }
    ModalLoop(const ModalLoop&) = delete;
    ModalLoop& operator=(const ModalLoop&) = delete;

    HWND owner() const { return owner_; }

    /// Returns after end(), when the window is gone, or when the application quits; WM_QUIT is passed on to
    /// the loop around this one.
    void run(HWND window);
    void end();
    /// Enables the owner again, before the window hides: otherwise another application would come to the
    /// front.
    void releaseOwner();
    /// Gives the keyboard back to the window that had it.
    void restoreFocus() const;

  private:
    HWND owner_;
    HWND focus_;
    DWORD thread_;
    bool disabled_ = false;
    bool running_ = true;
};

}  // namespace pellmark
