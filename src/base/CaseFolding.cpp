#include "base/CaseFolding.h"

namespace pellmark {

char16_t foldCase(char16_t unit) {
    const auto within = [unit](char16_t first, char16_t last) { return unit >= first && unit <= last; };
    if (within(u'A', u'Z')) return static_cast<char16_t>(unit + 0x20);
    if (within(0x00C0, 0x00DE) && unit != 0x00D7) return static_cast<char16_t>(unit + 0x20);  // Latin-1
    if (within(0x0391, 0x03A9)) return static_cast<char16_t>(unit + 0x20);                    // Greek
    if (within(0x0410, 0x042F)) return static_cast<char16_t>(unit + 0x20);                    // Cyrillic
    if (within(0x0400, 0x040F)) return static_cast<char16_t>(unit + 0x50);
    // The dotted capital I and the dotless small one are no pair.
    if (within(0x0130, 0x0131)) return unit;
    // Latin Extended-A pairs capitals and small letters; where a pair starts changes within the block.
    if (within(0x0100, 0x0137) || within(0x014A, 0x0177)) return static_cast<char16_t>(unit | 1U);
    if (within(0x0139, 0x0148) || within(0x0179, 0x017E)) {
        return static_cast<char16_t>(unit % 2 == 1 ? unit + 1 : unit);
    }
    return unit;
}

void foldCaseOf(std::string& text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if (byte >= 'A' && byte <= 'Z') {
            text[i] = static_cast<char>(byte + 0x20);
        } else if (byte >= 0xC3 && byte <= 0xD0 && i + 1 < text.size()) {
            // Capital and small letters of these scripts take two bytes alike.
            const auto next = static_cast<unsigned char>(text[i + 1]);
            if ((next & 0xC0U) != 0x80U) continue;
            const char16_t unit = foldCase(static_cast<char16_t>((byte & 0x1FU) << 6U | (next & 0x3FU)));
            text[i++] = static_cast<char>(0xC0U | unit >> 6U);
            text[i] = static_cast<char>(0x80U | (unit & 0x3FU));
        }
    }
}

bool FoldedNeedle::isIn(std::string_view text) {
    other_ = text;
    foldCaseOf(other_);
    return other_.find(folded_) != std::string::npos;
}

}  // namespace pellmark
