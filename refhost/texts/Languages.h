#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace norvex {

/// A language that the host can be used in.
struct Language {
    std::int16_t code;         ///< the host's own number
    std::string_view name;     ///< English name; the heading of its column in a translation table
    std::string_view ownName;  ///< what its speakers call it
    std::int32_t locale;       ///< Windows locale identifier
};

inline constexpr std::int16_t kEnglish = 1;
inline constexpr std::int16_t kGerman = 2;
inline constexpr std::int16_t kJapanese = 6;

/// All languages by code.
std::span<const Language> languages();

/// The language of a code; English for an unknown one, so that there is always a text and a help file.
const Language& languageOf(std::int16_t code);

}  // namespace norvex
