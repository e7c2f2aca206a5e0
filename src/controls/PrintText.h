#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ports/Printer.h"

/// Texts on paper, in the font that the measure has set.
namespace pellmark {

/// The text as one line can show it: a tab becomes a blank, other control characters go.
std::string printableText(std::string_view text);

/// The lines into which a text falls at its line breaks and where a line would be wider than that: between
/// words, or within one that is wider alone. Nothing of the text is lost but the blank at which a line ends.
/// An empty text is one empty line.
std::vector<std::string> wrapText(TextMeasure& measure, std::string_view text, Twips width);

/// The text itself where it is not wider than that, otherwise as much of its beginning as leaves room for
/// three dots; "" where not even those have room.
std::string shortenText(TextMeasure& measure, std::string_view text, Twips width);

}  // namespace pellmark
