#pragma once

#include <string>
#include <vector>

#include "win32/WindowsApi.h"

namespace pellmark::test {

/// What a person could not read, or could not tell apart, in a window: texts that are cut off (labels,
/// buttons, boxes of one line, entries of drop-down lists, titles of boxes, tabs, column headings, the
/// window's caption unless it is as wide as its screen), lists that show no row, and controls that overlap or
/// reach beyond what they stand in, scrolled where that scrolls. Texts are measured with the font that each
/// control draws with. One line per complaint; empty when all is well. `dpi` is the resolution that the
/// window was made for.
std::vector<std::string> complaintsAbout(HWND window, int dpi);

}  // namespace pellmark::test
