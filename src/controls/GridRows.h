#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/Guid.h"

namespace pellmark {

/// The data rows that are left of a run of slots numbered from 0. Slots are appended and removed, never
/// moved; a row's number is its slot's rank among those left. Removing and both look-ups take logarithmic
/// time; nothing is kept per slot until the first removal, then a bit and a half.
class RowOrder {
  public:
    void reset(std::size_t slots);
    std::size_t count() const { return alive_.empty() ? slots_ : left_; }
    std::size_t slots() const { return slots_; }
    bool isLeft(std::size_t slot) const;
    /// The slot of the rank-th row left; rank must be below count().
    std::size_t slotAt(std::size_t rank) const;
    /// How many rows stand before a slot.
    std::size_t rankOf(std::size_t slot) const;
    std::size_t append();
    void remove(std::size_t slot);

  private:
    void materialize();
    void addToTree(std::size_t word, std::int32_t change);

    std::size_t slots_ = 0;
    std::size_t left_ = 0;
    std::vector<std::uint64_t> alive_;   ///< a bit per slot
    std::vector<std::uint32_t> tree_;    ///< Fenwick tree of the words' counts
};

/// Texts written over single cells, by slot and column.
class WrittenCells {
  public:
    const std::string* find(std::size_t slot, int col) const;
    void set(std::size_t slot, int col, std::string text);
    bool empty() const { return cells_.empty(); }
    void clear() { cells_.clear(); }

  private:
    static std::uint64_t keyOf(std::size_t slot, int col) { return (std::uint64_t{slot} << 16U) | static_cast<std::uint16_t>(col); }
    std::unordered_map<std::uint64_t, std::string> cells_;
};

/// The row data of a grid: the id of each slot's record, and the slot of an id. A block of GUIDs costs 16
/// bytes each plus five or so once somebody looks an id up; other texts are kept as they are.
class RowKeys {
  public:
    void assign(std::vector<Guid> keys);
    void clear();
    void set(std::size_t slot, const std::string& text);
    std::string at(std::size_t slot) const;
    /// Calls `accept` with each slot that has the id, lowest first, until it returns true; that slot.
    template <class Accept>
    std::optional<std::size_t> find(std::string_view text, Accept&& accept) const {
        if (const auto guid = Guid::parse(text)) {
            for (std::size_t at = firstBucket(*guid); buckets_.size() > 0; at = nextBucket(at)) {
                const std::uint32_t slot = buckets_[at];
                if (slot == kFree) break;
                if (packed_[slot] == *guid && texts_.find(slot) == texts_.end() && accept(std::size_t{slot})) return slot;
            }
        }
        return findText(text, accept);
    }

  private:
    static constexpr std::uint32_t kFree = 0xFFFFFFFFU;
    template <class Accept>
    std::optional<std::size_t> findText(std::string_view text, Accept&& accept) const;
    void index() const;
    std::size_t firstBucket(const Guid& guid) const;
    std::size_t nextBucket(std::size_t bucket) const { return bucket + 1 == buckets_.size() ? 0 : bucket + 1; }

    std::vector<Guid> packed_;                                            ///< slots 0 to size - 1
    std::unordered_map<std::size_t, std::string> texts_;                  ///< what was set one by one
    std::unordered_multimap<std::string, std::size_t> slotsOfText_;       ///< by lower-case text
    mutable std::vector<std::uint32_t> buckets_;                          ///< open addressing over packed_
};

}  // namespace pellmark
