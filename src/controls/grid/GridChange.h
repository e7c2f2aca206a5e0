#pragma once

#include <optional>
#include <vector>

namespace pellmark {

/// The column by whose values the rows stand, as its heading shows it.
struct SortMark {
    int col = -1;  ///< -1 while the rows have their list's own order
    bool descending = false;
    bool operator==(const SortMark&) const = default;
};

/// What about the grid the peer must show anew.
struct GridChange {
    enum class What { Cells, Rows, Columns, Selection, Current, Scroll, Top, Font, All };
    What what = What::All;
    int row = -1;  ///< for Cells, Selection, Scroll and Top: the row, -1 for all
};

/// The changes of a grid while its redrawing is off: many become one.
class HeldChanges {
  public:
    bool isHolding() const { return depth_ > 0; }
    /// True for the outermost of nested calls.
    bool begin() { return depth_++ == 0; }
    bool end() { return --depth_ == 0; }

    void hold(const GridChange& change);
    /// What the peer has to show, in order; nothing is held any more. Where the rows to scroll to are still
    /// there is the grid's to know.
    std::vector<GridChange> take();

  private:
    int depth_ = 0;
    std::optional<GridChange> change_;
    std::optional<GridChange> top_;
    std::optional<GridChange> scroll_;
};

}  // namespace pellmark
