#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace pellmark {

/// The text as one line of at most so many UTF-16 units, for a place that must not grow with it: line breaks
/// and other control characters are blanks there, and of a longer text the beginning is left, with an
/// ellipsis for the rest.
std::string oneLine(std::string_view utf8, std::size_t mostUnits);

}  // namespace pellmark
