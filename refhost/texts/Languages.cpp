#include "refhost/texts/Languages.h"

#include <algorithm>
#include <array>

namespace norvex {

namespace {

constexpr std::array<Language, 7> kLanguages{{{kEnglish, "English", "English", 1033},
                                              {kGerman, "German", "Deutsch", 1031},
                                              {3, "French", "Français", 1036},
                                              {4, "Italian", "Italiano", 1040},
                                              {5, "Spanish", "Español", 1034},
                                              {kJapanese, "Japanese", "日本語", 1041},
                                              {7, "Chinese", "简体中文", 2052}}};

}  // namespace

std::span<const Language> languages() {
    return kLanguages;
}

const Language& languageOf(std::int16_t code) {
    const auto found = std::find_if(kLanguages.begin(), kLanguages.end(),
                                    [code](const Language& each) { return each.code == code; });
    return found == kLanguages.end() ? kLanguages.front() : *found;
}

}  // namespace norvex
