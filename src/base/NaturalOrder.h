#pragma once

#include <string>
#include <string_view>

namespace pellmark {

/// Less than zero, zero or more than zero as `left` stands before, beside or after `right` in a list that a
/// person reads: runs of digits compare by their value ("Drill 9" before "Drill 10"), letters without case.
/// Texts are UTF-8; malformed bytes compare as U+FFFD. Texts that differ only in case or in leading zeros are
/// equal.
int compareNatural(std::string_view left, std::string_view right);

/// Bytes that stand in the same order when compared as such (std::string's own order, memcmp, an index of a
/// database): for sorting many texts. They are not text.
std::string naturalKey(std::string_view text);

}  // namespace pellmark
