#pragma once

#include <memory>
#include <optional>
#include <string>

#include "controls/grid/Grid.h"
#include "win32/Handles.h"
#include "win32/controls/ControlPeer.h"
#include "win32/table/ShownTable.h"
#include "win32/table/TableHeader.h"
#include "win32/table/TablePainter.h"
#include "win32/table/TableSelection.h"

namespace pellmark {

/// The system's list view in report form over rows that stay in the model: the window asks for what it
/// shows. Both the grid and the report list are such tables.
class TablePeer : public ControlPeer {
  public:
    void rescale() override;
    std::optional<LRESULT> notified(NMHDR& header) override;
    POINT keyboardMenuPoint() const override;

  protected:
    struct Cell {
        int row = -1;
        int column = -1;
        bool operator==(const Cell&) const = default;
    };

    TablePeer(FormWindow& form, Control& control, std::unique_ptr<ShownTable> table);
    void create(HWND parent, bool movableColumns);

    ShownTable& table() const { return *table_; }
    TableSelection& selection() { return *selection_; }
    TableHeader& header() { return *header_; }

    /// What everything in the window is written in.
    HFONT font() const;
    void showAll();
    void showFont();
    void showColumns();
    void showRows();
    void showRow(int row);
    void scrollTo(int row);
    /// Shows a cell, if need be by scrolling the window sideways as well, and the form around it.
    void scrollTo(Cell cell);
    int topRow() const;
    void scrollToTop(int row);
    /// The data cell under a point of the window; -1 beside all of them.
    Cell cellAt(POINT at) const;
    RECT cellRect(Cell cell) const;

    /// Lets the window perform a message by which a person moves the selection.
    LRESULT moveSelection(UINT message, WPARAM wParam, LPARAM lParam);

    // --- what a person does --------------------------------------------------------------------------------
    virtual void cellDoubleClicked(Cell /*cell*/) {}
    virtual void headingDoubleClicked(int /*column*/) {}
    virtual void headingClicked(int /*column*/) {}
    /// `at` is in pixels of the list window.
    virtual void headingPressed(int /*column*/, MouseButton /*button*/, POINT /*at*/) {}

    std::optional<LRESULT> message(UINT message, WPARAM wParam, LPARAM lParam) override;
    std::optional<LRESULT> innerMessage(HWND inner, UINT message, WPARAM wParam, LPARAM lParam) override;
    void controlChanged(ControlChange change) override;

  private:
    void fillItem(LVITEMW& item) const;
    void tipFor(POINT at);
    bool movesSelection(UINT message, WPARAM wParam) const;
    LRESULT clickRow(UINT message, WPARAM wParam, LPARAM lParam);
    void fitRows();
    void paint();

    std::unique_ptr<ShownTable> table_;
    std::optional<TableSelection> selection_;
    std::optional<TableHeader> header_;
    std::optional<TablePainter> painter_;
    FontHandle font_;  ///< of the table's own, none where it has the form's
    std::optional<Font> shownFont_;
    Cell tipCell_;
    bool pressedSelected_ =
        false;  ///< the button went down on a selected row: its release selects that alone
    Handle<HIMAGELIST, &::ImageList_Destroy> rowHeight_;
};

}  // namespace pellmark
