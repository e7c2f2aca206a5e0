#pragma once

#include <windows.h>

#include <string>

/// Where the host's windows stand. All lengths are pixels of the screen.
namespace norvex {

/// Dots per inch as the window sees them; of the whole screen where the system knows no others.
int dpiOf(HWND window);

/// What of the screen nearest to the rectangle the task bar leaves.
RECT workAreaNear(const RECT& rect);

/// The rectangle moved into the area by as little as it takes; one that is larger than the area is cut to it.
RECT keptWithin(const RECT& rect, const RECT& area);

/// Where a main window opens the first time: a little inside the work area, in a size for 96 dots per inch
/// that grows with them, as far as there is room.
RECT openingPlace(const RECT& workArea, int dpi, SIZE at96);

/// Puts a dialog over the middle of the window that owns it, wholly onto that one's screen. A dialog for
/// which that has no room is cut to it, see letScroll. Without an owner that is shown, the middle of the
/// screen stands in for it.
void centreOverOwner(HWND dialog);

/// A message box over the middle of its owner. `style` and the answer are those of MessageBoxW.
int showMessage(HWND owner, const std::wstring& text, const std::wstring& title, UINT style);

}  // namespace norvex
