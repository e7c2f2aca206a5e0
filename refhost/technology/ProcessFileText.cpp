#include "refhost/technology/ProcessFileText.h"

#include <cstdio>

namespace norvex::processfile {

namespace {

/// Length of the sequence that begins with this byte and its least code point; 0 for no beginning.
struct Sequence {
    std::size_t length;
    char32_t least;
};

Sequence sequenceOf(unsigned char first) {
    if (first < 0x80) return {1, 0};
    if ((first & 0xE0) == 0xC0) return {2, 0x80};
    if ((first & 0xF0) == 0xE0) return {3, 0x800};
    if ((first & 0xF8) == 0xF0) return {4, 0x10000};
    return {0, 0};
}

}  // namespace

std::string quoted(std::string_view text) {
    std::string result = "\"";
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (character == '"' || character == '\\') {
            result += '\\';
            result += character;
        } else if (character == '\n') {
            result += "\\n";
        } else if (character == '\r') {
            result += "\\r";
        } else if (character == '\t') {
            result += "\\t";
        } else if (byte < 0x20 || byte == 0x7F) {
            char code[8];
            std::snprintf(code, sizeof(code), "\\u%04X", byte);
            result += code;
        } else {
            result += character;
        }
    }
    return result + '"';
}

bool isUtf8(std::string_view bytes) {
    for (std::size_t at = 0; at < bytes.size();) {
        const auto first = static_cast<unsigned char>(bytes[at]);
        const Sequence sequence = sequenceOf(first);
        if (sequence.length == 0 || bytes.size() - at < sequence.length) return false;
        char32_t point = sequence.length == 1 ? first : first & (0x7FU >> sequence.length);
        for (std::size_t next = at + 1; next < at + sequence.length; ++next) {
            const auto byte = static_cast<unsigned char>(bytes[next]);
            if ((byte & 0xC0) != 0x80) return false;
            point = (point << 6U) | (byte & 0x3FU);
        }
        const bool isSurrogate = point >= 0xD800 && point <= 0xDFFF;
        if (point < sequence.least || point > 0x10FFFF || isSurrogate) return false;
        at += sequence.length;
    }
    return true;
}

}  // namespace norvex::processfile
