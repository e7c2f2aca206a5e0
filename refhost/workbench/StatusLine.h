#pragma once

#include <windows.h>

#include <string>

namespace norvex {

/// The line at the lower edge of the main window that says what the last call came to.
class StatusLine {
  public:
    StatusLine() = default;
    StatusLine(const StatusLine&) = delete;
    StatusLine& operator=(const StatusLine&) = delete;
    ~StatusLine();

    /// False when there can be none.
    bool create(HWND parent);
    bool exists() const { return window_ != nullptr; }
    /// Goes to the lower edge again after the parent's size has changed.
    void fit();
    /// Takes the system's font for the resolution that the line now has.
    void takeFont();
    /// Takes the system's font for the resolution that it is about to have, in dots per inch.
    void takeFontFor(int dpi);
    /// Hands on what the system tells its top-level windows alone: colours, themes and settings have changed.
    void tell(UINT message, WPARAM wide, LPARAM data);
    int height() const;
    /// One line; what the text has more of them follows in the same.
    void say(const std::string& text);

  private:
    HWND window_ = nullptr;
    HFONT font_ = nullptr;
};

}  // namespace norvex
