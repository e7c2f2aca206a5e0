#include "knowledge/ArrangedRecords.h"

#include <numeric>
#include <utility>

namespace pellmark {

std::string ArrangedRecords::text(std::size_t record, std::size_t field) {
    return record < places_.size() ? all_->text(places_[record], field) : std::string();
}

std::optional<std::vector<Guid>> ArrangedRecords::keys() {
    const auto all = all_->keys();
    if (!all) return std::nullopt;
    std::vector<Guid> keys;
    keys.reserve(places_.size());
    for (const std::uint32_t place : places_)
        keys.push_back(place < all->size() ? (*all)[place] : Guid{});
    return keys;
}

std::shared_ptr<RecordSet> firstRecords(std::shared_ptr<RecordSet> records, std::size_t most) {
    if (records->count() <= most) return records;
    std::vector<std::uint32_t> places(most);
    std::iota(places.begin(), places.end(), 0U);
    return std::make_shared<ArrangedRecords>(std::move(records), std::move(places));
}

std::optional<std::vector<Guid>> KeptKeys::keys() {
    if (!std::exchange(asked_, true)) keys_ = records_->keys();
    return keys_;
}

}  // namespace pellmark
