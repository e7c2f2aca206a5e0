#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace pellmark {

/// Throws Error (kValueTooLong), naming the field and its limit, when the text has more UTF-16 units than
/// the field holds. A text is refused whole, never cut.
void checkLength(std::string_view text, std::size_t limitInUnits, const std::string& fieldName,
                 const std::string& source);

}  // namespace pellmark
