#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "knowledge/Records.h"

namespace pellmark {

/// Throws Error (kValueTooLong), naming the field and its limit, when the text has more UTF-16 units than
/// the field holds. A text is refused whole, never cut.
void checkLength(std::string_view text, std::size_t limitInUnits, const std::string& fieldName,
                 const std::string& source);

/// The limits of every text of a process, name first.
void checkLengths(const ProcessRecord& record, const std::string& source);

/// The limit of a step's name, which is that of a process's name.
void checkLengths(const ProcessStepRecord& record, const std::string& source);

}  // namespace pellmark
