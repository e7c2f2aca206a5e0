#include "controls/grid/ColumnTable.h"

#include "base/Text.h"

namespace pellmark {

void nameColumns(Grid& grid, std::span<const ColumnSpec> columns, const HeadingText& heading) {
    const Grid::RedrawOff off(grid);
    std::string headings;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (i > 0) headings += '|';
        const std::string english = columns[i].heading;
        // A "|" within a translation must not shift the columns.
        if (!english.empty()) headings += replaced(heading(english), '|', ' ');
    }
    grid.setHeadings(headings);
    int col = 0;
    for (const ColumnSpec& column : columns) {
        grid.setColKey(col, column.key);
        if (column.list != nullptr) grid.setColComboList(col, column.list);
        grid.setColEditable(col, column.editable);
        ++col;
    }
}

void layOutColumns(Grid& grid, std::span<const ColumnSpec> columns, const HeadingText& heading) {
    const Grid::RedrawOff off(grid);
    nameColumns(grid, columns, heading);
    int col = 0;
    for (const ColumnSpec& column : columns)
        grid.setColWidth(col++, column.width);
    grid.setWidthsChosen(false);
}

void hideInternalColumns(Grid& grid, std::span<const ColumnSpec> columns, bool hidden) {
    const Grid::RedrawOff off(grid);
    for (const ColumnSpec& column : columns) {
        const int col = column.internal ? grid.colIndex(column.key) : -1;
        if (col >= 0) grid.setColHidden(col, hidden);
    }
}

}  // namespace pellmark
