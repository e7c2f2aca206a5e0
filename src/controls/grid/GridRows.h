#pragma once

#include <cstddef>
#include <optional>

#include "controls/grid/RowOrder.h"

namespace pellmark {

/// How a grid numbers its rows: the headings first, then the data rows, each with a slot behind it that is
/// its own for as long as it lives.
class GridRows {
  public:
    /// The headings.
    int fixed() const { return 1; }
    int count() const { return fixed() + static_cast<int>(order_.count()); }
    bool isData(int row) const { return row >= fixed() && row < count(); }
    /// Only for data rows.
    std::size_t slotOf(int row) const { return order_.slotAt(static_cast<std::size_t>(row - fixed())); }
    int rowOf(std::size_t slot) const { return static_cast<int>(order_.rankOf(slot)) + fixed(); }
    /// The slot of a row that may be none.
    std::optional<std::size_t> find(int row) const {
        return isData(row) ? std::optional(slotOf(row)) : std::nullopt;
    }

    struct Block {
        int first;
        int last;
    };
    /// What is data of the rows between two, given in any order; nothing when none is.
    std::optional<Block> dataBetween(int row1, int row2) const;

    RowOrder& order() { return order_; }
    const RowOrder& order() const { return order_; }

  private:
    RowOrder order_;
};

}  // namespace pellmark
