#include "win32/table/TableSelection.h"

namespace pellmark {

namespace {
constexpr int kAllRows = -1;
constexpr std::size_t kMany = 2000;
}  // namespace

void TableSelection::setState(int row, UINT state, UINT mask) const {
    LVITEMW item{};
    item.state = state;
    item.stateMask = mask;
    ::SendMessageW(list_, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

void TableSelection::noteShown(int row) {
    if (shown_.size() >= kMany) manyShown_ = true;
    if (!manyShown_) shown_.push_back(row);
}

void TableSelection::deselectShown() {
    if (manyShown_) {
        setState(kAllRows, 0, LVIS_SELECTED);
    } else {
        for (const int row : shown_)
            setState(row, 0, LVIS_SELECTED);
    }
    shown_.clear();
    manyShown_ = false;
}

void TableSelection::show() {
    const Showing quiet(*this);
    deselectShown();
    const int selected = table_.selectedCount();
    if (selected > 1 && selected == table_.rows()) {
        setState(kAllRows, LVIS_SELECTED, LVIS_SELECTED);
        manyShown_ = true;
    } else if (selected > 0) {
        table_.eachSelected([this](int row) {
            setState(row, LVIS_SELECTED, LVIS_SELECTED);
            noteShown(row);
        });
    }
}

void TableSelection::showRow(int row) {
    const Showing quiet(*this);
    const bool selected = table_.isSelected(row);
    setState(row, selected ? LVIS_SELECTED : 0U, LVIS_SELECTED);
    if (selected) noteShown(row);
}

void TableSelection::showCurrent() {
    const Showing quiet(*this);
    const int current = table_.current();
    if (current == focused_) return;
    if (current >= 0) {
        setState(current, LVIS_FOCUSED, LVIS_FOCUSED);
        ::SendMessageW(list_, LVM_SETSELECTIONMARK, 0, current);
    } else {
        setState(focused_, 0, LVIS_FOCUSED);
    }
    focused_ = current;
}

void TableSelection::countChanged() {
    // The window forgets what stood behind its end.
    if (focused_ >= table_.rows()) focused_ = -1;
}

void TableSelection::itemChanged(const NMLISTVIEW& change) {
    if ((change.uChanged & LVIF_STATE) == 0) return;
    const bool isSelected = (change.uNewState & LVIS_SELECTED) != 0;
    const bool wasSelected = (change.uOldState & LVIS_SELECTED) != 0;
    const bool isFocused = (change.uNewState & LVIS_FOCUSED) != 0;
    const bool wasFocused = (change.uOldState & LVIS_FOCUSED) != 0;
    if (change.iItem >= 0 && isFocused) focused_ = change.iItem;
    if (isShowing()) return;
    if (change.iItem < 0) {
        manyShown_ = isSelected;
        if (isSelected) {
            table_.selectAll();
        } else {
            shown_.clear();
            table_.clearSelection();
        }
        return;
    }
    if (isSelected != wasSelected) {
        if (isSelected) noteShown(change.iItem);
        table_.setSelected(change.iItem, isSelected);
    }
    if (isFocused && !wasFocused) table_.setCurrent(change.iItem);
}

void TableSelection::rangeChanged(const NMLVODSTATECHANGE& change) {
    if (isShowing()) return;
    const bool isSelected = (change.uNewState & LVIS_SELECTED) != 0;
    const bool wasSelected = (change.uOldState & LVIS_SELECTED) != 0;
    if (isSelected == wasSelected) return;
    for (int row = change.iFrom; row <= change.iTo; ++row) {
        if (isSelected) noteShown(row);
        table_.setSelected(row, isSelected);
    }
}

}  // namespace pellmark
