#include "processes/BracketHeading.h"

#include "base/Text.h"

namespace pellmark {

std::string BracketHeading(const std::string& text) {
    const char32_t first = firstCodePoint(text);
    const bool bracketed = first == U'\u8A18' || first == U'\u52A0' || first == U'\u540D';
    return bracketed ? "( " + text + " )" : text;
}

}  // namespace pellmark
