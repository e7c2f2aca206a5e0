#include "controls/grid/GridRows.h"

#include <algorithm>

namespace pellmark {

std::optional<GridRows::Block> GridRows::dataBetween(int row1, int row2) const {
    const Block block{std::max(std::min(row1, row2), fixed()), std::min(std::max(row1, row2), count() - 1)};
    return block.first <= block.last ? std::optional(block) : std::nullopt;
}

}  // namespace pellmark
