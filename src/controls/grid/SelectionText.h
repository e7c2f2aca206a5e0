#pragma once

#include <string>
#include <vector>

#include "controls/grid/Grid.h"

/// The selected rows of a grid as a person sees them, for other programs: the visible columns in the order of
/// the screen under their headings, the rows in the order of the screen, the texts that are shown.
namespace pellmark {

/// The columns that are seen: neither hidden nor without any width, in the order of the screen.
std::vector<int> shownColumns(const Grid& grid);

/// A line for the headings and one per row, cells parted by tabs and quoted where they hold a tab, a quote or
/// a line break; every line ends in CR LF. "" when nothing is selected.
std::string selectionAsTabbedText(const Grid& grid);

/// The same as an HTML table. A spreadsheet leaves every cell as it is: what is no plain number is marked as
/// text, so that "3/8" becomes no date and "=D/2" no formula. "" when nothing is selected.
std::string selectionAsHtmlTable(const Grid& grid);

}  // namespace pellmark
