#pragma once

#include <cstdint>
#include <string>

#include "base/Variant.h"

/// Conversions of values that may be of several types. The decimal separator of texts written here is always
/// a point, whatever the user's locale; number texts that are read may carry a decimal comma instead, since
/// older files and settings do.
namespace pellmark {

/// "" for an empty value, "True" or "False", the decimal digits of a number (15 significant digits of a
/// double, 7 of a float). Throws errors::kTypeMismatch for bytes and objects, which have no text.
std::string toText(const Variant& value);

/// 0 for an empty value, -1 for true; fractions round to the nearest integer, halves to the even one. Throws
/// errors::kTypeMismatch when a text is not a number (also for bytes and objects), errors::kOverflow when the
/// number does not fit.
std::int32_t toInt32(const Variant& value);

/// 0 for an empty value, -1 for true. Throws errors::kTypeMismatch when a text is not a number (also for
/// bytes and objects), errors::kOverflow when the number does not fit.
double toDouble(const Variant& value);

}  // namespace pellmark
