#include "controls/grid/RowSelection.h"

#include <algorithm>
#include <iterator>

namespace pellmark {

bool RowSelection::contains(std::size_t slot) const {
    const auto after = runs_.upper_bound(slot);
    return after != runs_.begin() && std::prev(after)->second.last >= slot;
}

void RowSelection::cutBefore(std::size_t slot) {
    const auto after = runs_.upper_bound(slot);
    if (after == runs_.begin()) return;
    const auto run = std::prev(after);
    if (run->first == slot || run->second.last < slot) return;
    runs_.emplace_hint(after, slot, run->second);
    run->second.last = slot - 1;
}

void RowSelection::addRange(std::size_t first, std::size_t last) {
    const std::size_t before = count_;
    bool isNew = false;
    const auto fill = [&](Runs::iterator next, std::size_t from, std::size_t to) {
        // Rows added one behind the other, as by walking down with Shift, are one run.
        const bool follows = count_ == before && next != runs_.begin() &&
                             std::prev(next)->second.last + 1 == from && newest_ + 1 == from &&
                             std::prev(next)->second.turn + 1 == turns_;
        if (follows) {
            std::prev(next)->second.last = to;
        } else {
            runs_.emplace_hint(next, from, Run{to, turns_});
            isNew = true;
        }
        count_ += to - from + 1;
        newest_ = to;
    };
    auto next = runs_.upper_bound(first);
    std::size_t from = first;
    if (next != runs_.begin()) from = std::max(from, std::prev(next)->second.last + 1);
    for (; from <= last && next != runs_.end() && next->first <= last; ++next) {
        if (from < next->first) fill(next, from, next->first - 1);
        from = next->second.last + 1;
    }
    if (from <= last) fill(next, from, last);
    if (count_ == before) return;
    if (isNew) ++turns_;
    order_.clear();
}

void RowSelection::removeRange(std::size_t first, std::size_t last) {
    cutBefore(first);
    if (last != SIZE_MAX) cutBefore(last + 1);
    const auto from = runs_.lower_bound(first);
    const auto to = runs_.upper_bound(last);
    if (from == to) return;
    for (auto each = from; each != to; ++each)
        count_ -= each->second.last - each->first + 1;
    runs_.erase(from, to);
    ++turns_;  // what is selected again comes behind what has stayed, though it may stand beside it
    order_.clear();
}

void RowSelection::clear() {
    runs_.clear();
    order_.clear();
    count_ = 0;
}

std::size_t RowSelection::at(std::size_t i) const {
    if (order_.empty()) {
        std::vector<Runs::const_iterator> byTurn;
        byTurn.reserve(runs_.size());
        for (auto each = runs_.begin(); each != runs_.end(); ++each)
            byTurn.push_back(each);
        std::stable_sort(byTurn.begin(), byTurn.end(), [](const auto& left, const auto& right) {
            return left->second.turn < right->second.turn;
        });
        std::size_t before = 0;
        for (const auto& each : byTurn) {
            order_.push_back({before, each->first});
            before += each->second.last - each->first + 1;
        }
    }
    const auto after =
        std::upper_bound(order_.begin(), order_.end(), i,
                         [](std::size_t wanted, const Place& each) { return wanted < each.before; });
    const Place& place = *std::prev(after);
    return place.first + (i - place.before);
}

void RowSelection::eachRun(const std::function<void(std::size_t first, std::size_t last)>& visit) const {
    for (auto each = runs_.begin(); each != runs_.end();) {
        const std::size_t first = each->first;
        std::size_t last = each->second.last;
        // neighbours that were selected at different times
        while (++each != runs_.end() && each->first == last + 1)
            last = each->second.last;
        visit(first, last);
    }
}

}  // namespace pellmark
