#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "controls/grid/DisplayList.h"
#include "controls/grid/GridColumns.h"
#include "controls/grid/RowKeys.h"
#include "controls/grid/RowOrder.h"
#include "knowledge/RecordSet.h"

namespace pellmark {

/// What stands in the data rows of a grid, by slot: a record set, read only for what is asked for, under
/// whatever was written over it, and the hidden text that identifies each row.
class GridCells {
  public:
    /// Shows these records, null for none, and forgets what was written, the keys and the lists.
    void bind(std::shared_ptr<RecordSet> records);
    /// Binds each column to the record set's field of the same key: after bind, and when keys change.
    void matchFields(const GridColumns& columns);
    const std::shared_ptr<RecordSet>& records() const { return records_; }

    /// The stored text ("71"); "" where there is none. The column must be one of those matched last.
    std::string text(std::size_t slot, int col) const;
    /// Appends the same to a text.
    void appendText(std::size_t slot, int col, std::string& out) const;
    void setText(std::size_t slot, int col, std::string text) {
        written_[placeOf(slot, col)] = std::move(text);
    }

    /// A list of choices of one cell's own; null where it has none. An empty text takes it away.
    const DisplayList* list(std::size_t slot, int col) const;
    void setList(std::size_t slot, int col, const std::string& list);

    /// "" when the slot has none.
    std::string key(std::size_t slot) const { return keys_.at(slot); }
    void setKey(std::size_t slot, const std::string& key) { keys_.set(slot, key); }
    /// Every row's key becomes the column's text, taken in one block where the records offer that.
    void setKeysFromColumn(int col, const RowOrder& rows);
    /// The first slot among the rows with that key, case ignored; nothing when there is none.
    std::optional<std::size_t> find(std::string_view key, const RowOrder& rows) const;
    std::optional<std::size_t> find(const Guid& key, const RowOrder& rows) const;

  private:
    static std::uint64_t placeOf(std::size_t slot, int col) {
        return (std::uint64_t{slot} << 16U) | static_cast<std::uint16_t>(col);
    }

    std::shared_ptr<RecordSet> records_;
    std::vector<std::optional<std::size_t>> fieldOfCol_;
    std::unordered_map<std::uint64_t, std::string> written_;
    std::unordered_map<std::uint64_t, DisplayList> lists_;
    RowKeys keys_;
};

}  // namespace pellmark
