#pragma once

#include "base/Trace.h"
#include "controls/grid/Grid.h"

namespace pellmark {

/// Runs the system's drag with what a grid offers and returns when it was dropped or given up; nothing
/// happens for empty data. Called while the mouse button is down.
void dragOut(const DragData& data, Trace& trace);

}  // namespace pellmark
