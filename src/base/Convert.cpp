#include "base/Convert.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string_view>
#include <type_traits>

#include "base/Error.h"
#include "base/Text.h"

namespace pellmark {

namespace {

constexpr char kSource[] = "Convert";
constexpr int kDoubleDigits = 15;
constexpr int kFloatDigits = 7;

[[noreturn]] void throwMismatch(const std::string& what) {
    throw Error(errors::kTypeMismatch, kSource, "Type mismatch: " + what + ".");
}

[[noreturn]] void throwOverflow(const std::string& number) {
    throw Error(errors::kOverflow, kSource, "Overflow: " + number + " is out of range.");
}

/// Digits of a number as people of the trade know them from other automation programs: no trailing zeros,
/// an exponent as "1E+20", no sign on zero.
template <class Number>
std::string numberText(Number number, int significantDigits) {
    if (number == 0) return "0";
    char buffer[64];
    const auto result =
        std::to_chars(buffer, buffer + sizeof(buffer), number, std::chars_format::general, significantDigits);
    std::string text(buffer, result.ptr);
    std::replace(text.begin(), text.end(), 'e', 'E');
    return text;
}

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

double parseNumber(const std::string& text) {
    std::string digits(trimmed(text));
    if (digits.find('.') == std::string::npos && std::count(digits.begin(), digits.end(), ',') == 1) {
        digits = replaced(std::move(digits), ',', '.');
    }
    std::size_t start = 0;
    if (!digits.empty() && digits.front() == '+') start = 1;
    // from_chars knows "inf" and "nan", which are words and no numbers to a user, and takes a "-" after the
    // "+".
    const bool numeric = digits.find_first_not_of("0123456789.eE+-") == std::string::npos;
    if (!numeric || (start == 1 && digits.size() > 1 && digits[1] == '-')) {
        throwMismatch("\"" + text + "\" is not a number");
    }
    double number = 0;
    const char* const end = digits.data() + digits.size();
    const auto result = std::from_chars(digits.data() + start, end, number);
    if (result.ec == std::errc::result_out_of_range) throwOverflow(text);
    if (result.ec != std::errc() || result.ptr != end) throwMismatch("\"" + text + "\" is not a number");
    return number;
}

/// Rounds halves to even without regard to the floating-point environment, which belongs to the host.
double roundHalfToEven(double number) {
    const double below = std::floor(number);
    const double fraction = number - below;
    if (fraction < 0.5) return below;
    if (fraction > 0.5) return below + 1;
    return std::fmod(below, 2) == 0 ? below : below + 1;
}

}  // namespace

std::string toText(const Variant& value) {
    return std::visit(
        [](const auto& held) -> std::string {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, std::monostate>) {
                return "";
            } else if constexpr (std::is_same_v<Held, bool>) {
                return held ? "True" : "False";
            } else if constexpr (std::is_integral_v<Held>) {
                return std::to_string(held);
            } else if constexpr (std::is_same_v<Held, float>) {
                return numberText(held, kFloatDigits);
            } else if constexpr (std::is_same_v<Held, double>) {
                return numberText(held, kDoubleDigits);
            } else if constexpr (std::is_same_v<Held, std::string>) {
                return held;
            } else {
                throwMismatch("bytes and objects have no text");
            }
        },
        value);
}

double toDouble(const Variant& value) {
    return std::visit(
        [](const auto& held) -> double {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, std::monostate>) {
                return 0;
            } else if constexpr (std::is_same_v<Held, bool>) {
                return held ? -1 : 0;
            } else if constexpr (std::is_arithmetic_v<Held>) {
                return held;
            } else if constexpr (std::is_same_v<Held, std::string>) {
                return parseNumber(held);
            } else {
                throwMismatch("bytes and objects are not numbers");
            }
        },
        value);
}

std::int32_t toInt32(const Variant& value) {
    using Limits = std::numeric_limits<std::int32_t>;
    const double rounded = roundHalfToEven(toDouble(value));
    // Written so that a value that is not a number fails, too.
    if (!(rounded >= Limits::min() && rounded <= Limits::max())) throwOverflow(toText(value));
    return static_cast<std::int32_t>(rounded);
}

}  // namespace pellmark
