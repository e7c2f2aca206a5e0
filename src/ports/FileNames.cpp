#include "ports/FileNames.h"

#include <algorithm>
#include <array>

#include "base/Text.h"

namespace pellmark {

namespace {

/// Where the character behind the one at `at` starts; "?" stands for a character, not for a byte.
std::size_t behindCharacter(std::string_view text, std::size_t at) {
    do {
        ++at;
    } while (at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U);
    return at;
}

bool sameLetter(char left, char right) {
    return equalNoCase({&left, 1}, {&right, 1});
}

}  // namespace

std::string_view nameOfPath(std::string_view path) {
    const std::size_t slash = path.rfind('\\');
    return slash == std::string_view::npos ? path : path.substr(slash + 1);
}

bool isDeviceName(std::string_view path) {
    std::string_view name = path.substr(path.find_last_of("\\/") + 1);  // npos + 1 is 0
    name = name.substr(0, name.find_first_of(".:"));
    while (!name.empty() && name.back() == ' ')
        name.remove_suffix(1);
    static constexpr std::array<std::string_view, 6> kPlain{"con", "prn", "aux", "nul", "conin$", "conout$"};
    if (std::any_of(kPlain.begin(), kPlain.end(),
                    [name](std::string_view device) { return equalNoCase(name, device); })) {
        return true;
    }
    // Ports are numbered 1 to 9; the system takes the superscripts 1, 2 and 3 for digits, too.
    if (!equalNoCase(name.substr(0, 3), "com") && !equalNoCase(name.substr(0, 3), "lpt")) return false;
    const std::string_view number = name.substr(3);
    if (number.size() == 1) return number[0] >= '1' && number[0] <= '9';
    return number == "\xC2\xB9" || number == "\xC2\xB2" || number == "\xC2\xB3";
}

bool matchesPattern(std::string_view name, std::string_view pattern) {
    if (pattern.empty() || pattern == "*.*") return true;
    // On a mismatch the last "*" takes one character more; no recursion, so no pattern is slow.
    std::size_t inName = 0;
    std::size_t inPattern = 0;
    std::size_t star = std::string_view::npos;
    std::size_t starredFrom = 0;
    while (inName < name.size()) {
        if (inPattern < pattern.size() && pattern[inPattern] == '*') {
            star = inPattern++;
            starredFrom = inName;
        } else if (inPattern < pattern.size() && pattern[inPattern] == '?') {
            ++inPattern;
            inName = behindCharacter(name, inName);
        } else if (inPattern < pattern.size() && sameLetter(pattern[inPattern], name[inName])) {
            ++inPattern;
            ++inName;
        } else if (star != std::string_view::npos) {
            inPattern = star + 1;
            starredFrom = behindCharacter(name, starredFrom);
            inName = starredFrom;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', inPattern) == std::string_view::npos;
}

}  // namespace pellmark
