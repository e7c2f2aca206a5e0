#pragma once

#include <string>
#include <string_view>

namespace pellmark {

/// Appends one cell of a delimited text, quoted by RFC 4180 when it holds the separator, a quote or a line
/// break, as it is otherwise.
inline void appendDelimitedCell(std::string& out, std::string_view cell, char separator) {
    const char special[] = {separator, '"', '\r', '\n'};
    if (cell.find_first_of(std::string_view(special, sizeof special)) == std::string_view::npos) {
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
