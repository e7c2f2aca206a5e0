#include "win32/TableSelection.h"

namespace pellmark {

namespace {
constexpr int kAllRows = -1;
}

void TableSelection::setState(int row, UINT state, UINT mask) const {
    LVITEMW item{};
    item.state = state;
    item.stateMask = mask;
    ::SendMessageW(list_, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

void TableSelection::show() {
    const Showing quiet(*this);
    const int selected = table_.selectedCount();
    const bool all = selected > 0 && selected == table_.rows();
    setState(kAllRows, all ? LVIS_SELECTED : 0U, LVIS_SELECTED);
    if (!all && selected > 0) {
        table_.eachSelected([this](int row) { setState(row, LVIS_SELECTED, LVIS_SELECTED); });
    }
}

void TableSelection::showCurrent() {
    const Showing quiet(*this);
    const int current = table_.current();
    const auto shown =
        static_cast<int>(::SendMessageW(list_, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED));
    if (current == shown) return;
    if (current >= 0) {
        setState(current, LVIS_FOCUSED, LVIS_FOCUSED);
        ::SendMessageW(list_, LVM_SETSELECTIONMARK, 0, current);
    } else if (shown >= 0) {
        setState(shown, 0, LVIS_FOCUSED);
    }
}

void TableSelection::itemChanged(const NMLISTVIEW& change) {
    if (isShowing() || (change.uChanged & LVIF_STATE) == 0) return;
    const bool isSelected = (change.uNewState & LVIS_SELECTED) != 0;
    const bool wasSelected = (change.uOldState & LVIS_SELECTED) != 0;
    if (change.iItem < 0) {
        if (isSelected) {
            table_.selectAll();
        } else if (wasSelected || change.uOldState == change.uNewState) {
            table_.clearSelection();
        }
        return;
    }
    if (isSelected != wasSelected) table_.setSelected(change.iItem, isSelected);
    const bool isFocused = (change.uNewState & LVIS_FOCUSED) != 0;
    const bool wasFocused = (change.uOldState & LVIS_FOCUSED) != 0;
    if (isFocused && !wasFocused) table_.setCurrent(change.iItem);
}

void TableSelection::rangeChanged(const NMLVODSTATECHANGE& change) {
    if (isShowing()) return;
    const bool isSelected = (change.uNewState & LVIS_SELECTED) != 0;
    const bool wasSelected = (change.uOldState & LVIS_SELECTED) != 0;
    if (isSelected == wasSelected) return;
    for (int row = change.iFrom; row <= change.iTo; ++row)
        table_.setSelected(row, isSelected);
}

}  // namespace pellmark
