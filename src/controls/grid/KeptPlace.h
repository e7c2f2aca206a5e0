#pragma once

#include <string>
#include <vector>

#include "controls/grid/Grid.h"

namespace pellmark {

/// Where a person is in a grid, by the ids of the rows: kept while the rows are listed anew. The grid must
/// outlive it.
class KeptPlace {
  public:
    explicit KeptPlace(Grid& grid);

    /// The id of the row that was current; "" for none.
    const std::string& currentId() const { return currentId_; }
    /// Selects what was selected and is still listed. Where none of it is, the selection stays as it is.
    void restoreSelection();
    /// Brings the list back to the row that stood at the upper edge, where it is still listed.
    void restoreScroll();

  private:
    /// Beyond that a person has selected without looking at each, and the current row alone is kept.
    static constexpr int kMostRows = 10'000;

    Grid& grid_;
    std::string currentId_;
    int col_;
    std::string topId_;
    std::vector<std::string> selectedIds_;
};

}  // namespace pellmark
