#include "controls/grid/GridColumns.h"

#include <algorithm>
#include <utility>

#include "base/Error.h"
#include "base/Text.h"

namespace pellmark {

void GridColumns::resize(int count) {
    const int before = this->count();
    columns_.resize(static_cast<std::size_t>(std::max(count, 0)));
    std::erase_if(order_, [&](int col) { return col >= this->count(); });
    for (int col = before; col < this->count(); ++col)
        order_.push_back(col);
}

const GridColumn& GridColumns::at(int col) const {
    if (!contains(col)) {
        throw Error(errors::kInvalidArgument, "Grid", "There is no column " + std::to_string(col));
    }
    return columns_[static_cast<std::size_t>(col)];
}

GridColumn& GridColumns::at(int col) {
    return const_cast<GridColumn&>(std::as_const(*this).at(col));
}

int GridColumns::indexOf(std::string_view key) const {
    if (key.empty()) return -1;
    const auto found = std::find_if(columns_.begin(), columns_.end(),
                                    [&](const GridColumn& column) { return equalNoCase(column.key, key); });
    return found == columns_.end() ? -1 : static_cast<int>(found - columns_.begin());
}

int GridColumns::positionOf(int col) const {
    at(col);
    return static_cast<int>(std::find(order_.begin(), order_.end(), col) - order_.begin());
}

void GridColumns::move(int col, int position) {
    at(col);
    order_.erase(std::find(order_.begin(), order_.end(), col));
    order_.insert(order_.begin() + std::clamp(position, 0, static_cast<int>(order_.size())), col);
}

}  // namespace pellmark
