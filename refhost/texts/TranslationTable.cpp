#include "refhost/texts/TranslationTable.h"

#include <algorithm>

#include "refhost/texts/DelimitedTable.h"
#include "refhost/texts/Languages.h"

namespace norvex {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

}  // namespace

TranslationTable::TranslationTable(std::string_view delimited, std::int16_t languageCode) {
    if (delimited.starts_with(kByteOrderMark)) delimited.remove_prefix(kByteOrderMark.size());
    auto lines = parseDelimited(delimited, ';');
    if (lines.empty()) return;
    const auto& heading = lines.front();
    const auto found = std::find(heading.begin(), heading.end(), languageOf(languageCode).name);
    if (found == heading.end()) return;
    const auto column = static_cast<std::size_t>(found - heading.begin());
    for (auto line = lines.begin() + 1; line != lines.end(); ++line) {
        if (column < line->size() && !(*line)[column].empty()) texts_.emplace(line->front(), (*line)[column]);
    }
}

std::string TranslationTable::text(const std::string& english) const {
    const auto found = texts_.find(english);
    return found == texts_.end() ? english : found->second;
}

}  // namespace norvex
