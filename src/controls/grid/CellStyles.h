#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "base/Geometry.h"

namespace pellmark {

/// How one cell looks; what is not set follows the grid.
struct CellStyle {
    std::optional<Color> fore;
    std::optional<Color> back;
    bool italic = false;
    int picture = -1;
    std::string note;  ///< what the look means, for whoever does not know or see it; "" for nothing

    bool operator==(const CellStyle&) const = default;
    bool hasPicture() const { return picture >= 0; }
};

/// The styles of a grid's cells by slot and column. The few different styles of a grid stand in a palette;
/// a column that has a styled cell holds two bytes per row up to the last one, other columns nothing.
class CellStyles {
  public:
    CellStyles();
    const CellStyle& at(std::size_t slot, int col) const;
    void set(std::size_t slot, int col, const CellStyle& style);
    /// The same change to the style of every cell of the column.
    void changeColumn(int col, const std::function<void(CellStyle&)>& change);
    void clear();

  private:
    using Index = std::uint16_t;
    struct Column {
        Index base = 0;  ///< of slots that `cells` does not reach
        std::vector<Index> cells;
    };
    Index indexOf(const CellStyle& style);

    std::vector<CellStyle> palette_;
    Index last_ = 0;  ///< found last: runs of the same style are the rule
    std::unordered_map<int, Column> columns_;
};

}  // namespace pellmark
