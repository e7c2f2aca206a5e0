#pragma once

#include <string>
#include <string_view>

namespace pellmark {

/// UTF-8 to the system's UTF-16; malformed sequences become U+FFFD.
std::wstring toWide(std::string_view utf8);

/// The system's UTF-16 to UTF-8; unpaired surrogates become U+FFFD.
std::string fromWide(std::wstring_view wide);

}  // namespace pellmark
