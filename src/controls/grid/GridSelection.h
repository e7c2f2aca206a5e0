#pragma once

#include <cstddef>
#include <functional>
#include <optional>

#include "controls/grid/GridRows.h"
#include "controls/grid/RowSelection.h"

namespace pellmark {

/// Which rows of a grid are selected, in which order they were, and which one is current. Asked by the
/// numbers of rows, kept by their slots: rows that go leave the others as they are. Nothing costs per row.
class GridSelection {
  public:
    /// The rows belong to the grid and live as long as this.
    explicit GridSelection(const GridRows& rows) : rows_(rows) {}

    /// The current row; -1 when there is none.
    int current() const { return current_ ? rows_.rowOf(*current_) : -1; }
    /// A row outside the data means none. False when it is the current one already.
    bool setCurrent(int row);

    int count() const { return static_cast<int>(selected_.count()); }
    /// The i-th selected row in the order in which they were selected; -1 when out of range.
    int at(int i) const;
    bool contains(int row) const { return rows_.isData(row) && selected_.contains(rows_.slotOf(row)); }
    void set(const GridRows::Block& rows, bool selected);
    /// These and no others; those that were selected keep their place in the order.
    void selectOnly(const GridRows::Block& rows);
    void clear() { selected_.clear(); }
    /// See Grid::eachSelectedRun.
    void eachRun(const std::function<void(int first, int last)>& visit) const;

    /// No row is left of those there were.
    void reset();
    /// To be called before the row goes; the row that takes the place of the current one is current then, and
    /// that is answered.
    bool remove(int row);

  private:
    const GridRows& rows_;
    RowSelection selected_;
    std::optional<std::size_t> current_;
};

}  // namespace pellmark
