#include "controls/grid/CellStyles.h"

#include "base/Error.h"

namespace pellmark {

CellStyles::CellStyles() : palette_(1) {}

const CellStyle& CellStyles::at(std::size_t slot, int col) const {
    const auto column = columns_.find(col);
    if (column == columns_.end()) return palette_.front();
    const auto& [base, cells] = column->second;
    return palette_[slot < cells.size() ? cells[slot] : base];
}

void CellStyles::set(std::size_t slot, int col, const CellStyle& style) {
    const Index index = indexOf(style);
    Column& column = columns_[col];
    if (slot >= column.cells.size()) {
        if (index == column.base) return;
        column.cells.resize(slot + 1, column.base);
    }
    column.cells[slot] = index;
}

void CellStyles::changeColumn(int col, const std::function<void(CellStyle&)>& change) {
    Column& column = columns_[col];
    std::unordered_map<Index, Index> changed;  // few styles, however many cells
    const auto changedOf = [&](Index before) {
        const auto [found, isNew] = changed.try_emplace(before, Index{0});
        if (isNew) {
            CellStyle style = palette_[before];
            change(style);
            found->second = indexOf(style);
        }
        return found->second;
    };
    column.base = changedOf(column.base);
    for (Index& cell : column.cells)
        cell = changedOf(cell);
}

void CellStyles::clear() {
    columns_.clear();
    palette_.resize(1);
    last_ = 0;
}

CellStyles::Index CellStyles::indexOf(const CellStyle& style) {
    if (palette_[last_] == style) return last_;
    for (std::size_t i = 0; i < palette_.size(); ++i) {
        if (palette_[i] == style) return last_ = static_cast<Index>(i);
    }
    if (palette_.size() > 0xFFFF)
        throw Error(errors::kInvalidArgument, "Grid", "Too many different cell styles");
    palette_.push_back(style);
    return last_ = static_cast<Index>(palette_.size() - 1);
}

}  // namespace pellmark
