#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <vector>

namespace pellmark {

/// The selected slots of a grid in the order in which they were selected, kept as runs: a block costs the
/// same whatever its length. The slots of one block are in ascending order.
class RowSelection {
  public:
    std::size_t count() const { return count_; }
    bool contains(std::size_t slot) const;
    void add(std::size_t slot) { addRange(slot, slot); }
    void remove(std::size_t slot) { removeRange(slot, slot); }
    /// Both ends belong to the range. What is selected already keeps its place in the order.
    void addRange(std::size_t first, std::size_t last);
    void removeRange(std::size_t first, std::size_t last);
    void clear();
    /// The i-th selected slot; i must be below count().
    std::size_t at(std::size_t i) const;
    /// The first and last slot of each run, in ascending order.
    void eachRun(const std::function<void(std::size_t first, std::size_t last)>& visit) const;

  private:
    struct Run {
        std::size_t last;
        std::uint64_t turn;  ///< when it was selected; parts of what was one run keep its turn
    };
    using Runs = std::map<std::size_t, Run>;
    struct Place {
        std::size_t before;  ///< how many slots were selected before this run
        std::size_t first;
    };
    /// Parts the run that holds both slots, or does nothing: afterwards a run begins at `slot`.
    void cutBefore(std::size_t slot);

    Runs runs_;  ///< by first slot
    std::size_t count_ = 0;
    std::uint64_t turns_ = 0;
    std::size_t newest_ = 0;            ///< the slot that came last
    mutable std::vector<Place> order_;  ///< made when somebody looks by position, empty until then
};

}  // namespace pellmark
