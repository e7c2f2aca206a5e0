#include "base/NaturalOrder.h"

#include <algorithm>
#include <cstddef>
#include <string>

#include "base/Text.h"

namespace pellmark {

namespace {

bool isDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

/// Lower case of the scripts that the host is sold in; the standard library's own depends on the locale of
/// the process, which belongs to the host.
char16_t folded(char16_t unit) {
    const auto within = [unit](char16_t first, char16_t last) { return unit >= first && unit <= last; };
    if (within(u'A', u'Z')) return static_cast<char16_t>(unit + 0x20);
    if (within(0x00C0, 0x00DE) && unit != 0x00D7) return static_cast<char16_t>(unit + 0x20);  // Latin-1
    if (within(0x0391, 0x03A9)) return static_cast<char16_t>(unit + 0x20);                    // Greek
    if (within(0x0410, 0x042F)) return static_cast<char16_t>(unit + 0x20);                    // Cyrillic
    if (within(0x0400, 0x040F)) return static_cast<char16_t>(unit + 0x50);
    // Latin Extended-A pairs capitals and small letters; where a pair starts changes within the block.
    if (within(0x0100, 0x0137) || within(0x014A, 0x0177)) return static_cast<char16_t>(unit | 1U);
    if (within(0x0139, 0x0148) || within(0x0179, 0x017E)) {
        return static_cast<char16_t>(unit % 2 == 1 ? unit + 1 : unit);
    }
    return unit;
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
        const char16_t a = folded(l[i++]);
        const char16_t b = folded(r[j++]);
        if (a != b) return a < b ? -1 : 1;
    }
    return static_cast<int>(i < l.size()) - static_cast<int>(j < r.size());
}

}  // namespace pellmark
