#pragma once

#include "controls/list/ListView.h"
#include "win32/table/ShownTable.h"

namespace pellmark {

/// A report list's items and columns.
class ListViewTable : public ShownTable {
  public:
    explicit ListViewTable(ListView& list) : list_(&list) {}

    /// Forgets the list.
    void detach() { list_ = nullptr; }

    int columns() const override { return list_ ? static_cast<int>(list_->columnHeaders().size()) : 0; }
    std::string heading(int column) const override;
    Twips width(int column) const override;
    bool stretchesLast() const override;
    void userTookWidth(int column, Twips width) override;
    void userResized(int column, Twips width) override;
    void userMoved(int, int) override {}  // a report list's columns stay where they are
    Font font() const override { return list_ ? list_->font() : Font{}; }
    int rows() const override { return list_ ? list_->count() : 0; }
    std::string text(int row, int column) const override {
        return list_ ? list_->text(row, column) : std::string();
    }
    CellStyle style(int, int) const override { return {}; }
    bool activeLook() const override { return true; }
    int current() const override { return list_ ? list_->current() : -1; }
    void setCurrent(int row) override;
    int selectedCount() const override { return list_ ? list_->selectedCount() : 0; }
    void eachSelected(const std::function<void(int first, int last)>& visit) const override;
    bool isSelected(int row) const override { return list_ && list_->isSelected(row); }
    void setSelected(int first, int last, bool selected) override;
    void selectOnly(int first, int last) override;
    void clearSelection() override;
    void selectAll() override;

  private:
    const ColumnHeader* header(int column) const;

    ListView* list_;
};

}  // namespace pellmark
