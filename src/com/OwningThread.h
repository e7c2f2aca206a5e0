#pragma once

#include "win32/WindowsApi.h"

#include <functional>

namespace pellmark {

/// The thread that made an object, and the way back to it for one task: windows and the host's objects belong
/// to a thread, so what lets go of them has to run there. Made and destroyed on that thread.
class OwningThread {
  public:
    /// The task must not throw; it may destroy this object. Throws CallError when the system gives no window.
    explicit OwningThread(std::function<void()> task);
    OwningThread(const OwningThread&) = delete;
    OwningThread& operator=(const OwningThread&) = delete;
    ~OwningThread();

    bool isCurrent() const noexcept { return ::GetCurrentThreadId() == id_; }

    /// Has the thread run the task as soon as it handles messages; to be called on any thread. False when the
    /// thread has ended and can no longer be reached.
    bool handOver() const noexcept;

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    std::function<void()> task_;
    DWORD id_ = ::GetCurrentThreadId();
    HWND window_ = nullptr;
};

}  // namespace pellmark
