#pragma once

#include <string>
#include <string_view>

#include "base/Text.h"

namespace pellmark {

/// UTF-8 to the system's UTF-16; malformed sequences become U+FFFD.
inline std::wstring toWide(std::string_view utf8) {
    const std::u16string utf16 = toUtf16(utf8);
    return {utf16.begin(), utf16.end()};
}

/// The system's UTF-16 to UTF-8; unpaired surrogates become U+FFFD.
inline std::string fromWide(std::wstring_view wide) {
    static_assert(sizeof(wchar_t) == sizeof(char16_t));
    return toUtf8({reinterpret_cast<const char16_t*>(wide.data()), wide.size()});
}

}  // namespace pellmark
