#pragma once

#include <cstdint>
#include <vector>

namespace pellmark {

/// The selected slots of a grid in the order in which they were selected. Adding, removing and asking take
/// constant time; removing leaves a gap that is closed at the next look by position. Costs eight
/// bytes per slot up to the highest one selected, nothing before the first.
class RowSelection {
  public:
    std::size_t count() const { return count_; }
    bool contains(std::size_t slot) const { return slot < places_.size() && places_[slot] != kNowhere; }
    void add(std::size_t slot);
    void remove(std::size_t slot);
    void clear();
    /// The i-th selected slot; i must be below count().
    std::size_t at(std::size_t i) const;

  private:
    static constexpr std::uint32_t kNowhere = 0xFFFFFFFFU;
    void closeGaps() const;

    std::size_t count_ = 0;
    mutable std::vector<std::uint32_t> order_;   ///< slots in selection order, kNowhere for a gap
    mutable std::vector<std::uint32_t> places_;  ///< by slot: its place in order_
};

}  // namespace pellmark
