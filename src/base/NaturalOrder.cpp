#include "base/NaturalOrder.h"

#include <algorithm>
#include <cstddef>
#include <string>

#include "base/CaseFolding.h"
#include "base/Text.h"

namespace pellmark {

namespace {

bool isDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

struct Digits {
    std::size_t begin;  ///< leading zeros left out
    std::size_t end;
    std::size_t count() const { return end - begin; }
};

Digits digitsAt(const std::u16string& text, std::size_t at) {
    Digits digits{at, at};
    while (digits.end < text.size() && isDigit(text[digits.end]))
        ++digits.end;
    while (digits.begin < digits.end && text[digits.begin] == u'0')
        ++digits.begin;
    return digits;
}

/// Compares by value however long the runs are, so that no number is too large.
int compareDigits(const std::u16string& left, const Digits& l, const std::u16string& right, const Digits& r) {
    if (l.count() != r.count()) return l.count() < r.count() ? -1 : 1;
    return left.compare(l.begin, l.count(), right, r.begin, r.count());
}

}  // namespace

int compareNatural(std::string_view left, std::string_view right) {
    const std::u16string l = toUtf16(left);
    const std::u16string r = toUtf16(right);
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < l.size() && j < r.size()) {
        if (isDigit(l[i]) && isDigit(r[j])) {
            const Digits ofLeft = digitsAt(l, i);
            const Digits ofRight = digitsAt(r, j);
            if (const int order = compareDigits(l, ofLeft, r, ofRight); order != 0) return order;
            i = ofLeft.end;
            j = ofRight.end;
            continue;
        }
        const char16_t a = foldCase(l[i++]);
        const char16_t b = foldCase(r[j++]);
        if (a != b) return a < b ? -1 : 1;
    }
    return static_cast<int>(i < l.size()) - static_cast<int>(j < r.size());
}

std::string naturalKey(std::string_view text) {
    const std::u16string units = toUtf16(text);
    std::string key;
    key.reserve(2 * units.size());
    const auto put = [&key](char16_t unit) {
        key += static_cast<char>(unit >> 8U);
        key += static_cast<char>(unit & 0xFFU);
    };
    for (std::size_t i = 0; i < units.size();) {
        if (!isDigit(units[i])) {
            put(foldCase(units[i++]));
            continue;
        }
        // One unit for "a number stands here", then how long it is, then the digits: longer is larger.
        const Digits digits = digitsAt(units, i);
        put(u'0');
        put(static_cast<char16_t>(std::min<std::size_t>(digits.count(), 0xFFFF)));
        for (std::size_t at = digits.begin; at < digits.end; ++at)
            key += static_cast<char>(units[at]);
        i = digits.end;
    }
    return key;
}

}  // namespace pellmark
