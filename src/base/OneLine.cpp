#include "base/OneLine.h"

#include <algorithm>

#include "base/Text.h"

namespace pellmark {

std::string oneLine(std::string_view utf8, std::size_t mostUnits) {
    constexpr char16_t kEllipsis = u'\u2026';
    std::u16string text = toUtf16(utf8);
    if (text.size() > mostUnits) {
        text.resize(firstUnits(text, std::max<std::size_t>(mostUnits, 1) - 1).size());
        text += kEllipsis;
    }
    std::replace_if(
        text.begin(), text.end(), [](char16_t unit) { return unit < u' '; }, u' ');
    return toUtf8(text);
}

}  // namespace pellmark
