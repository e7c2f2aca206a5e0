#pragma once

#include <vector>

#include "support/Measure.h"
#include "win32/forms/Win32Desktop.h"

namespace bench {

/// Moving the selection of a grid with keys and mouse, each move beside the same one in a bare owner-data
/// list of as many rows; from the input message to the picture.
Table moves(pellmark::Win32Desktop& desktop, const std::vector<int>& sizes);

}  // namespace bench
