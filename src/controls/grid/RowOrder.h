#pragma once

#include <cstdint>
#include <functional>
#include <vector>

namespace pellmark {

/// The data rows that are left of a run of slots numbered from 0. Slots are appended and removed, never
/// moved; a row's number is its slot's rank among those left. Removing and both look-ups take logarithmic
/// time; nothing is kept per slot until the first removal, then a bit and a half.
class RowOrder {
  public:
    void reset(std::size_t slots);
    std::size_t count() const { return alive_.empty() ? slots_ : left_; }
    /// How many slots there have been, removed ones included.
    std::size_t slots() const { return slots_; }
    bool isLeft(std::size_t slot) const;
    /// The slot of the rank-th row left; rank must be below count().
    std::size_t slotAt(std::size_t rank) const;
    /// How many rows stand before a slot.
    std::size_t rankOf(std::size_t slot) const;
    /// The runs of slots left of the rows from `first` to `last`, both included, in their order. Looks at
    /// nothing per row as long as nothing was removed, then at 64 at a time.
    void eachRun(std::size_t first, std::size_t last,
                 const std::function<void(std::size_t firstSlot, std::size_t lastSlot)>& visit) const;
    /// A new last row; returns its slot.
    std::size_t append();
    void remove(std::size_t slot);

  private:
    static constexpr std::size_t kBits = 64;
    void materialize();
    void rebuildTree();
    void addToTree(std::size_t word, std::int32_t change);

    std::size_t slots_ = 0;
    std::size_t left_ = 0;
    std::vector<std::uint64_t> alive_;  ///< a bit per slot; empty while nothing was removed
    std::vector<std::uint32_t> tree_;   ///< Fenwick tree over the words' counts, from 1
};

}  // namespace pellmark
