#pragma once

#include <windows.h>

namespace norvex {

/// The main window of a host that was created without one, by a script for example. Its client area is all
/// for the views that are embedded in it.
class HostWindow {
  public:
    HostWindow();
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;
    ~HostWindow();

    /// Null once the user has closed it.
    HWND handle() const { return window_; }
    /// Handles the thread's messages until the window is closed.
    void run();

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM data);

    HWND window_ = nullptr;
};

}  // namespace norvex
