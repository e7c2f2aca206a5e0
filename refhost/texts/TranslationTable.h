#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

namespace norvex {

/// The texts of an application in one language, keyed by English. The table is delimited text in UTF-8 with
/// ";" between fields; its first line names the languages, English first.
class TranslationTable {
  public:
    TranslationTable() = default;
    /// Keeps the column of the language; without such a column every text stays English.
    TranslationTable(std::string_view delimited, std::int16_t languageCode);

    /// The text in the table's language. The English text itself when the table does not know it or has no
    /// translation.
    std::string text(const std::string& english) const;

  private:
    std::unordered_map<std::string, std::string> texts_;
};

}  // namespace norvex
