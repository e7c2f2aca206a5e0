#include "controls/MemoryRecordSet.h"

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
    for (std::size_t i = 0; i < cells.size(); ++i) {
        if (i == idField_) {
            appendId(cells[i]);
        } else {
            appendCell(cells[i]);
        }
    }
    ++rows_;
}

void MemoryRecordSet::addRow(const Guid& id, std::span<const std::string_view> others) {
    if (idField_ != 0 || others.size() + 1 != fields_.size()) {
        throw Error(errors::kInvalidArgument, kSource,
                    "A record needs its id first and one text per other field.");
    }
    if (id == Guid{}) {
        appendId(id.text());
    } else {
        ids_.push_back(id);
        appendCell({});
    }
    for (const std::string_view other : others)
        appendCell(other);
    ++rows_;
}

void MemoryRecordSet::appendId(std::string_view text) {
    // The nil GUID marks a cell that is kept as text, so a real nil id goes that way too.
    const auto guid = Guid::parse(text);
    if (!guid) allIdsAreGuids_ = false;
    const bool packed = guid && *guid != Guid{};
    ids_.push_back(packed ? *guid : Guid{});
    appendCell(packed ? std::string_view{} : text);
}

void MemoryRecordSet::appendCell(std::string_view text) {
    if (text.size() > std::numeric_limits<std::uint32_t>::max() - texts_.size()) {
        throw Error(errors::kInvalidArgument, kSource, "The texts of a record set cannot pass 4 GiB.");
    }
    texts_ += text;
    ends_.push_back(static_cast<std::uint32_t>(texts_.size()));
}

std::string_view MemoryRecordSet::cell(std::size_t record, std::size_t field) const {
    const std::size_t at = record * fields_.size() + field;
    const std::size_t start = at == 0 ? 0 : ends_[at - 1];
    return std::string_view(texts_).substr(start, ends_[at] - start);
}

std::string MemoryRecordSet::text(std::size_t record, std::size_t field) {
    if (record >= rows_ || field >= fields_.size()) return {};
    if (field == idField_ && ids_[record] != Guid{}) return ids_[record].text();
    return std::string(cell(record, field));
}

std::optional<std::vector<Guid>> MemoryRecordSet::keys() {
    if (!idField_ || !allIdsAreGuids_) return std::nullopt;
    return ids_;
}

std::size_t MemoryRecordSet::bytes() const {
    return texts_.capacity() + ends_.capacity() * sizeof(ends_[0]) + ids_.capacity() * sizeof(Guid);
}

}  // namespace pellmark
