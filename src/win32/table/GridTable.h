#pragma once

#include <vector>

#include "base/Trace.h"
#include "controls/grid/Grid.h"
#include "win32/table/ShownTable.h"

namespace pellmark {

/// A grid's data rows and its columns that are not hidden. Row 0 here is the first row below the headings. A
/// row whose texts cannot be read is shown empty and not asked for again, which would be done at every
/// painting, until the grid has other rows; the first failure is traced.
class GridTable : public ShownTable {
  public:
    GridTable(Grid& grid, Trace& trace) : grid_(&grid), trace_(trace) { takeColumns(); }

    /// Forgets the grid.
    void detach() { grid_ = nullptr; }
    /// Looks anew which columns are shown in what order.
    void takeColumns();
    /// Rows that could not be read are asked for again.
    void takeRows() { unreadable_.clear(); }
    /// The grid's column behind a shown one; -1 when there is none.
    int colOf(int column) const;
    /// The shown column of a grid's column, -1 while that is hidden.
    int columnOf(int col) const;
    int gridRow(int row) const { return row < 0 || grid_ == nullptr ? -1 : row + grid_->fixedRows(); }

    int columns() const override { return static_cast<int>(columns_.size()); }
    std::string heading(int column) const override;
    Twips width(int column) const override;
    int sorting(int column) const override;
    bool stretchesLast() const override { return grid_ != nullptr && !grid_->widthsChosen(); }
    void userTookWidth(int column, Twips width) override;
    void userResized(int column, Twips width) override;
    void userMoved(int from, int to) override;
    Font font() const override { return grid_ ? grid_->font() : Font{}; }
    int rows() const override { return grid_ ? grid_->dataRows() : 0; }
    std::string text(int row, int column) const override;
    CellStyle style(int row, int column) const override;
    bool activeLook() const override { return grid_ == nullptr || grid_->activeLook(); }
    int current() const override;
    void setCurrent(int row) override;
    int selectedCount() const override { return grid_ ? grid_->selectedRows() : 0; }
    void eachSelected(const std::function<void(int first, int last)>& visit) const override;
    bool isSelected(int row) const override { return grid_ && grid_->isSelected(gridRow(row)); }
    void setSelected(int first, int last, bool selected) override;
    void selectOnly(int first, int last) override;
    void clearSelection() override;
    void selectAll() override;

  private:
    Grid* grid_;
    Trace& trace_;
    std::vector<int> columns_;
    mutable RowSelection unreadable_;
};

}  // namespace pellmark
