#include "controls/grid/GridCells.h"

#include <utility>

namespace pellmark {

void GridCells::bind(std::shared_ptr<RecordSet> records) {
    records_ = std::move(records);
    written_.clear();
    lists_.clear();
    keys_.clear();
}

void GridCells::matchFields(const GridColumns& columns) {
    fieldOfCol_.assign(static_cast<std::size_t>(columns.count()), std::nullopt);
    if (!records_) return;
    for (int col = 0; col < columns.count(); ++col) {
        fieldOfCol_[static_cast<std::size_t>(col)] = records_->fieldIndex(columns.at(col).key);
    }
}

std::string GridCells::text(std::size_t slot, int col) const {
    std::string text;
    appendText(slot, col, text);
    return text;
}

void GridCells::appendText(std::size_t slot, int col, std::string& out) const {
    if (!written_.empty()) {
        if (const auto over = written_.find(placeOf(slot, col)); over != written_.end()) {
            out += over->second;
            return;
        }
    }
    const auto& field = fieldOfCol_[static_cast<std::size_t>(col)];
    if (field && records_ && slot < records_->count()) records_->appendText(slot, *field, out);
}

const DisplayList* GridCells::list(std::size_t slot, int col) const {
    if (lists_.empty()) return nullptr;
    const auto own = lists_.find(placeOf(slot, col));
    return own == lists_.end() ? nullptr : &own->second;
}

void GridCells::setList(std::size_t slot, int col, const std::string& list) {
    if (list.empty()) {
        lists_.erase(placeOf(slot, col));
    } else {
        lists_[placeOf(slot, col)] = DisplayList(list);
    }
}

void GridCells::setKeysFromColumn(int col, const RowOrder& rows) {
    const auto& field = fieldOfCol_[static_cast<std::size_t>(col)];
    std::size_t covered = 0;
    keys_.clear();
    if (records_ && field && field == records_->fieldIndex("_Id")) {
        if (auto block = records_->keys()) {
            covered = block->size();
            keys_.assign(std::move(*block));
        }
    }
    for (std::size_t slot = covered; slot < rows.slots(); ++slot) {
        if (rows.isLeft(slot)) keys_.set(slot, text(slot, col));
    }
}

std::optional<std::size_t> GridCells::find(std::string_view key, const RowOrder& rows) const {
    if (key.empty()) return std::nullopt;
    return keys_.find(key, [&rows](std::size_t slot) { return rows.isLeft(slot); });
}

std::optional<std::size_t> GridCells::find(const Guid& key, const RowOrder& rows) const {
    return keys_.find(key, [&rows](std::size_t slot) { return rows.isLeft(slot); });
}

}  // namespace pellmark
