#include "controls/PrintText.h"

#include <algorithm>

namespace pellmark {

namespace {

/// Bytes of the first character; 0 of an empty text.
std::size_t firstCharacter(std::string_view text) {
    std::size_t end = std::min<std::size_t>(1, text.size());
    while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U)
        ++end;
    return end;
}

/// Takes the first of the lines that a text's own breaks make off its beginning.
std::string_view takeLine(std::string_view& text) {
    const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end);
    text.remove_prefix(text.starts_with("\r\n") ? 2 : std::min<std::size_t>(1, text.size()));
    return line;
}

void wrapLine(TextMeasure& measure, std::string_view line, Twips width, std::vector<std::string>& lines) {
    for (;;) {
        const std::size_t fits = measure.fitting(line, width);
        if (fits >= line.size()) break;
        const std::size_t blank = line.rfind(' ', fits);
        if (blank != std::string_view::npos && blank > 0) {
            lines.emplace_back(line.substr(0, blank));
            line.remove_prefix(blank + 1);
        } else {
            const std::size_t end = std::max(fits, firstCharacter(line));
            lines.emplace_back(line.substr(0, end));
            line.remove_prefix(end);
        }
        if (line.empty()) return;
    }
    lines.emplace_back(line);
}

}  // namespace

std::string printableText(std::string_view text) {
    std::string printable;
    for (const char c : text) {
        if (c == '\t') {
            printable += ' ';
        } else if (static_cast<unsigned char>(c) >= 0x20) {
            printable += c;
        }
    }
    return printable;
}

std::vector<std::string> wrapText(TextMeasure& measure, std::string_view text, Twips width) {
    std::vector<std::string> lines;
    const bool endsInBreak = text.ends_with('\n') || text.ends_with('\r');
    while (!text.empty())
        wrapLine(measure, printableText(takeLine(text)), width, lines);
    if (lines.empty() || endsInBreak) lines.emplace_back();
    return lines;
}

std::string shortenText(TextMeasure& measure, std::string_view text, Twips width) {
    constexpr std::string_view kDots = "...";
    std::string whole = printableText(text);
    if (measure.fitting(whole, width) >= whole.size()) return whole;
    const Twips room = width - measure.textWidth(kDots);
    if (room < 0) return {};
    return whole.substr(0, measure.fitting(whole, room)) + std::string(kDots);
}

}  // namespace pellmark
