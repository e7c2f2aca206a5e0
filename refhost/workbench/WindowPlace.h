#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace norvex {

/// Where and how large a person has left the main window, in pixels of the screen.
struct WindowPlace {
    RECT area{};                        ///< while it is neither maximized nor minimized
    int dpi = USER_DEFAULT_SCREEN_DPI;  ///< that the size was chosen at
    bool isMaximized = false;

    /// The place as the registry keeps it.
    std::string text() const;
    /// Nothing where the text is none that text() has made.
    static std::optional<WindowPlace> from(const std::string& text);

    static WindowPlace of(HWND window);
    /// What was kept for the current user; nothing before the first time.
    static std::optional<WindowPlace> stored();
    void store() const;
};

/// Moves a window that is not shown yet to where it was left, or where it belongs the first time, and answers
/// how it is to be shown (SW_...). A place that is on no present screen is moved onto the nearest one.
int restorePlace(HWND window, SIZE firstSizeAt96);

/// The smallest size of a main window: that of 96 dots per inch grown with them, but never more than the
/// screen has room for.
POINT leastSize(HWND window, SIZE at96);

}  // namespace norvex
