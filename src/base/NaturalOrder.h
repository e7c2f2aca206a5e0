#pragma once

#include <string_view>

namespace pellmark {

/// Less than zero, zero or more than zero as `left` stands before, beside or after `right` in a list that a
/// person reads: runs of digits compare by their value ("Drill 9" before "Drill 10"), letters without case.
/// Texts are UTF-8; malformed bytes compare as U+FFFD. Texts that differ only in case or in leading zeros are
/// equal.
int compareNatural(std::string_view left, std::string_view right);

}  // namespace pellmark
