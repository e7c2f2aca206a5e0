#include "support/PortableCodePage.h"

#include <algorithm>
#include <array>

#include "base/Text.h"

namespace pellmark::test {

namespace {

/// What the bytes from 0x80 to 0x9F mean; the five unassigned ones stand for themselves.
constexpr std::array<char16_t, 32> kHighControls{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr unsigned kFirst = 0x80;
constexpr unsigned kBehind = 0xA0;

char ansiOf(char16_t unit) {
    if (unit < kFirst || (unit >= kBehind && unit <= 0xFF)) return static_cast<char>(unit);
    const auto* const found = std::find(kHighControls.begin(), kHighControls.end(), unit);
    if (found == kHighControls.end()) return '?';
    return static_cast<char>(kFirst + static_cast<unsigned>(found - kHighControls.begin()));
}

}  // namespace

std::string PortableCodePage::toAnsi(std::string_view utf8) const {
    std::string ansi;
    for (const char16_t unit : toUtf16(utf8))
        ansi += ansiOf(unit);
    return ansi;
}

std::string PortableCodePage::fromAnsi(std::string_view ansi) const {
    std::u16string units;
    for (const char c : ansi) {
        const auto byte = static_cast<unsigned char>(c);
        units += byte >= kFirst && byte < kBehind ? kHighControls[byte - kFirst] : char16_t{byte};
    }
    return toUtf8(units);
}

}  // namespace pellmark::test
