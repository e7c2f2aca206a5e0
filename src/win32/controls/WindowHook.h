#pragma once

#include <optional>

#include "base/Operations.h"
#include "win32/WindowsApi.h"

namespace pellmark {

class ControlPeer;

/// Stands before the procedure of one window and shows its messages to an owner, each inside a scope of the
/// component: whatever may destroy the owner waits until its window's procedures have returned. The
/// procedure is exchanged once and finds its way by a pointer in the window itself (GWLP_USERDATA): the
/// system's subclassing asks another process at each message in some versions.
class WindowHook {
  public:
    class Owner {
      public:
        /// Answers a message of the window; nothing hands it on to the window's own procedure.
        virtual std::optional<LRESULT> seen(HWND window, UINT message, WPARAM wParam,
                                            LPARAM lParam) noexcept = 0;

      protected:
        ~Owner() = default;
    };

    /// `peer` is what peerOf answers for the window, null for a window inside a control.
    WindowHook(HWND window, Owner& owner, const Operations& operations, ControlPeer* peer = nullptr);
    /// The window stays and runs on its own procedure.
    ~WindowHook();
    WindowHook(const WindowHook&) = delete;
    WindowHook& operator=(const WindowHook&) = delete;

    /// What the window does with a message by itself; 0 when it has gone.
    static LRESULT pass(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    /// The peer whose own window this is, null for any other window of the thread.
    static ControlPeer* peerOf(HWND window);

  private:
    /// What hangs on the window, until the window goes.
    struct Link;
    static Link* linkOf(HWND window);
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

    Owner& owner_;
    Operations operations_;
    ControlPeer* peer_;
    Link* link_;
};

}  // namespace pellmark
