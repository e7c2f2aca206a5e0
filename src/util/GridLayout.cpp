#include "util/GridLayout.h"

namespace pellmark {

GridLayout::GridLayout(Grid& grid, cRegDefaults& layouts) : grid_(grid), layouts_(layouts) {
    for (Event<int>* arranged : {&grid.colResized, &grid.colMoved})
        subscriptions_.push_back(arranged->subscribe([this](int) { layouts_.SaveVSDataGrid(grid_); }));
}

}  // namespace pellmark
