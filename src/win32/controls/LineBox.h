#pragma once

#include "win32/WindowsApi.h"

/// Boxes that hold one line of text: edit boxes and closed drop-down lists. Their windows write at the top of
/// whatever height they are given, so they are as high as their line needs.
namespace pellmark::linebox {

/// The height of a line of text in the font, in pixels.
int lineHeight(HFONT font);
/// How high an edit box, and a closed drop-down list, are in a room of a height. The room counts as long as
/// it holds the line.
int editHeight(int lineHeight, LONG room);
int closedHeight(int lineHeight, LONG room);
/// A box of a height in the middle of the room that it has been given.
RECT placed(RECT room, int height);

/// Makes a drop-down list's closed box so high.
void setClosedHeight(HWND combo, int height);
/// Makes the opened list as wide as its longest entry, and at least as wide as the box.
void fitOpened(HWND combo);

}  // namespace pellmark::linebox
