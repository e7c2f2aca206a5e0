#pragma once

#include <functional>

#include "controls/grid/RowSelection.h"
#include "win32/WindowsApi.h"
#include "win32/table/ShownTable.h"

namespace pellmark {

/// Keeps the selection and the current row of a list window and of its model alike, both ways. Nothing here
/// is done per row that a person's move passes over, and the window is kept from doing it where that is
/// possible: to deselect, some versions of the control walk all of its rows.
class TableSelection {
  public:
    TableSelection(HWND list, ShownTable& table) : list_(list), table_(table) {}

    /// Shows what the model has; the window's notifications about it are not taken for a person's.
    void show();
    /// The same for one row: code that selects row by row must not pay for all of them each time.
    void showRow(int row);
    void showCurrent();
    /// The window has another number of rows.
    void countChanged();
    bool isShowing() const { return showing_ > 0; }
    /// How many rows the window shows as selected.
    std::size_t shownCount() const { return shown_.count(); }

    /// A person's doing, as the window reports it. The current row comes last: it may end everything.
    void itemChanged(const NMLISTVIEW& change);
    void rangeChanged(const NMLVODSTATECHANGE& change);

    /// Held around whatever changes the window on the model's behalf.
    class [[nodiscard]] Showing {
      public:
        explicit Showing(TableSelection& selection) : selection_(selection) { ++selection_.showing_; }
        ~Showing() { --selection_.showing_; }
        Showing(const Showing&) = delete;
        Showing& operator=(const Showing&) = delete;

      private:
        TableSelection& selection_;
    };

    using Perform = std::function<LRESULT()>;
    /// Lets the window perform a key or a click that selects one row and no other. What was selected is taken
    /// back before, so that the window finds nothing to deselect; where it then selects nothing, a person's
    /// move having led nowhere, the model's selection is shown again.
    LRESULT moveToOneRow(const Perform& perform);
    /// Lets the window perform a key or a click that selects everything between the mark and the row that it
    /// leads to. The window tells of each row that it deselects; the model takes the result at once. Where
    /// the way `isLong`, rows are not drawn one by one.
    LRESULT moveToRange(bool isLong, const Perform& perform);

    /// Selects everything between the mark and the row so many further down than the current one, and makes
    /// that current. Done here: for one row more or less, the window itself walks all of them. False, with
    /// nothing done, where there is no row to set out from.
    bool extendBy(int rows);

  private:
    void setState(int row, UINT state, UINT mask) const;
    void setStates(const RowSelection& rows, UINT state) const;
    void takeRange();
    void takeAll();
    int mark() const;
    void makeTableCurrent();

    HWND list_;
    ShownTable& table_;
    int showing_ = 0;
    RowSelection shown_;    ///< what the window shows as selected; asking it walks all rows
    bool cleared_ = false;  ///< the window's selection was taken back ahead of a move, the model's was not
    int focused_ = -1;
};

}  // namespace pellmark
