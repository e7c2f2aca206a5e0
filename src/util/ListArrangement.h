#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "controls/FindLine.h"
#include "controls/grid/Grid.h"
#include "knowledge/RecordSet.h"
#include "knowledge/RowQuery.h"
#include "ports/FileSystem.h"
#include "util/UserInterface.h"

namespace pellmark {

/// What a person has asked of one list: which of its rows, by the line above it, and in which order, by its
/// headings. The owner of the list asks for the query, or has records arranged in memory, whenever it lists;
/// so what was asked outlasts every refresh.
class ListArrangement {
  public:
    /// Beyond so many rows only a store that sorts by itself can do it.
    static constexpr std::size_t kMostSortedHere = 100'000;

    /// Begins with a closed line and the list's own order. Grid and line must outlive it.
    ListArrangement(const UserInterface& person, Idle& idle, Grid& grid, FindLine& line);

    bool isPlain() const { return text_.empty() && sortKey_.empty(); }
    bool isNarrowed() const { return !text_.empty(); }
    /// For the columns that are shown now.
    RowQuery query() const;
    /// The records in memory as the person wants them. A long walk shows how far it is and lets the person go
    /// on typing, or leave it with Escape; what is wanted by then counts. Lists too long to be sorted here
    /// keep their own order, and the person is told.
    std::shared_ptr<RecordSet> arranged(std::shared_ptr<RecordSet> all);
    /// Shows how many of how many rows are found; `more` where the list ends early.
    void tellFound(std::size_t found, std::size_t all, bool more);

    /// Opens the line.
    void find();
    /// Closes the line: the whole list is shown again, its current row kept.
    void leave();
    /// The same within a command that lists anew by itself. True when the list was narrowed.
    bool drop();
    /// Ascending, descending, and back to the list's own order.
    void sortBy(int col);
    void sortAsListed();

    /// The row to make current where the present one is not known: the one before the line was opened.
    const std::string& rowBefore() const { return rowBefore_; }

    /// Other rows or another order are wanted: the owner lists anew.
    Event<> changed;

  private:
    void textTyped();
    void keyInLine(KeyPress& key);
    void keyInGrid(KeyPress& key);
    void sortByShownColumn(int number);
    void setSort(const std::string& key, bool descending);
    void ask();
    bool goOn(std::size_t done, std::size_t all);
    std::string shownText(const std::string& field, const std::string& stored) const;
    /// Gives the order up where the records are too many for it, and says so.
    void checkSortable(RecordSet& records);

    UserInterface person_;
    Idle& idle_;
    Grid& grid_;
    FindLine& line_;
    std::string text_;
    std::string sortKey_;  ///< the column's key, "" for the list's own order
    bool descending_ = false;
    std::string rowBefore_;
    bool walking_ = false;
    bool wantsOther_ = false;  ///< while walking: the person has asked for something else
    std::vector<Subscription> subscriptions_;
};

}  // namespace pellmark
