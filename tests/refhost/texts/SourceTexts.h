#pragma once

#include <filesystem>
#include <set>
#include <string>

namespace norvex {

/// The whole of a file; empty when it cannot be read.
std::string contentOf(const std::filesystem::path& path);

/// The texts in the C++ sources and headers below a folder; pieces that the compiler joins are one text.
struct SourceTexts {
    std::set<std::string> all;
    /// Those that are looked up in the translation table: handed to GetString or to a helper around it, or
    /// standing in one of the tables of columns, menus and looks whose texts are looked up.
    std::set<std::string> lookedUp;
};
SourceTexts textsIn(const std::filesystem::path& folder);

}  // namespace norvex
