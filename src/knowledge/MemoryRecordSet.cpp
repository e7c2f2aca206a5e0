#include "knowledge/MemoryRecordSet.h"

#include <limits>

#include "base/Error.h"

namespace pellmark {

namespace {

constexpr const char* kSource = "MemoryRecordSet";
constexpr std::string_view kIdField = "_Id";

}  // namespace

MemoryRecordSet::MemoryRecordSet(std::vector<std::string> fields) : fields_(std::move(fields)) {
    idField_ = fieldIndex(kIdField);
}

void MemoryRecordSet::addRow(std::span<const std::string_view> cells) {
    if (cells.size() != fields_.size()) {
        throw Error(errors::kInvalidArgument, kSource, "A record needs one text per field.");
    }
    Block& block = blockForNextRow();
    for (std::size_t i = 0; i < cells.size(); ++i) {
        if (i == idField_) {
            appendId(block, cells[i]);
        } else {
            appendCell(block, cells[i]);
        }
    }
    ++rows_;
}

void MemoryRecordSet::addRow(const Guid& id, std::span<const std::string_view> others) {
    if (idField_ != 0 || others.size() + 1 != fields_.size()) {
        throw Error(errors::kInvalidArgument, kSource,
                    "A record needs its id first and one text per other field.");
    }
    Block& block = blockForNextRow();
    if (id == Guid{}) {
        appendId(block, id.text());
    } else {
        block.ids.push_back(id);
        appendCell(block, {});
    }
    for (const std::string_view other : others)
        appendCell(block, other);
    ++rows_;
}

MemoryRecordSet::Block& MemoryRecordSet::blockForNextRow() {
    if (rows_ % kBlockRows == 0) {
        Block block;
        // A block after the first is likely to be filled; small answers have but one.
        if (!blocks_.empty()) {
            block.texts.reserve(blocks_.back().texts.size());
            block.ends.reserve(kBlockRows * fields_.size());
            if (idField_) block.ids.reserve(kBlockRows);
        }
        blocks_.push_back(std::move(block));
    }
    return blocks_.back();
}

void MemoryRecordSet::appendId(Block& block, std::string_view text) {
    // The nil GUID marks a cell that is kept as text, so a real nil id goes that way too.
    const auto guid = Guid::parse(text);
    if (!guid) allIdsAreGuids_ = false;
    const bool packed = guid && *guid != Guid{};
    block.ids.push_back(packed ? *guid : Guid{});
    appendCell(block, packed ? std::string_view{} : text);
}

void MemoryRecordSet::appendCell(Block& block, std::string_view text) {
    if (text.size() > std::numeric_limits<std::uint32_t>::max() - block.texts.size()) {
        throw Error(errors::kInvalidArgument, kSource,
                    "The texts of a few thousand records cannot pass 4 GiB.");
    }
    block.texts += text;
    block.ends.push_back(static_cast<std::uint32_t>(block.texts.size()));
}

std::string MemoryRecordSet::text(std::size_t record, std::size_t field) {
    std::string cell;
    appendText(record, field, cell);
    return cell;
}

void MemoryRecordSet::appendText(std::size_t record, std::size_t field, std::string& out) {
    if (record >= rows_ || field >= fields_.size()) return;
    const Block& block = blocks_[record / kBlockRows];
    const std::size_t row = record % kBlockRows;
    if (field == idField_ && block.ids[row] != Guid{}) {
        out += block.ids[row].text();
        return;
    }
    const std::size_t at = row * fields_.size() + field;
    const std::size_t start = at == 0 ? 0 : block.ends[at - 1];
    out.append(block.texts, start, block.ends[at] - start);
}

std::optional<std::vector<Guid>> MemoryRecordSet::keys() {
    if (!idField_ || !allIdsAreGuids_) return std::nullopt;
    std::vector<Guid> keys;
    keys.reserve(rows_);
    for (const Block& block : blocks_)
        keys.insert(keys.end(), block.ids.begin(), block.ids.end());
    return keys;
}

std::size_t MemoryRecordSet::bytes() const {
    std::size_t total = blocks_.capacity() * sizeof(Block);
    for (const Block& block : blocks_) {
        total += block.texts.capacity() + block.ends.capacity() * sizeof(std::uint32_t) +
                 block.ids.capacity() * sizeof(Guid);
    }
    return total;
}

}  // namespace pellmark
