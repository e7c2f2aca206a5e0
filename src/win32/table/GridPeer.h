#pragma once

#include <memory>

#include "controls/grid/Grid.h"
#include "win32/table/GridEditor.h"
#include "win32/table/GridTable.h"
#include "win32/table/RowDescription.h"
#include "win32/table/TablePeer.h"

namespace pellmark {

/// A grid's window.
class GridPeer : public TablePeer {
  public:
    GridPeer(FormWindow& form, Grid& grid, HWND parent);
    ~GridPeer() override;

    void detach() override;
    void rescale() override;
    std::optional<LRESULT> notified(NMHDR& header) override;

  protected:
    void cellDoubleClicked(Cell cell) override;
    void headingDoubleClicked(int column) override;
    void headingClicked(int column) override;
    void headingPressed(int column, MouseButton button, POINT at) override;
    std::optional<LRESULT> message(UINT message, WPARAM wParam, LPARAM lParam) override;
    std::optional<LRESULT> innerMessage(HWND inner, UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    Grid* grid() const { return static_cast<Grid*>(control()); }
    GridTable& gridTable() const { return static_cast<GridTable&>(table()); }
    void modelChanged(const GridChange& change);
    bool keyDown(int keyCode);
    void pressed(MouseButton button, POINT at);
    void takeCell(Cell cell, bool onlySelected);
    bool isEditable(Cell cell) const;
    void edit(Cell cell);
    /// The person has ended the box over a cell.
    void endEdit(Cell cell, GridEditor::End how);
    /// Goes on in the nearest cell of the row that can be edited, in the direction of `step`, if there is
    /// one.
    void editBeside(Cell cell, int step);
    /// The cell that is being edited may have moved.
    void fitEditor();
    /// False when the current row has nothing to edit.
    bool editByKeyboard();
    void dragOut();
    void describeCurrent();

    Subscription gridChanged_;
    Subscription paintRequested_;
    Subscription topRowAsked_;
    std::optional<RowDescription> description_;
    std::unique_ptr<GridEditor> editor_;
    bool ending_ = false;   ///< the value of the editor is being offered
    bool dragged_ = false;  ///< since the button went down last: no click on a cell then
};

}  // namespace pellmark
