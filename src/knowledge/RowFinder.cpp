#include "knowledge/RowFinder.h"

#include <algorithm>
#include <charconv>
#include <numeric>
#include <utility>

#include "base/CaseFolding.h"
#include "base/NaturalOrder.h"

namespace pellmark {

namespace {

/// Asking after every single record would take longer than reading it.
constexpr std::size_t kRecordsPerStep = 2048;

std::optional<double> numberOf(const std::string& text) {
    // The conversion knows "inf" and "nan", which are words to a person, and which stand in no order.
    if (text.find_first_not_of("0123456789.-") != std::string::npos) return std::nullopt;
    double number = 0;
    const auto [end, failure] =
        std::from_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed);
    const bool whole = failure == std::errc() && end == text.data() + text.size();
    return whole ? std::optional(number) : std::nullopt;
}

/// The order of places by a key each; equal ones as they stood.
template <class Key>
std::vector<std::uint32_t> sortedBy(const std::vector<Key>& keys, const std::vector<std::uint32_t>& places) {
    std::vector<std::size_t> order(places.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t left, std::size_t right) { return keys[left] < keys[right]; });
    std::vector<std::uint32_t> sorted;
    sorted.reserve(places.size());
    for (const std::size_t at : order)
        sorted.push_back(places[at]);
    return sorted;
}

}  // namespace

bool RowFinder::step() {
    return ++done_ % kRecordsPerStep != 0 || progress_(done_, all_);
}

std::optional<std::vector<std::uint32_t>> RowFinder::find(const RowQuery& query) {
    const std::size_t count = records_.count();
    done_ = 0;
    all_ = (query.wantsAll() ? 0 : count) + (query.sortField.empty() ? 0 : count);
    Places places;
    if (query.wantsAll()) {
        places.resize(count);
        std::iota(places.begin(), places.end(), 0U);
    } else if (!collect(query, places)) {
        return std::nullopt;
    }
    if (!query.sortField.empty() && !sort(query, places)) return std::nullopt;
    if (query.descending) std::reverse(places.begin(), places.end());
    return places;
}

bool RowFinder::collect(const RowQuery& query, Places& places) {
    FoldedNeedle needle(query.text);
    std::vector<std::size_t> searched;
    for (const std::string& name : query.fields) {
        if (const auto field = records_.fieldIndex(name)) searched.push_back(*field);
    }
    std::vector<std::pair<std::size_t, std::string>> values;
    for (const RowQuery::Value& each : query.values) {
        if (const auto field = records_.fieldIndex(each.field)) values.emplace_back(*field, each.value);
    }
    for (std::size_t record = 0; record < records_.count(); ++record) {
        const bool isFound =
            std::any_of(searched.begin(), searched.end(),
                        [&](std::size_t field) { return needle.isIn(records_.text(record, field)); }) ||
            std::any_of(values.begin(), values.end(), [&](const auto& value) {
                return records_.text(record, value.first) == value.second;
            });
        if (isFound) places.push_back(static_cast<std::uint32_t>(record));
        if (!step()) return false;
    }
    return true;
}

bool RowFinder::sort(const RowQuery& query, Places& places) {
    const auto field = records_.fieldIndex(query.sortField);
    if (!field) return true;
    std::vector<std::string> texts;
    std::vector<double> numbers;
    bool allAreNumbers = true;
    for (const std::uint32_t place : places) {
        const std::string text = shown_(query.sortField, records_.text(place, *field));
        const auto number = allAreNumbers ? numberOf(text) : std::nullopt;
        allAreNumbers = number.has_value();
        if (allAreNumbers) numbers.push_back(*number);
        texts.push_back(naturalKey(text));
        if (!step()) return false;
    }
    places = allAreNumbers ? sortedBy(numbers, places) : sortedBy(texts, places);
    return true;
}

}  // namespace pellmark
