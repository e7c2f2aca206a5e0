#include "controls/grid/GridChange.h"

#include <utility>

namespace pellmark {

void HeldChanges::hold(const GridChange& change) {
    change_ = change_ ? GridChange{GridChange::What::All} : change;
    if (change.what == GridChange::What::Top) top_ = change;
    if (change.what == GridChange::What::Scroll) scroll_ = change;
}

std::vector<GridChange> HeldChanges::take() {
    std::vector<GridChange> changes;
    // Scrolling comes last: there must be rows to scroll to.
    for (std::optional<GridChange>* each : {&change_, &top_, &scroll_}) {
        if (const auto change = std::exchange(*each, std::nullopt)) changes.push_back(*change);
    }
    return changes;
}

}  // namespace pellmark
