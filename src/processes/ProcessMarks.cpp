#include "processes/ProcessMarks.h"

namespace pellmark {

void markMatches(Grid& grid, const std::vector<pNode>& results, Texts& texts) {
    const int nameCol = grid.colIndex(field::kName);
    const std::string exact = texts.GetString("matches the feature case exactly");
    const std::string partial = texts.GetString("matches the feature case in part");
    for (const pNode& node : results) {
        const int row = grid.findRow(node.id);
        if (node.ExactMatch) {
            grid.setForeColor(row, nameCol, kGreen);
        } else {
            grid.setItalic(row, nameCol, true);
        }
        grid.setNote(row, nameCol, node.ExactMatch ? exact : partial);
    }
}

void markOrphans(Grid& grid, ProcessStore& store, Texts& texts) {
    const int nameCol = grid.colIndex(field::kName);
    const Grid::RedrawOff off(grid);
    grid.setColumnForeColor(nameCol, kBlack);
    const std::string note = texts.GetString("attached to no feature case");
    const auto mark = [&](int row) {
        grid.setForeColor(row, nameCol, kRed);
        grid.setNote(row, nameCol, note);
    };
    const auto orphans = store.orphanProcesses();
    if (const auto keys = orphans->keys()) {
        for (const Guid& key : *keys)
            mark(grid.findRow(key));
        return;
    }
    const std::size_t idField = orphans->requireField(field::kId);
    for (std::size_t i = 0; i < orphans->count(); ++i)
        mark(grid.findRow(orphans->text(i, idField)));
}

}  // namespace pellmark
