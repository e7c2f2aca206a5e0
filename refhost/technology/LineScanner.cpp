#include "refhost/technology/LineScanner.h"

#include <algorithm>
#include <charconv>

#include "refhost/technology/Operation.h"

namespace norvex {

namespace {

constexpr std::string_view kBlanks = " \t";

}  // namespace

void LineScanner::skipBlanks() {
    rest_.remove_prefix(std::min(rest_.find_first_not_of(kBlanks), rest_.size()));
}

bool LineScanner::atEnd() {
    skipBlanks();
    return rest_.empty() || rest_.front() == '#';
}

std::string_view LineScanner::word() {
    if (atEnd()) return {};
    const std::string_view found = rest_.substr(0, rest_.find_first_of(kBlanks));
    rest_.remove_prefix(found.size());
    return found;
}

std::optional<std::int32_t> LineScanner::integer() {
    const std::string_view digits = word();
    std::int32_t number = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (result.ec != std::errc() || result.ptr != digits.data() + digits.size()) return std::nullopt;
    return number;
}

std::optional<double> LineScanner::number() {
    double found = 0;
    if (!readNumber(std::string(word()), found)) return std::nullopt;
    return found;
}

bool LineScanner::take(char character) {
    skipBlanks();
    if (rest_.empty() || rest_.front() != character) return false;
    rest_.remove_prefix(1);
    return true;
}

bool LineScanner::isText() {
    skipBlanks();
    return !rest_.empty() && rest_.front() == '"';
}

std::optional<std::string> LineScanner::text() {
    if (!take('"')) return std::nullopt;
    std::string found;
    while (!rest_.empty()) {
        const char character = rest_.front();
        rest_.remove_prefix(1);
        if (character == '"') return found;
        if (character != '\\') {
            found += character;
        } else if (!unescape(found)) {
            return std::nullopt;
        }
    }
    return std::nullopt;
}

bool LineScanner::unescape(std::string& into) {
    constexpr std::string_view kNames = "\"\\nrt";
    constexpr std::string_view kMeanings = "\"\\\n\r\t";
    if (rest_.empty()) return false;
    const std::size_t at = kNames.find(rest_.front());
    if (at != std::string_view::npos) {
        into += kMeanings[at];
        rest_.remove_prefix(1);
        return true;
    }
    constexpr std::size_t kLength = 5;  // "u" and four digits
    if (rest_.front() != 'u' || rest_.size() < kLength) return false;
    unsigned value = 0;
    const auto result = std::from_chars(rest_.data() + 1, rest_.data() + kLength, value, 16);
    const bool isControl = value < 0x20 || value == 0x7F;
    if (result.ptr != rest_.data() + kLength || !isControl) return false;
    into += static_cast<char>(value);
    rest_.remove_prefix(kLength);
    return true;
}

}  // namespace norvex
