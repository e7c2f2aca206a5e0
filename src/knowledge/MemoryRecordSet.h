#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "knowledge/RecordSet.h"

namespace pellmark {

/// A record set held whole in memory. The texts of some thousand records stand in one block with four bytes
/// per cell beside it, and the `_Id` field takes 16 bytes per record while it holds GUIDs, so that a large
/// answer costs little more than its characters and is never copied while it grows.
class MemoryRecordSet : public RecordSet {
  public:
    explicit MemoryRecordSet(std::vector<std::string> fields);

    /// Appends a record, one text per field in their order. Throws Error (invalid argument) when the number
    /// of texts is wrong or the texts of a block pass 4 GiB.
    void addRow(std::span<const std::string_view> cells);
    void addRow(std::initializer_list<std::string_view> cells) { addRow({cells.begin(), cells.size()}); }
    /// Appends a record whose first field is `_Id`, which spares a GUID the way through its text.
    void addRow(const Guid& id, std::span<const std::string_view> others);
    void addRow(const Guid& id, std::initializer_list<std::string_view> others) {
        addRow(id, {others.begin(), others.size()});
    }

    const std::vector<std::string>& fields() const override { return fields_; }
    std::size_t count() override { return rows_; }
    std::string text(std::size_t record, std::size_t field) override;
    void appendText(std::size_t record, std::size_t field, std::string& out) override;
    std::optional<std::vector<Guid>> keys() override;

    /// Bytes held for the records, for measurements.
    std::size_t bytes() const;

  private:
    static constexpr std::size_t kBlockRows = 4096;
    struct Block {
        std::string texts;                ///< the cells one after the other, row by row
        std::vector<std::uint32_t> ends;  ///< where each cell ends in texts
        std::vector<Guid> ids;            ///< nil where the cell's own text stands for the id
    };

    Block& blockForNextRow();
    void appendId(Block& block, std::string_view text);
    static void appendCell(Block& block, std::string_view text);

    std::vector<std::string> fields_;
    std::optional<std::size_t> idField_;
    std::size_t rows_ = 0;
    std::vector<Block> blocks_;  ///< kBlockRows rows each, the last one fewer
    bool allIdsAreGuids_ = true;
};

}  // namespace pellmark
