#include "util/ListArrangement.h"

#include <utility>

#include "base/CaseFolding.h"
#include "base/Text.h"
#include "knowledge/ArrangedRecords.h"
#include "knowledge/RowFinder.h"

namespace pellmark {

ListArrangement::ListArrangement(const UserInterface& person, Idle& idle, Grid& grid, FindLine& line)
    : person_(person), idle_(idle), grid_(grid), line_(line) {
    line_.close();
    grid_.setSortMark({});
    grid_.setTakesEscape(false);
    const auto on = [this](Subscription subscription) { subscriptions_.push_back(std::move(subscription)); };
    on(line.TxtFind.textChanged.subscribe([this] { textTyped(); }));
    on(line.TxtFind.keyPressed.subscribe([this](KeyPress& key) { keyInLine(key); }));
    on(line.CmdCloseFind.clicked.subscribe([this] { leave(); }));
    on(grid.keyPressed.subscribe([this](KeyPress& key) { keyInGrid(key); }));
    on(grid.headingClicked.subscribe([this](int col) { sortBy(col); }));
}

// --- what the person does ----------------------------------------------------------------------------------

void ListArrangement::keyInGrid(KeyPress& key) {
    const bool isDigit = key.control && key.shift && key.keyCode >= '0' && key.keyCode <= '9';
    const bool leaves = key.is(KeyPress::kEscape) && line_.isOpen();
    const bool finds = key.isWithControl('F');
    if (key.handled || !(isDigit || leaves || finds)) return;
    key.handled = true;
    if (finds) {
        find();
    } else if (leaves) {
        leave();
    } else if (key.keyCode == '0') {
        sortAsListed();
    } else {
        sortByShownColumn(key.keyCode - '0');
    }
}

void ListArrangement::keyInLine(KeyPress& key) {
    if (key.is(KeyPress::kEscape)) {
        key.handled = true;
        leave();
    } else if (key.is(KeyPress::kDown) || key.is(KeyPress::kUp) || key.is(KeyPress::kEnter)) {
        key.handled = true;
        grid_.setFocus();
    } else if (key.is(KeyPress::kF5)) {
        grid_.keyPressed.raise(key);
    }
}

void ListArrangement::find() {
    if (!line_.isOpen()) {
        rowBefore_ = grid_.rowData(grid_.row());
        line_.LblFind.setCaption(person_.texts.GetString("Find:"));
        line_.CmdCloseFind.setCaption(person_.texts.GetString("Close"));
        line_.LblFound.setCaption("");
        grid_.setTakesEscape(true);
    }
    line_.open();
}

bool ListArrangement::drop() {
    const bool wasNarrowed = !std::exchange(text_, std::string()).empty();
    line_.close();
    grid_.setTakesEscape(false);
    return wasNarrowed;
}

void ListArrangement::leave() {
    const bool wasNarrowed = drop();
    grid_.setFocus();
    if (wasNarrowed) ask();
}

void ListArrangement::textTyped() {
    if (text_ == line_.text()) return;
    text_ = line_.text();
    if (text_.empty()) line_.LblFound.setCaption("");
    ask();
}

void ListArrangement::sortBy(int col) {
    const std::string& key = grid_.colKey(col);
    const auto& records = grid_.dataSource();
    if (key.empty() || !records || !records->fieldIndex(key)) return;
    if (!equalNoCase(key, sortKey_)) {
        setSort(key, false);
    } else if (!descending_) {
        setSort(key, true);
    } else {
        setSort("", false);
    }
}

void ListArrangement::sortByShownColumn(int number) {
    for (const int col : grid_.displayOrder()) {
        if (grid_.colHidden(col) || --number > 0) continue;
        sortBy(col);
        return;
    }
}

void ListArrangement::sortAsListed() {
    if (!sortKey_.empty()) setSort("", false);
}

void ListArrangement::setSort(const std::string& key, bool descending) {
    sortKey_ = key;
    descending_ = descending;
    grid_.setSortMark({key.empty() ? -1 : grid_.colIndex(key), descending});
    ask();
}

void ListArrangement::ask() {
    if (walking_) {
        wantsOther_ = true;
        return;
    }
    trapCommand(person_.operations(), "ListArrangement::changed", [this] { changed.raise(); });
}

// --- what the owner of the list asks -----------------------------------------------------------------------

RowQuery ListArrangement::query() const {
    RowQuery query;
    query.text = text_;
    query.sortField = sortKey_;
    query.descending = descending_;
    if (text_.empty()) return query;
    FoldedNeedle needle(text_);
    for (int col = 0; col < grid_.cols(); ++col) {
        const std::string& key = grid_.colKey(col);
        if (key.empty() || grid_.colHidden(col)) continue;
        const DisplayList& list = grid_.colComboList(col);
        if (list.empty()) query.fields.push_back(key);
        for (const DisplayList::Item& item : list.items()) {
            if (needle.isIn(item.shown)) query.values.push_back({key, item.stored});
        }
    }
    return query;
}

std::string ListArrangement::shownText(const std::string& field, const std::string& stored) const {
    const int col = grid_.colIndex(field);
    return col < 0 || grid_.colComboList(col).empty() ? stored : grid_.colComboList(col).shownFor(stored);
}

bool ListArrangement::goOn(std::size_t done, std::size_t all) {
    line_.LblFound.setCaption(std::to_string(done * 100 / (all == 0 ? 1 : all)) + " %");
    idle_.yield();
    return !wantsOther_;
}

void ListArrangement::checkSortable(RecordSet& records) {
    if (sortKey_.empty() || records.count() <= kMostSortedHere) return;
    person_.show({person_.texts.GetString("The list is too long to be sorted by this program, and the "
                                          "knowledge base does not sort it."),
                  "", MessageIcon::Information});
    sortKey_.clear();
    grid_.setSortMark({});
}

std::shared_ptr<RecordSet> ListArrangement::arranged(std::shared_ptr<RecordSet> all) {
    if (isPlain() || !all) return all;
    checkSortable(*all);
    std::optional<std::vector<std::uint32_t>> places;
    while (!places && !isPlain()) {
        wantsOther_ = false;
        walking_ = true;
        try {
            places = RowFinder(
                         *all,
                         [this](const std::string& field, const std::string& stored) {
                             return shownText(field, stored);
                         },
                         [this](std::size_t done, std::size_t todo) { return goOn(done, todo); })
                         .find(query());
        } catch (...) {
            walking_ = false;
            throw;
        }
        walking_ = false;
    }
    if (!places) return all;
    tellFound(places->size(), all->count(), false);
    return std::make_shared<ArrangedRecords>(std::move(all), std::move(*places));
}

void ListArrangement::tellFound(std::size_t found, std::size_t all, bool more) {
    if (!isNarrowed()) return;
    line_.LblFound.setCaption(std::to_string(found) + (more ? "+ " : " ") + person_.texts.GetString("of") +
                              " " + std::to_string(all));
}

}  // namespace pellmark
