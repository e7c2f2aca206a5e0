#pragma once

#include <vector>

#include "win32/WindowsApi.h"
#include "win32/table/ShownTable.h"

namespace pellmark {

/// Keeps the selection and the current row of a list window and of its model alike, both ways.
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

  private:
    void setState(int row, UINT state, UINT mask) const;
    void noteShown(int row);
    void deselectShown();

    HWND list_;
    ShownTable& table_;
    int showing_ = 0;
    /// Rows that the window may show as selected. Asking it, or telling it to deselect all, walks all rows
    /// in some versions of the control.
    std::vector<int> shown_;
    bool manyShown_ = false;
    int focused_ = -1;
};

}  // namespace pellmark
