#include "controls/grid/RowSelection.h"

namespace pellmark {

void RowSelection::add(std::size_t slot) {
    if (contains(slot)) return;
    if (slot >= places_.size()) places_.resize(slot + 1, kNowhere);
    places_[slot] = static_cast<std::uint32_t>(order_.size());
    order_.push_back(static_cast<std::uint32_t>(slot));
    ++count_;
}

void RowSelection::remove(std::size_t slot) {
    if (!contains(slot)) return;
    order_[places_[slot]] = kNowhere;
    places_[slot] = kNowhere;
    --count_;
    while (!order_.empty() && order_.back() == kNowhere)
        order_.pop_back();
}

void RowSelection::clear() {
    for (const std::uint32_t slot : order_) {
        if (slot != kNowhere) places_[slot] = kNowhere;
    }
    order_.clear();
    count_ = 0;
}

std::size_t RowSelection::at(std::size_t i) const {
    if (order_.size() != count_) closeGaps();
    return order_[i];
}

void RowSelection::closeGaps() const {
    std::size_t kept = 0;
    for (const std::uint32_t slot : order_) {
        if (slot == kNowhere) continue;
        places_[slot] = static_cast<std::uint32_t>(kept);
        order_[kept++] = slot;
    }
    order_.resize(kept);
}

}  // namespace pellmark
