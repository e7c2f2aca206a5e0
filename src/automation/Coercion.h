#pragma once

#include "win32/WindowsApi.h"

#include <oleauto.h>

#include <cstdint>
#include <string>
#include <vector>

#include "automation/Automation.h"

/// Turns what scripts really pass into what a method takes. Variables arrive as references to variants,
/// arrays as arrays of variants, numbers in whatever type the language prefers. What cannot be understood
/// throws CallError with DISP_E_TYPEMISMATCH or DISP_E_OVERFLOW and a text without the argument's name.
namespace pellmark {

/// The variant behind any chain of references to variants.
const VARIANT& innermost(const VARIANT& value);

/// What a caller has passed, in words, for a text that says why it was refused: "the text 'abc'", "an
/// object".
std::string describe(const VARIANT& value);

/// True for an argument that the caller left out.
bool isMissing(const VARIANT& value);

/// The object; null for Nothing, Empty and Null.
ComPtr<IDispatch> toObject(const VARIANT& value);

/// Rounds as automation does. Texts of numbers count as numbers.
std::int16_t toInt16(const VARIANT& value);
std::int32_t toInt32(const VARIANT& value);

/// UTF-8; Empty is the empty text.
std::string toText(const VARIANT& value);

/// An array of texts or of variants; a single text is an array of one, Empty an array of none. An object with
/// a length and numbered members, which is what some script languages call an array, is one too.
std::vector<std::string> toTexts(const VARIANT& value);

/// The same of an array alone; a null array is empty.
std::vector<std::string> toTexts(SAFEARRAY* array);

}  // namespace pellmark
