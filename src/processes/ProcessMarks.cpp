#include "processes/ProcessMarks.h"

namespace pellmark {

void markMatches(Grid& grid, const std::vector<pNode>& results) {
    const int nameCol = grid.colIndex(field::kName);
    for (const pNode& node : results) {
        const int row = grid.findRow(node.id);
        if (node.ExactMatch) {
            grid.setForeColor(row, nameCol, kGreen);
        } else {
            grid.setItalic(row, nameCol, true);
        }
    }
}

void markOrphans(Grid& grid, ProcessStore& store) {
    const int nameCol = grid.colIndex(field::kName);
    const Grid::RedrawOff off(grid);
    grid.setColumnForeColor(nameCol, kBlack);
    const auto orphans = store.orphanProcesses();
    if (const auto keys = orphans->keys()) {
        for (const Guid& key : *keys)
            grid.setForeColor(grid.findRow(key), nameCol, kRed);
        return;
    }
    const std::size_t idField = orphans->requireField(field::kId);
    for (std::size_t i = 0; i < orphans->count(); ++i) {
        grid.setForeColor(grid.findRow(orphans->text(i, idField)), nameCol, kRed);
    }
}

}  // namespace pellmark
