#pragma once

#include <windows.h>

#include "refhost/technology/Cycles.h"

namespace norvex {

/// Draws what the parameters of a cutting cycle mean: workpiece, tool, movements and the letters that people
/// use for them. It fills the area, whatever its size.
void drawCycle(HDC device, const RECT& area, const CuttingCycle& cycle);

}  // namespace norvex
