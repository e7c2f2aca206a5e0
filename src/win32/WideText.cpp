#include "win32/WideText.h"

#include "base/Text.h"

namespace pellmark {

std::wstring toWide(std::string_view utf8) {
    const std::u16string utf16 = toUtf16(utf8);
    return {utf16.begin(), utf16.end()};
}

std::string fromWide(std::wstring_view wide) {
    return toUtf8(std::u16string(wide.begin(), wide.end()));
}

}  // namespace pellmark
