#include "base/Text.h"

#include <algorithm>

namespace pellmark {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

char asciiLower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// Of a pair of UTF-16 units that are one character.
bool isFirstHalf(char16_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool isSecondHalf(char16_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

bool isContinuation(unsigned char byte) {
    return (byte & 0xC0U) == 0x80U;
}

/// Decodes one code point and moves position behind it; a malformed byte yields U+FFFD and is skipped alone.
char32_t decode(std::string_view text, std::size_t& position) {
    const auto lead = static_cast<unsigned char>(text[position++]);
    if (lead < 0x80U) return lead;
    int following = 0;
    char32_t code = 0;
    char32_t smallest = 0;
    if ((lead & 0xE0U) == 0xC0U) {
        following = 1, code = lead & 0x1FU, smallest = 0x80;
    } else if ((lead & 0xF0U) == 0xE0U) {
        following = 2, code = lead & 0x0FU, smallest = 0x800;
    } else if ((lead & 0xF8U) == 0xF0U) {
        following = 3, code = lead & 0x07U, smallest = 0x10000;
    } else {
        return kReplacement;
    }
    std::size_t next = position;
    for (int i = 0; i < following; ++i, ++next) {
        if (next >= text.size() || !isContinuation(static_cast<unsigned char>(text[next])))
            return kReplacement;
        code = (code << 6U) | (static_cast<unsigned char>(text[next]) & 0x3FU);
    }
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    if (code < smallest || code > 0x10FFFF || surrogate) return kReplacement;
    position = next;
    return code;
}

void encode(char32_t code, std::string& out) {
    if (code < 0x80) {
        out += static_cast<char>(code);
    } else if (code < 0x800) {
        out += static_cast<char>(0xC0U | (code >> 6U));
        out += static_cast<char>(0x80U | (code & 0x3FU));
    } else if (code < 0x10000) {
        out += static_cast<char>(0xE0U | (code >> 12U));
        out += static_cast<char>(0x80U | ((code >> 6U) & 0x3FU));
        out += static_cast<char>(0x80U | (code & 0x3FU));
    } else {
        out += static_cast<char>(0xF0U | (code >> 18U));
        out += static_cast<char>(0x80U | ((code >> 12U) & 0x3FU));
        out += static_cast<char>(0x80U | ((code >> 6U) & 0x3FU));
        out += static_cast<char>(0x80U | (code & 0x3FU));
    }
}

}  // namespace

std::u16string toUtf16(std::string_view utf8) {
    std::u16string out;
    out.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        const char32_t code = decode(utf8, at);
        if (code < 0x10000) {
            out += static_cast<char16_t>(code);
        } else {
            out += static_cast<char16_t>(0xD800U + ((code - 0x10000) >> 10U));
            out += static_cast<char16_t>(0xDC00U + ((code - 0x10000) & 0x3FFU));
        }
    }
    return out;
}

std::string toUtf8(std::u16string_view utf16) {
    std::string out;
    out.reserve(utf16.size());
    for (std::size_t at = 0; at < utf16.size(); ++at) {
        char32_t code = utf16[at];
        const bool isFirst = isFirstHalf(utf16[at]);
        if (isFirst && at + 1 < utf16.size() && isSecondHalf(utf16[at + 1])) {
            code = 0x10000 + ((code - 0xD800) << 10U) + (utf16[++at] - 0xDC00U);
        } else if (isFirst || isSecondHalf(utf16[at])) {
            code = kReplacement;
        }
        encode(code, out);
    }
    return out;
}

std::size_t utf16Length(std::string_view utf8) {
    std::size_t units = 0;
    for (std::size_t at = 0; at < utf8.size();)
        units += decode(utf8, at) < 0x10000 ? 1 : 2;
    return units;
}

std::u16string_view firstUnits(std::u16string_view text, std::size_t most) {
    if (text.size() <= most) return text;
    const bool isWithinCharacter = most > 0 && isFirstHalf(text[most - 1]) && isSecondHalf(text[most]);
    return text.substr(0, isWithinCharacter ? most - 1 : most);
}

bool equalNoCase(std::string_view left, std::string_view right) {
    return left.size() == right.size() &&
           std::equal(left.begin(), left.end(), right.begin(),
                      [](char a, char b) { return asciiLower(a) == asciiLower(b); });
}

std::string lowerAscii(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), asciiLower);
    return lower;
}

std::vector<std::string> split(std::string_view text, char separator) {
    std::vector<std::string> pieces;
    std::size_t start = 0;
    while (true) {
        const std::size_t end = text.find(separator, start);
        pieces.emplace_back(text.substr(start, end - start));
        if (end == std::string_view::npos) return pieces;
        start = end + 1;
    }
}

std::string replaced(std::string text, char from, char to) {
    std::replace(text.begin(), text.end(), from, to);
    return text;
}

char32_t firstCodePoint(std::string_view utf8) {
    std::size_t at = 0;
    return utf8.empty() ? 0 : decode(utf8, at);
}

}  // namespace pellmark
