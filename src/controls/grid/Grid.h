#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Font.h"
#include "controls/Control.h"
#include "controls/KeyPress.h"
#include "controls/grid/CellStyles.h"
#include "controls/grid/DisplayList.h"
#include "controls/grid/GridCells.h"
#include "controls/grid/GridChange.h"
#include "controls/grid/GridColumns.h"
#include "controls/grid/GridRows.h"
#include "controls/grid/GridSelection.h"
#include "knowledge/RecordSet.h"

namespace pellmark {

/// What a grid offers to a drag out of it; the peer hands it to the system after the event.
struct DragData {
    std::string text;
    std::vector<std::string> files;
    bool copyOnly = false;

    void clear() { *this = {}; }
};

enum class MouseButton { Left = 1, Right = 2, Middle = 4 };

/// Where and with what the mouse went down. Row and column are -1 outside all cells.
struct MousePress {
    MouseButton button = MouseButton::Left;
    int row = -1;
    int col = -1;
    Point at;  ///< in twips, relative to the grid
};

/// Starting or applying an in-place edit; a handler vetoes by setting cancel.
struct CellEdit {
    int row = 0;
    int col = 0;
    std::string text;  ///< the stored value before the edit, or the one about to be applied
    bool cancel = false;
};

/// A virtual table. Rows and columns count from 0; the first fixedRows() rows are headings, the rest data
/// rows. Cells come from a bound record set, read only for what is shown or asked for, under whatever was
/// written over them. Nothing here costs per row of the record set except ids once they are asked for.
///
/// Every data row has a stable slot behind it, so that removing rows never moves what belongs to the others.
class Grid : public Control {
  public:
    Grid(Container& parent, std::string name);
    ~Grid() override;

    // --- shape -------------------------------------------------------------------------------------------
    int rows() const { return rows_.count(); }
    int fixedRows() const { return rows_.fixed(); }
    int dataRows() const { return rows() - fixedRows(); }
    bool hasData() const { return dataRows() > 0; }
    /// Grows with empty data rows or cuts data rows off the end. Never below fixedRows.
    void setRows(int rows);
    int cols() const { return columns_.count(); }
    void setCols(int cols);
    int fixedCols() const { return fixedCols_; }
    void setFixedCols(int cols);
    /// "Id|Name|Unit": sets the number of columns and their headings.
    void setHeadings(const std::string& headings);

    // --- columns -----------------------------------------------------------------------------------------
    const std::string& colKey(int col) const { return columns_.at(col).key; }
    void setColKey(int col, const std::string& key);
    /// The column with that key, case ignored; -1 when there is none.
    int colIndex(std::string_view key) const { return columns_.indexOf(key); }
    const std::string& heading(int col) const { return columns_.at(col).heading; }
    Twips colWidth(int col) const { return columns_.at(col).width; }
    void setColWidth(int col, Twips width);
    /// True once a person has chosen widths, now or in a layout that has been restored. Until then the window
    /// may draw the last column as far as there is room, whatever its width.
    bool widthsChosen() const { return widthsChosen_; }
    void setWidthsChosen(bool chosen);
    bool colHidden(int col) const { return columns_.at(col).hidden; }
    void setColHidden(int col, bool hidden);
    /// Where the column stands on the screen, from 0.
    int colPosition(int col) const { return columns_.positionOf(col); }
    void setColPosition(int col, int position);
    /// Puts several columns, each given once, at their positions; the others fill what is left in their
    /// order.
    struct ColPosition {
        int col;
        int position;
    };
    void setColPositions(std::vector<ColPosition> wanted);
    /// Columns in the order of the screen, hidden ones included.
    const std::vector<int>& displayOrder() const { return columns_.order(); }
    /// "#70;Inch|#71;Metric" pairs stored values with shown texts; "a|b" offers plain texts.
    const DisplayList& colComboList(int col) const { return columns_.at(col).list; }
    void setColComboList(int col, const std::string& list);
    bool colEditable(int col) const { return columns_.at(col).editable; }
    void setColEditable(int col, bool editable);
    /// A list of choices for one row in place of its column's; empty text returns to the column's.
    void setRowComboList(int row, int col, const std::string& list);
    const DisplayList& comboList(int row, int col) const;
    /// An arrow in a heading. The rows themselves come in the order of what is bound.
    const SortMark& sortMark() const { return sortMark_; }
    void setSortMark(const SortMark& mark);

    // --- data --------------------------------------------------------------------------------------------
    /// Shows a record set: one data row per record, columns bound to the fields of the same key. Forgets
    /// rows, written cells, row data, styles and selection; keeps columns. Null empties the grid.
    void bind(std::shared_ptr<RecordSet> records);
    const std::shared_ptr<RecordSet>& dataSource() const { return cells_.records(); }
    /// The stored value as text ("71"); headings for fixed rows. Outside the table: "".
    std::string text(int row, int col) const;
    std::string text(int row, std::string_view key) const { return text(row, colIndex(key)); }
    /// What the screen shows ("Metric").
    std::string displayText(int row, int col) const;
    /// Appends the same to a text; where many cells are read in turn, this spares a string for each.
    void appendDisplayText(int row, int col, std::string& out) const;
    /// Writes over one cell; the record set is never changed.
    void setText(int row, int col, std::string value);
    void setText(int row, std::string_view key, std::string value) {
        setText(row, colIndex(key), std::move(value));
    }
    /// The hidden text that identifies a row's record; "" when none.
    std::string rowData(int row) const;
    void setRowData(int row, const std::string& data);
    /// Copies a column into every data row's row data, in one block where the column holds GUIDs.
    void setRowDataFromColumn(int col);
    /// The first data row with that row data, case ignored; -1 when there is none.
    int findRow(std::string_view rowData) const;
    int findRow(const Guid& rowData) const;
    int addRow();
    void removeRow(int row);

    // --- appearance --------------------------------------------------------------------------------------
    /// What cells and headings are written in. A name or size left open is that of the form.
    const Font& font() const { return font_; }
    void setFont(const Font& font);
    CellStyle style(int row, int col) const;
    void setForeColor(int row, int col, Color color);
    void setBackColor(int row, int col, Color color);
    void setItalic(int row, int col, bool italic);
    /// A picture by its number in the peer's image list; -1 for none.
    void setPicture(int row, int col, int picture);
    /// What the look of a cell means, in the person's language.
    void setNote(int row, int col, const std::string& note);
    /// The notes of a row's cells, one after the other; "" when it has none.
    std::string notes(int row) const;
    /// The text colour of every data cell of a column, whatever colour and note were set before; the rest of
    /// their looks stays. Rows of which none was given a look of its own cost nothing.
    void setColumnForeColor(int col, Color color);
    /// The grid whose selection is drawn in the system highlight colour; the other gets a paler one.
    bool activeLook() const { return activeLook_; }
    void setActiveLook(bool active);

    // --- current cell and selection ----------------------------------------------------------------------
    /// Current row, a data row, or -1 when there is none.
    int row() const { return selection_.current(); }
    int col() const { return col_; }
    /// Makes the cell current and its row the only selected one. A row outside the data means none.
    void select(int row, int col);
    /// Moves the current cell and leaves the selection.
    void setCurrent(int row, int col);
    void showCell(int row, int col);
    /// The row at the upper edge of the window; the first data row where there is no window.
    int topRow();
    /// Scrolls so that this row stands at the upper edge, as far as there are rows behind it.
    void setTopRow(int row);
    int selectedRows() const { return selection_.count(); }
    /// The i-th selected row, in the order in which the rows were selected; -1 when out of range.
    int selectedRow(int i) const { return selection_.at(i); }
    bool isSelected(int row) const { return selection_.contains(row); }
    void setSelected(int row, bool selected) { setSelected(row, row, selected); }
    /// The same for all rows from one to another, in any order; costs nothing per row. Rows outside the data
    /// are left out.
    void setSelected(int row1, int row2, bool selected);
    /// Selects these rows and no others; those that were selected keep their place in the order.
    void selectOnly(int row1, int row2);
    void selectAll();
    /// The first and last row of each run of selected rows, from the top. Where rows between two have been
    /// removed, neighbours may be runs of their own.
    void eachSelectedRun(const std::function<void(int first, int last)>& visit) const {
        selection_.eachRun(visit);
    }
    /// Selects the rows of a block and nothing else; (row1, col1) becomes current.
    void selectBlock(int row1, int col1, int row2, int col2);
    void clearSelection();

    // --- in-place editing: begin, veto, apply ------------------------------------------------------------
    /// False when the cell cannot be edited, a handler refuses, or the cell is another one once the handlers
    /// have been asked; changes nothing yet.
    bool beginEdit(int row, int col);
    bool isEditing() const { return editing_.has_value(); }
    const std::optional<CellEdit>& editing() const { return editing_; }
    /// Offers the new stored value to the handlers and applies it unless one refuses, in which case the edit
    /// goes on and false comes back. False, too, when the rows have changed meanwhile: the edit has ended
    /// then.
    bool commitEdit(const std::string& value);
    void cancelEdit();

    // --- redrawing ---------------------------------------------------------------------------------------
    /// While one of these lives the peer hears nothing; then it hears once. What changes meanwhile is one
    /// event to a person: rowChanged is raised once, and only when another row or another record is current.
    class [[nodiscard]] RedrawOff {
      public:
        explicit RedrawOff(Grid& grid) : grid_(grid) { grid_.redrawOff(); }
        ~RedrawOff() { grid_.redrawOn(); }
        RedrawOff(const RedrawOff&) = delete;
        RedrawOff& operator=(const RedrawOff&) = delete;

      private:
        Grid& grid_;
    };
    /// Asks the peer to paint now what it would paint soon: the first rows before the ids are read.
    void paintNow() { paintRequested.raise(); }

    // --- events ------------------------------------------------------------------------------------------
    Event<const GridChange&> gridChanged;  ///< for the peer
    Event<> paintRequested;                ///< for the peer
    Event<int&> topRowAsked;               ///< for the peer
    Event<> rowChanged;                    ///< the current row became another one; see RedrawOff
    Event<int> doubleClicked;              ///< the row under the mouse, -1 outside the rows, 0 on headings
    Event<KeyPress&> keyPressed;
    Event<const MousePress&> mousePressed;
    Event<int> colResized;      ///< by a person
    Event<int> colMoved;        ///< by a person
    Event<int> headingClicked;  ///< the column whose heading a person clicked
    Event<DragData&> dragStarted;
    Event<CellEdit&> beforeEdit;
    Event<CellEdit&> validateEdit;
    Event<int, int> afterEdit;
    Event<> contextMenuRequested;  ///< by the keyboard: Menu key or Shift+F10

    // --- what a person does, called by the peer ----------------------------------------------------------
    void userResizedColumn(int col, Twips width);
    void userMovedColumn(int col, int position);
    /// A column that is drawn wider than its width gets that width, now that the person arranges the columns:
    /// what is kept is what is seen. The window, which shows it so already, is told of nothing.
    void userTookWidth(int col, Twips width);

  private:
    void setStyle(int row, int col, const std::function<void(CellStyle&)>& change);
    /// Sets what a change of it makes the peer show anew.
    template <typename T>
    void change(T& property, const T& value, GridChange::What what);
    void notify(GridChange change);
    void redrawOff();
    void redrawOn();
    /// Another row is current.
    void currentMoved();

    GridColumns columns_;
    int fixedCols_ = 0;
    GridRows rows_;
    GridCells cells_;
    CellStyles styles_;
    GridSelection selection_{rows_};
    int col_ = 0;
    std::optional<CellEdit> editing_;
    bool activeLook_ = true;
    HeldChanges held_;
    SortMark sortMark_;
    bool widthsChosen_ = false;
    Font font_;
    struct Current {
        int row = -1;
        std::string data;
        bool operator==(const Current&) const = default;
    };
    Current currentBefore_;  ///< redrawing was turned off
};

}  // namespace pellmark
