#pragma once

#include <vector>

#include "base/Geometry.h"

namespace pellmark {

/// True when so much of a window's caption stands on one of the screens that a person can take hold of it.
/// All lengths of this file are in one unit, whichever that is.
bool isWithinReach(const Rect& window, const std::vector<Rect>& screens);

/// The window moved, by as little as it takes, wholly onto the screen that shows most of it, or that is
/// nearest where none shows anything. A window larger than that screen begins at its upper left corner.
/// Without screens it stays where it is.
Rect movedOntoScreen(const Rect& window, const std::vector<Rect>& screens);

/// The window in its place, but no larger than that same screen. What is cut off in one direction only gets a
/// scroll bar there: the window grows by it in the other one, as far as there is room. `bars` are the width
/// of a standing bar and the height of a lying one, nothing where there will be none.
Rect shrunkToScreen(const Rect& window, const std::vector<Rect>& screens, Size bars = {});

}  // namespace pellmark
