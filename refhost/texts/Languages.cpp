#include "refhost/texts/Languages.h"

#include <algorithm>
#include <array>

namespace norvex {

namespace {

constexpr std::array<Language, 7> kLanguages{{{kEnglish, "English", 1033},
                                              {kGerman, "German", 1031},
                                              {3, "French", 1036},
                                              {4, "Italian", 1040},
                                              {5, "Spanish", 1034},
                                              {kJapanese, "Japanese", 1041},
                                              {7, "Chinese", 2052}}};

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
