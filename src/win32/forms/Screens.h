#pragma once

#include <vector>

#include "base/Geometry.h"
#include "win32/WindowsApi.h"

namespace pellmark {

/// What of each screen the task bar leaves, in pixels like all rectangles here.
std::vector<Rect> workAreas();

/// The same of the screen that shows most of a rectangle, or that is nearest to it.
RECT workAreaAt(const RECT& rect);

/// A window that is about to open, brought onto a screen and made no larger than that. One that a person has
/// placed stays there as long as there is a screen under its caption. `bars` as for shrunkToScreen.
RECT broughtIntoView(const RECT& window, bool placedByAPerson, Size bars);

}  // namespace pellmark
