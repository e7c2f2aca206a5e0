#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/Geometry.h"
#include "controls/grid/DisplayList.h"

namespace pellmark {

/// One column of a grid.
struct GridColumn {
    static constexpr Twips kDefaultWidth = 1440;

    std::string key;
    std::string heading;
    Twips width = kDefaultWidth;
    bool hidden = false;
    bool editable = false;
    DisplayList list;
};

/// The columns of a grid, by index and by key, and their order on the screen. An index out of range throws
/// Error (invalid argument).
class GridColumns {
  public:
    int count() const { return static_cast<int>(columns_.size()); }
    void resize(int count);
    bool contains(int col) const { return col >= 0 && col < count(); }
    const GridColumn& at(int col) const;
    GridColumn& at(int col);
    /// Case ignored; -1 when no column has the key. An empty key is no key.
    int indexOf(std::string_view key) const;
    int positionOf(int col) const;
    /// Moves the column; the others close up. A position out of range means the nearest end.
    void move(int col, int position);
    const std::vector<int>& order() const { return order_; }

  private:
    std::vector<GridColumn> columns_;
    std::vector<int> order_;
};

}  // namespace pellmark
