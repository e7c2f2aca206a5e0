#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

namespace pellmark {

/// The selected slots of a grid in the order in which they were selected. Adding, removing and asking take
/// constant time, removing leaves a gap that is closed at the next look by position.
class RowSelection {
  public:
    std::size_t count() const { return count_; }
    bool contains(std::size_t slot) const { return positions_.find(slot) != positions_.end(); }
    void add(std::size_t slot);
    void remove(std::size_t slot);
    void clear();
    /// The i-th selected slot; i must be below count().
    std::size_t at(std::size_t i) const;

  private:
    static constexpr std::size_t kGap = static_cast<std::size_t>(-1);
    void closeGaps() const;

    std::size_t count_ = 0;
    mutable std::vector<std::size_t> order_;
    mutable std::unordered_map<std::size_t, std::size_t> positions_;
};

}  // namespace pellmark
