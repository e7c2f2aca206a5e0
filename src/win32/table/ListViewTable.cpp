#include "win32/table/ListViewTable.h"

#include <algorithm>

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

bool ListViewTable::stretchesLast() const {
    return list_ != nullptr && std::ranges::none_of(list_->columnHeaders(), &ColumnHeader::widthChosen);
}

void ListViewTable::userTookWidth(int column, Twips width) {
    if (list_ != nullptr) list_->setColumnWidth(column, width);
}

void ListViewTable::userResized(int column, Twips width) {
    if (list_ != nullptr) list_->userResizedColumn(column, width);
}

void ListViewTable::eachSelected(const std::function<void(int first, int last)>& visit) const {
    int found = 0;
    for (int row = 0; found < selectedCount(); ++row) {
        if (!list_->isSelected(row)) continue;
        const int first = row;
        while (list_->isSelected(row + 1))
            ++row;
        found += row - first + 1;
        visit(first, row);
    }
}

void ListViewTable::setCurrent(int row) {
    if (list_ != nullptr) list_->setCurrent(row);
}

void ListViewTable::setSelected(int first, int last, bool selected) {
    if (list_ != nullptr) list_->setSelected(first, last, selected);
}

void ListViewTable::selectOnly(int first, int last) {
    if (list_ != nullptr) list_->selectOnly(first, last);
}

void ListViewTable::clearSelection() {
    if (list_ != nullptr) list_->clearSelection();
}

void ListViewTable::selectAll() {
    if (list_ != nullptr) list_->selectAll();
}

}  // namespace pellmark
