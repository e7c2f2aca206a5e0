#pragma once

#include <string>

namespace pellmark {

/// A heading of the process grid in feature-case mode: in "( " and " )" when it begins with U+8A18, U+52A0
/// or U+540D, as certain localised resource files need it; unchanged otherwise.
std::string BracketHeading(const std::string& text);

}  // namespace pellmark
