#include "util/CodePageText.h"

#include <algorithm>

namespace pellmark {

namespace {

bool isAscii(char c) {
    return static_cast<unsigned char>(c) < 0x80;
}

/// Bytes that continue a character of UTF-8.
bool isContinuation(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

}  // namespace

std::string CodePageText::encode(std::string_view utf8) {
    // ASCII is the same in every code page, and most of what is written here is nothing else.
    if (std::all_of(utf8.begin(), utf8.end(), isAscii)) return std::string(utf8);
    std::string ansi = codePage_.toAnsi(utf8);
    if (codePage_.fromAnsi(ansi) != utf8) countLost(utf8);
    return ansi;
}

void CodePageText::countLost(std::string_view utf8) {
    for (std::size_t at = 0; at < utf8.size();) {
        std::size_t end = at + 1;
        while (end < utf8.size() && isContinuation(utf8[end]))
            ++end;
        const std::string_view character = utf8.substr(at, end - at);
        at = end;
        if (isAscii(character.front()) || codePage_.fromAnsi(codePage_.toAnsi(character)) == character)
            continue;
        if (lost_++ == 0) firstLost_ = character;
    }
}

}  // namespace pellmark
