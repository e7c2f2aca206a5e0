#pragma once

#include <vector>

#include "controls/grid/Grid.h"
#include "settings/cRegDefaults.h"

namespace pellmark {

/// Keeps the layout of one grid: what a person does to its columns is stored at once, and restored whenever
/// the grid has been laid out or filled anew. Both must outlive this object.
class GridLayout {
  public:
    GridLayout(Grid& grid, cRegDefaults& layouts);

    void restore() { layouts_.RestoreVSDataGrid(grid_); }

  private:
    Grid& grid_;
    cRegDefaults& layouts_;
    std::vector<Subscription> subscriptions_;
};

}  // namespace pellmark
