#include "controls/grid/GridSelection.h"

namespace pellmark {

bool GridSelection::setCurrent(int row) {
    const std::optional<std::size_t> slot = rows_.find(row);
    if (slot == current_) return false;
    current_ = slot;
    return true;
}

int GridSelection::at(int i) const {
    return i >= 0 && i < count() ? rows_.rowOf(selected_.at(static_cast<std::size_t>(i))) : -1;
}

void GridSelection::set(const GridRows::Block& rows, bool selected) {
    if (!selected) {
        selected_.removeRange(rows_.slotOf(rows.first), rows_.slotOf(rows.last));
        return;
    }
    const auto rank = [this](int row) { return static_cast<std::size_t>(row - rows_.fixed()); };
    rows_.order().eachRun(rank(rows.first), rank(rows.last),
                          [this](std::size_t first, std::size_t last) { selected_.addRange(first, last); });
}

void GridSelection::selectOnly(const GridRows::Block& rows) {
    const int last = rows_.count() - 1;
    if (rows.first > rows_.fixed()) set({rows_.fixed(), rows.first - 1}, false);
    if (rows.last < last) set({rows.last + 1, last}, false);
    set(rows, true);
}

void GridSelection::eachRun(const std::function<void(int first, int last)>& visit) const {
    selected_.eachRun(
        [&](std::size_t first, std::size_t last) { visit(rows_.rowOf(first), rows_.rowOf(last)); });
}

void GridSelection::reset() {
    selected_.clear();
    current_.reset();
}

bool GridSelection::remove(int row) {
    const std::size_t slot = rows_.slotOf(row);
    selected_.remove(slot);
    if (current_ != slot) return false;
    const int next = row + 1 < rows_.count() ? row + 1 : row - 1;
    current_ = rows_.find(next);
    return true;
}

}  // namespace pellmark
