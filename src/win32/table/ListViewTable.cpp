#include "win32/table/ListViewTable.h"

namespace pellmark {

const ColumnHeader* ListViewTable::header(int column) const {
    return column >= 0 && column < columns() ? &list_->columnHeaders()[static_cast<std::size_t>(column)]
                                             : nullptr;
}

std::string ListViewTable::heading(int column) const {
    const ColumnHeader* shown = header(column);
    return shown != nullptr ? shown->text : std::string();
}

Twips ListViewTable::width(int column) const {
    const ColumnHeader* shown = header(column);
    return shown != nullptr ? shown->width : 0;
}

void ListViewTable::userResized(int column, Twips width) {
    if (list_ != nullptr) list_->userResizedColumn(column, width);
}

void ListViewTable::eachSelected(const std::function<void(int row)>& visit) const {
    for (int row = 0; row < rows(); ++row) {
        if (list_->isSelected(row)) visit(row);
    }
}

void ListViewTable::setCurrent(int row) {
    if (list_ != nullptr) list_->setCurrent(row);
}

void ListViewTable::setSelected(int row, bool selected) {
    if (list_ != nullptr) list_->setSelected(row, selected);
}

void ListViewTable::clearSelection() {
    if (list_ != nullptr) list_->clearSelection();
}

void ListViewTable::selectAll() {
    if (list_ != nullptr) list_->selectAll();
}

}  // namespace pellmark
