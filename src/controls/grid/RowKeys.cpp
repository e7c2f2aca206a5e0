#include "controls/grid/RowKeys.h"

#include <algorithm>

#include "base/Text.h"

namespace pellmark {

void RowKeys::assign(std::vector<Guid> keys) {
    clear();
    packed_ = std::move(keys);
}

void RowKeys::clear() {
    packed_.clear();
    texts_.clear();
    slotsOfText_.clear();
    buckets_.clear();
}

void RowKeys::set(std::size_t slot, const std::string& text) {
    if (const auto old = texts_.find(slot); old != texts_.end()) {
        const auto [first, last] = slotsOfText_.equal_range(lowerAscii(old->second));
        const auto entry = std::find_if(first, last, [&](const auto& each) { return each.second == slot; });
        if (entry != last) slotsOfText_.erase(entry);
    }
    texts_[slot] = text;
    slotsOfText_.emplace(lowerAscii(text), slot);
}

std::string RowKeys::at(std::size_t slot) const {
    if (const auto text = texts_.find(slot); text != texts_.end()) return text->second;
    return slot < packed_.size() ? packed_[slot].text() : std::string();
}

std::optional<std::size_t> RowKeys::find(const Guid& guid,
                                         const std::function<bool(std::size_t)>& accept) const {
    std::optional<std::size_t> lowest;
    if (!texts_.empty()) lowest = findText(lowerAscii(guid.text()), accept);
    const auto packed = findPacked(guid, accept);
    return packed && (!lowest || *packed < *lowest) ? packed : lowest;
}

std::optional<std::size_t> RowKeys::find(std::string_view text,
                                         const std::function<bool(std::size_t)>& accept) const {
    if (const auto guid = Guid::parse(text)) return find(*guid, accept);
    return findText(lowerAscii(text), accept);
}

std::optional<std::size_t> RowKeys::findPacked(const Guid& guid,
                                               const std::function<bool(std::size_t)>& accept) const {
    if (packed_.empty()) return std::nullopt;
    if (buckets_.empty()) buildIndex();
    // Slots were entered in rising order, so that equal ids stand in rising order along the probe.
    for (std::size_t bucket = bucketOf(guid); buckets_[bucket] != kFree;
         bucket = bucket + 1 == buckets_.size() ? 0 : bucket + 1) {
        const std::size_t slot = buckets_[bucket];
        if (packed_[slot] == guid && texts_.find(slot) == texts_.end() && accept(slot)) return slot;
    }
    return std::nullopt;
}

std::optional<std::size_t> RowKeys::findText(const std::string& lower,
                                             const std::function<bool(std::size_t)>& accept) const {
    std::optional<std::size_t> lowest;
    const auto [first, last] = slotsOfText_.equal_range(lower);
    for (auto entry = first; entry != last; ++entry) {
        if ((!lowest || entry->second < *lowest) && accept(entry->second)) lowest = entry->second;
    }
    return lowest;
}

void RowKeys::buildIndex() const {
    buckets_.assign(packed_.size() + packed_.size() / 3 + 1, kFree);
    for (std::size_t slot = 0; slot < packed_.size(); ++slot) {
        std::size_t bucket = bucketOf(packed_[slot]);
        while (buckets_[bucket] != kFree)
            bucket = bucket + 1 == buckets_.size() ? 0 : bucket + 1;
        buckets_[bucket] = static_cast<std::uint32_t>(slot);
    }
}

std::size_t RowKeys::bucketOf(const Guid& guid) const {
    // Maps the hash's upper half onto the table without a division.
    const std::uint64_t hash = std::uint64_t{hashOf(guid)} >> 32U;
    return static_cast<std::size_t>((hash * buckets_.size()) >> 32U);
}

}  // namespace pellmark
