#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// Text is UTF-8 everywhere in the core; these are the few operations that need to know its encoding.
namespace pellmark {

/// Converts UTF-8 to UTF-16. Malformed sequences become U+FFFD, so the call never fails.
std::u16string toUtf16(std::string_view utf8);

/// Converts UTF-16 to UTF-8. Unpaired surrogates become U+FFFD, so the call never fails.
std::string toUtf8(std::u16string_view utf16);

/// Length in UTF-16 units, which is how an engineer's edit box counts characters.
std::size_t utf16Length(std::string_view utf8);

/// The first units of a text: so many, or one fewer where a character would be cut in two. The whole text
/// where it is no longer. A view of the text given.
std::u16string_view firstUnits(std::u16string_view text, std::size_t most);

/// True when both texts are equal but for the case of ASCII letters: column keys, GUID text, extensions.
bool equalNoCase(std::string_view left, std::string_view right);

/// ASCII letters in lower case, everything else as it is.
std::string lowerAscii(std::string_view text);

/// The pieces between separators, empty ones included; an empty text gives one empty piece.
std::vector<std::string> split(std::string_view text, char separator);

/// A copy of text with every occurrence of one character replaced by another.
std::string replaced(std::string text, char from, char to);

/// The first code point of a text, or 0 when it is empty.
char32_t firstCodePoint(std::string_view utf8);

}  // namespace pellmark
