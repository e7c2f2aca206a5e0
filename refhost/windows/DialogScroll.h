#pragma once

#include <windows.h>

namespace norvex {

/// Gives a dialog scroll bars whenever its window has less room than it has now, and lets the keyboard bring
/// what it reaches into sight: a screen may be too small for a dialog.
void letScroll(HWND dialog);
/// The same where the client area is less than `least` (in pixels): the system makes no dialog whose size can
/// be changed larger than the screen, so that such a one may have too little room from the beginning.
void letScroll(HWND dialog, SIZE least);

/// Where a dialog's contents begin and end, in pixels of its client area: beyond that one where it scrolls.
RECT contentsOf(HWND dialog);

}  // namespace norvex
