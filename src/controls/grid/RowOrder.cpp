#include "controls/grid/RowOrder.h"

#include <algorithm>
#include <bit>

namespace pellmark {

void RowOrder::reset(std::size_t slots) {
    slots_ = left_ = slots;
    alive_.clear();
    tree_.clear();
}

bool RowOrder::isLeft(std::size_t slot) const {
    if (slot >= slots_) return false;
    return alive_.empty() || ((alive_[slot / kBits] >> (slot % kBits)) & 1U) != 0;
}

std::size_t RowOrder::slotAt(std::size_t rank) const {
    if (alive_.empty()) return rank;
    // Descend the tree: the last word before which no more than `rank` rows stand.
    std::size_t word = 0;
    std::size_t remaining = rank;
    for (std::size_t step = std::bit_floor(tree_.size()); step > 0; step /= 2) {
        const std::size_t next = word + step;
        if (next < tree_.size() && tree_[next] <= remaining) {
            word = next;
            remaining -= tree_[next];
        }
    }
    std::uint64_t bits = alive_[word];
    for (; remaining > 0; --remaining)
        bits &= bits - 1;
    return word * kBits + static_cast<std::size_t>(std::countr_zero(bits));
}

std::size_t RowOrder::rankOf(std::size_t slot) const {
    if (alive_.empty()) return slot;
    const std::size_t word = slot / kBits;
    auto rank =
        static_cast<std::size_t>(std::popcount(alive_[word] & ((std::uint64_t{1} << (slot % kBits)) - 1)));
    for (std::size_t node = word; node > 0; node &= node - 1)
        rank += tree_[node];
    return rank;
}

void RowOrder::eachRun(std::size_t first, std::size_t last,
                       const std::function<void(std::size_t, std::size_t)>& visit) const {
    const std::size_t end = slotAt(last) + 1;
    std::size_t slot = slotAt(first);
    if (alive_.empty()) {
        visit(slot, end - 1);
        return;
    }
    // The next slot from `at` on that is left or removed, as asked for, at most `end`.
    const auto next = [&](std::size_t at, bool left) {
        while (at < end) {
            const std::uint64_t bits = (left ? alive_[at / kBits] : ~alive_[at / kBits]) >> (at % kBits);
            if (bits != 0) return std::min(at + static_cast<std::size_t>(std::countr_zero(bits)), end);
            at = (at / kBits + 1) * kBits;
        }
        return end;
    };
    while (slot < end) {
        const std::size_t gap = next(slot, false);
        visit(slot, gap - 1);
        slot = next(gap, true);
    }
}

std::size_t RowOrder::append() {
    const std::size_t slot = slots_++;
    if (alive_.empty()) {
        ++left_;
        return slot;
    }
    if (slot / kBits == alive_.size()) {
        alive_.push_back(0);
        rebuildTree();
    }
    alive_[slot / kBits] |= std::uint64_t{1} << (slot % kBits);
    addToTree(slot / kBits, 1);
    ++left_;
    return slot;
}

void RowOrder::remove(std::size_t slot) {
    if (!isLeft(slot)) return;
    if (alive_.empty()) materialize();
    alive_[slot / kBits] &= ~(std::uint64_t{1} << (slot % kBits));
    addToTree(slot / kBits, -1);
    --left_;
}

void RowOrder::materialize() {
    alive_.assign((slots_ + kBits - 1) / kBits, ~std::uint64_t{0});
    if (slots_ % kBits != 0) alive_.back() = (std::uint64_t{1} << (slots_ % kBits)) - 1;
    left_ = slots_;
    rebuildTree();
}

void RowOrder::rebuildTree() {
    tree_.assign(alive_.size() + 1, 0);
    for (std::size_t node = 1; node < tree_.size(); ++node) {
        tree_[node] += static_cast<std::uint32_t>(std::popcount(alive_[node - 1]));
        const std::size_t parent = node + (node & (~node + 1));
        if (parent < tree_.size()) tree_[parent] += tree_[node];
    }
}

void RowOrder::addToTree(std::size_t word, std::int32_t change) {
    for (std::size_t node = word + 1; node < tree_.size(); node += node & (~node + 1)) {
        tree_[node] += static_cast<std::uint32_t>(change);
    }
}

}  // namespace pellmark
