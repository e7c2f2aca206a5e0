#include "win32/table/TableSelection.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <utility>

#include "win32/table/LongMove.h"

namespace pellmark {

namespace {

constexpr int kAllRows = -1;
/// From so many rows on it is cheaper to draw the list once than each row.
constexpr std::size_t kMany = 32;

/// What stands in `from` and not in `other`.
RowSelection difference(RowSelection from, const RowSelection& other) {
    other.eachRun([&](std::size_t first, std::size_t last) { from.removeRange(first, last); });
    return from;
}

}  // namespace

void TableSelection::setState(int row, UINT state, UINT mask) const {
    LVITEMW item{};
    item.state = state;
    item.stateMask = mask;
    ::SendMessageW(list_, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

void TableSelection::setStates(const RowSelection& rows, UINT state) const {
    rows.eachRun([&](std::size_t first, std::size_t last) {
        for (std::size_t row = first; row <= last; ++row)
            setState(static_cast<int>(row), state, LVIS_SELECTED);
    });
}

// --- model to window --------------------------------------------------------------------------------------

void TableSelection::show() {
    const Showing quiet(*this);
    cleared_ = false;
    RowSelection wanted;
    table_.eachSelected([&](int first, int last) {
        wanted.addRange(static_cast<std::size_t>(first), static_cast<std::size_t>(last));
    });
    const auto rows = static_cast<std::size_t>(table_.rows());
    RowSelection stale = difference(shown_, wanted);
    RowSelection fresh = difference(wanted, shown_);
    std::optional<LongMove> together;
    if (stale.count() + fresh.count() > kMany) together.emplace(list_);
    if (fresh.count() > kMany && wanted.count() == rows) {
        setState(kAllRows, LVIS_SELECTED, LVIS_SELECTED);
        fresh.clear();
    } else if (stale.count() > rows / 2) {
        setState(kAllRows, 0, LVIS_SELECTED);
        stale.clear();
        fresh = wanted;
    }
    setStates(stale, 0);
    setStates(fresh, LVIS_SELECTED);
    shown_ = std::move(wanted);
}

void TableSelection::showRow(int row) {
    const Showing quiet(*this);
    const bool selected = table_.isSelected(row);
    const auto place = static_cast<std::size_t>(row);
    setState(row, selected ? LVIS_SELECTED : 0U, LVIS_SELECTED);
    if (selected) {
        shown_.add(place);
    } else {
        shown_.remove(place);
    }
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
    const int rows = table_.rows();
    if (focused_ >= rows) focused_ = -1;
    shown_.removeRange(static_cast<std::size_t>(rows), SIZE_MAX);
}

// --- window to model --------------------------------------------------------------------------------------

void TableSelection::itemChanged(const NMLISTVIEW& change) {
    if ((change.uChanged & LVIF_STATE) == 0) return;
    const bool isSelected = (change.uNewState & LVIS_SELECTED) != 0;
    const bool wasSelected = (change.uOldState & LVIS_SELECTED) != 0;
    const bool isFocused = (change.uNewState & LVIS_FOCUSED) != 0;
    const bool wasFocused = (change.uOldState & LVIS_FOCUSED) != 0;
    if (change.iItem >= 0 && isFocused) focused_ = change.iItem;
    if (isShowing()) return;
    if (change.iItem < 0) {
        shown_.clear();
        if (isSelected) {
            if (table_.rows() > 0) shown_.addRange(0, static_cast<std::size_t>(table_.rows() - 1));
            table_.selectAll();
        } else {
            table_.clearSelection();
        }
        return;
    }
    if (isSelected != wasSelected) {
        const auto row = static_cast<std::size_t>(change.iItem);
        if (std::exchange(cleared_, false)) table_.selectOnly(change.iItem, change.iItem);
        if (isSelected) {
            shown_.add(row);
        } else {
            shown_.remove(row);
        }
        table_.setSelected(change.iItem, change.iItem, isSelected);
    }
    if (isFocused && !wasFocused) table_.setCurrent(change.iItem);
}

void TableSelection::rangeChanged(const NMLVODSTATECHANGE& change) {
    if (isShowing()) return;
    const bool isSelected = (change.uNewState & LVIS_SELECTED) != 0;
    const bool wasSelected = (change.uOldState & LVIS_SELECTED) != 0;
    if (isSelected == wasSelected || change.iFrom < 0 || change.iTo < change.iFrom) return;
    const auto first = static_cast<std::size_t>(change.iFrom);
    const auto last = static_cast<std::size_t>(change.iTo);
    if (isSelected) {
        shown_.addRange(first, last);
    } else {
        shown_.removeRange(first, last);
    }
    table_.setSelected(change.iFrom, change.iTo, isSelected);
}

LRESULT TableSelection::moveToOneRow(const Perform& perform) {
    if (shown_.count() > kMany) {
        const LongMove together(list_);  // the window deselects them, drawing none
        return perform();
    }
    if (shown_.count() > 0) {
        const Showing quiet(*this);
        setStates(shown_, 0);
        shown_.clear();
        cleared_ = true;
    }
    const LRESULT result = perform();
    if (cleared_) show();
    return result;
}

LRESULT TableSelection::moveToRange(bool isLong, const Perform& perform) {
    LRESULT result = 0;
    {
        std::optional<LongMove> together;
        if (isLong || shown_.count() > kMany) together.emplace(list_);
        const Showing quiet(*this);
        result = perform();
        takeRange();
    }
    makeTableCurrent();
    return result;
}

bool TableSelection::extendBy(int rows) {
    const int from = mark();
    if (from < 0 || from >= table_.rows() || focused_ < 0 || cleared_) return false;
    const int to = std::clamp(focused_ + rows, 0, table_.rows() - 1);
    {
        const Showing quiet(*this);
        const int first = std::min(from, to);
        const int last = std::max(from, to);
        RowSelection wanted;
        wanted.addRange(static_cast<std::size_t>(first), static_cast<std::size_t>(last));
        const RowSelection stale = difference(shown_, wanted);
        const RowSelection fresh = difference(wanted, shown_);
        if (stale.count() + fresh.count() > kMany) return false;
        setStates(stale, 0);
        setStates(fresh, LVIS_SELECTED);
        shown_ = std::move(wanted);
        setState(to, LVIS_FOCUSED, LVIS_FOCUSED);
        focused_ = to;
        ::SendMessageW(list_, LVM_ENSUREVISIBLE, static_cast<WPARAM>(to), FALSE);
        table_.selectOnly(first, last);
    }
    makeTableCurrent();
    return true;
}

/// The last thing of a move, as it may end everything.
void TableSelection::makeTableCurrent() {
    if (focused_ >= 0 && focused_ != table_.current()) table_.setCurrent(focused_);
}

int TableSelection::mark() const {
    return static_cast<int>(::SendMessageW(list_, LVM_GETSELECTIONMARK, 0, 0));
}

void TableSelection::takeRange() {
    const int from = mark();
    const auto count = static_cast<int>(::SendMessageW(list_, LVM_GETSELECTEDCOUNT, 0, 0));
    if (from < 0 || focused_ < 0 || count != std::abs(from - focused_) + 1) {
        takeAll();
        return;
    }
    const int first = std::min(from, focused_);
    const int last = std::max(from, focused_);
    shown_.clear();
    shown_.addRange(static_cast<std::size_t>(first), static_cast<std::size_t>(last));
    table_.selectOnly(first, last);
}

/// The window has something else selected than a range: it is asked row by row.
void TableSelection::takeAll() {
    RowSelection selected;
    int row = -1;
    const auto next = [&] {
        return static_cast<int>(
            ::SendMessageW(list_, LVM_GETNEXTITEM, static_cast<WPARAM>(row), LVNI_SELECTED));
    };
    while ((row = next()) >= 0)
        selected.add(static_cast<std::size_t>(row));
    const auto set = [this](const RowSelection& rows, bool state) {
        rows.eachRun([&](std::size_t first, std::size_t last) {
            table_.setSelected(static_cast<int>(first), static_cast<int>(last), state);
        });
    };
    set(difference(shown_, selected), false);
    set(difference(selected, shown_), true);
    shown_ = std::move(selected);
}

}  // namespace pellmark
