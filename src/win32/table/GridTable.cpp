#include "win32/table/GridTable.h"

#include <algorithm>

namespace pellmark {

void GridTable::takeColumns() {
    columns_.clear();
    if (grid_ == nullptr) return;
    for (const int col : grid_->displayOrder()) {
        if (!grid_->colHidden(col)) columns_.push_back(col);
    }
}

int GridTable::colOf(int column) const {
    const bool isShown = grid_ != nullptr && column >= 0 && column < columns();
    const int col = isShown ? columns_[static_cast<std::size_t>(column)] : -1;
    return col < (grid_ != nullptr ? grid_->cols() : 0) ? col : -1;
}

int GridTable::columnOf(int col) const {
    const auto found = std::find(columns_.begin(), columns_.end(), col);
    return found == columns_.end() ? -1 : static_cast<int>(found - columns_.begin());
}

std::string GridTable::heading(int column) const {
    const int col = colOf(column);
    return col < 0 ? std::string() : grid_->heading(col);
}

Twips GridTable::width(int column) const {
    const int col = colOf(column);
    return col < 0 ? 0 : grid_->colWidth(col);
}

int GridTable::sorting(int column) const {
    const int col = colOf(column);
    if (col < 0 || grid_->sortMark().col != col) return 0;
    return grid_->sortMark().descending ? -1 : 1;
}

void GridTable::userTookWidth(int column, Twips width) {
    if (const int col = colOf(column); col >= 0) grid_->userTookWidth(col, width);
}

void GridTable::userResized(int column, Twips width) {
    if (const int col = colOf(column); col >= 0) grid_->userResizedColumn(col, width);
}

void GridTable::userMoved(int from, int to) {
    const int col = colOf(from);
    if (col < 0 || from == to || colOf(to) < 0) return;
    // The grid counts hidden columns too: the column takes the place of the one it was dropped on.
    const int position = grid_->colPosition(colOf(to));
    columns_.erase(columns_.begin() + from);
    columns_.insert(columns_.begin() + to, col);
    grid_->userMovedColumn(col, position);
}

std::string GridTable::text(int row, int column) const {
    const int col = colOf(column);
    if (col < 0 || row < 0 || unreadable_.contains(static_cast<std::size_t>(row))) return {};
    try {
        return grid_->displayText(gridRow(row), col);
    } catch (...) {
        if (unreadable_.count() == 0) trace_.record("GridTable::text", describeCurrentException());
        unreadable_.add(static_cast<std::size_t>(row));
        return {};
    }
}

CellStyle GridTable::style(int row, int column) const {
    const int col = colOf(column);
    return col < 0 ? CellStyle{} : grid_->style(gridRow(row), col);
}

int GridTable::current() const {
    const int row = grid_ ? grid_->row() : -1;
    return row < 0 ? -1 : row - grid_->fixedRows();
}

void GridTable::setCurrent(int row) {
    if (grid_ != nullptr) grid_->setCurrent(gridRow(row), grid_->col());
}

void GridTable::eachSelected(const std::function<void(int first, int last)>& visit) const {
    if (grid_ == nullptr) return;
    const int fixed = grid_->fixedRows();
    grid_->eachSelectedRun([&](int first, int last) { visit(first - fixed, last - fixed); });
}

void GridTable::setSelected(int first, int last, bool selected) {
    if (grid_ != nullptr) grid_->setSelected(gridRow(first), gridRow(last), selected);
}

void GridTable::selectOnly(int first, int last) {
    if (grid_ != nullptr) grid_->selectOnly(gridRow(first), gridRow(last));
}

void GridTable::clearSelection() {
    if (grid_ != nullptr) grid_->clearSelection();
}

void GridTable::selectAll() {
    if (grid_ != nullptr) grid_->selectAll();
}

}  // namespace pellmark
