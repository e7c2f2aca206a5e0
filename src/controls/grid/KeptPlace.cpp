#include "controls/grid/KeptPlace.h"

namespace pellmark {

KeptPlace::KeptPlace(Grid& grid)
    : grid_(grid),
      currentId_(grid.rowData(grid.row())),
      col_(grid.col()),
      topId_(grid.rowData(grid.topRow())) {
    if (grid.selectedRows() > kMostRows) return;
    for (int i = 0; i < grid.selectedRows(); ++i)
        selectedIds_.push_back(grid.rowData(grid.selectedRow(i)));
}

void KeptPlace::restoreSelection() {
    const Grid::RedrawOff off(grid_);
    const int current = grid_.findRow(currentId_);
    if (current >= 0) {
        grid_.select(current, col_);
        if (!selectedIds_.empty()) grid_.setSelected(current, false);
    }
    bool isFirst = current < 0;
    for (const std::string& id : selectedIds_) {
        const int row = grid_.findRow(id);
        if (row < 0) continue;
        if (isFirst) grid_.select(row, col_);
        isFirst = false;
        grid_.setSelected(row, true);
    }
}

void KeptPlace::restoreScroll() {
    const int top = grid_.findRow(topId_);
    if (top >= 0) grid_.setTopRow(top);
}

}  // namespace pellmark
