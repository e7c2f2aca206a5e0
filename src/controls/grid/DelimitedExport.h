#pragma once

#include <functional>
#include <string_view>

#include "controls/grid/Grid.h"

namespace pellmark {

/// How a whole grid becomes delimited text.
struct DelimitedFormat {
    char separator = ',';
    bool withFixed = true;  ///< headings and fixed columns too
    /// An apostrophe before each text that a spreadsheet would run as a formula.
    bool escapeFormulas = false;
};

/// Every row and column, hidden ones included, each cell's shown text, joined by the separator, lines ended
/// by CR LF. A cell that holds the separator, a quote or a line break is quoted (RFC 4180); plain cells are
/// not. The text goes to `write` in pieces of some 64 KiB, each a number of whole rows, with the rows done so
/// far.
void writeDelimited(const Grid& grid, const DelimitedFormat& format,
                    const std::function<void(std::string_view piece, int rowsDone)>& write);

}  // namespace pellmark
