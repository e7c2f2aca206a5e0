#include "refhost/store/ProcessFinder.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>

#include "base/CaseFolding.h"
#include "base/Text.h"
#include "knowledge/Records.h"
#include "refhost/store/Statement.h"

namespace norvex {

namespace field = pellmark::field;

namespace {

struct Column {
    const char* field;
    const char* name;
    bool isIndexed;
};
/// In the order of kOneRow.
constexpr std::array kColumns{Column{field::kId, "id", false}, Column{field::kName, "name", true},
                              Column{field::kUnit, "unit", false}, Column{field::kRule, "rule", true},
                              Column{field::kDescription, "description", true}};
constexpr const char* kOneRow = "SELECT id, name, unit, rule, description FROM process WHERE row = ?";
constexpr int kIdColumn = 0;

int columnOf(const std::string& name) {
    const auto* found = std::find_if(kColumns.begin(), kColumns.end(), [&](const Column& each) {
        return pellmark::equalNoCase(each.field, name);
    });
    return found == kColumns.end() ? -1 : static_cast<int>(found - kColumns.begin());
}

/// A text of the index's query language that stands for itself.
std::string quoted(std::string_view text) {
    std::string in = "\"";
    for (const char c : text) {
        if (c == '"') in += '"';
        in += c;
    }
    return in + "\"";
}

std::size_t codePoints(std::string_view utf8) {
    return static_cast<std::size_t>(std::count_if(
        utf8.begin(), utf8.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

}  // namespace

void RowMarks::add(std::uint32_t row) {
    if (row / kBits >= words_.size())
        words_.resize(std::max<std::size_t>(row / kBits + 1, words_.size() * 2));
    words_[row / kBits] |= std::uint64_t{1} << (row % kBits);
}

ProcessFinder::ProcessFinder(Connection& connection, const pellmark::RowQuery& query)
    : connection_(connection), query_(query) {
    for (const std::string& name : query.fields) {
        const int column = columnOf(name);
        if (column < 0) continue;
        fields_.push_back(column);
        isIndexed_ = isIndexed_ && kColumns[static_cast<std::size_t>(column)].isIndexed;
    }
}

ProcessRows ProcessFinder::among(const ProcessRows& rows) {
    if (query_.wantsAll()) return rows;
    if (!isIndexed_) return lookedAt(*rows, rows->size());
    const bool isShort = codePoints(query_.text) < kShortest;
    const std::string match = isShort || fields_.empty() ? "" : columns() + quoted(query_.text);
    if (isShort || !mark(match, kFewEnough)) {
        auto first = lookedAt(*rows, kLookedAt);
        hasMore_ = rows->size() > kLookedAt;
        if (!hasMore_ || first->size() >= kEnough) return first;
        // They are rare, or all of them stand further down.
        hasMore_ = false;
        mark(isShort ? beginnings() : match, rows->size());
    }
    markValues();
    auto found = std::make_shared<std::vector<std::uint32_t>>();
    std::copy_if(rows->begin(), rows->end(), std::back_inserter(*found),
                 [this](std::uint32_t row) { return marks_.has(row); });
    return found;
}

ProcessRows ProcessFinder::lookedAt(const std::vector<std::uint32_t>& rows, std::size_t most) {
    auto found = std::make_shared<std::vector<std::uint32_t>>();
    pellmark::FoldedNeedle needle(query_.text);
    Statement one(connection_, kOneRow);
    for (std::size_t i = 0; i < std::min(rows.size(), most); ++i) {
        one.bind(std::int64_t{rows[i]});
        const bool isFound =
            one.step() && (std::any_of(fields_.begin(), fields_.end(),
                                       [&](int column) {
                                           return column == kIdColumn ? needle.isIn(one.id(column))
                                                                      : needle.isIn(one.view(column));
                                       }) ||
                           std::any_of(query_.values.begin(), query_.values.end(), [&](const auto& value) {
                               const int column = columnOf(value.field);
                               return column > kIdColumn && one.view(column) == value.value;
                           }));
        if (isFound) found->push_back(rows[i]);
        one.reset();
    }
    return found;
}

std::string ProcessFinder::columns() const {
    std::string names;
    for (const int column : fields_)
        names += std::string(names.empty() ? "" : " ") + kColumns[static_cast<std::size_t>(column)].name;
    return "{" + names + "} : ";
}

bool ProcessFinder::mark(const std::string& match, std::size_t most) {
    if (match.empty()) return true;
    Statement list(connection_, "SELECT rowid FROM process_search WHERE process_search MATCH ?");
    list.bind(match);
    for (std::size_t marked = 0; list.step(); ++marked) {
        if (marked == most) return false;
        marks_.add(rowNumber(connection_, list.integer(0)));
    }
    return true;
}

std::string ProcessFinder::beginnings() const {
    if (fields_.empty()) return {};
    std::string begin = query_.text;
    pellmark::foldCaseOf(begin);
    const std::string end = begin + "\xF4\x8F\xBF\xBF";  // behind every other character
    std::string match;
    Statement grams(connection_, "SELECT term FROM process_gram WHERE term >= ? AND term <= ?");
    grams.bind(begin).bind(end);
    while (grams.step())
        match += (match.empty() ? "" : " OR ") + quoted(grams.view(0));
    return match.empty() ? match : columns() + "(" + match + ")";
}

void ProcessFinder::markValues() {
    for (const auto& [name, value] : query_.values) {
        const int column = columnOf(name);
        if (column <= kIdColumn) continue;
        Statement list(connection_, std::string("SELECT row FROM process WHERE ") +
                                        kColumns[static_cast<std::size_t>(column)].name + " = ?");
        std::int64_t number = 0;
        const auto [end, failure] = std::from_chars(value.data(), value.data() + value.size(), number);
        if (failure == std::errc() && end == value.data() + value.size()) {
            list.bind(number);
        } else {
            list.bind(value);
        }
        while (list.step())
            marks_.add(rowNumber(connection_, list.integer(0)));
    }
}

}  // namespace norvex
