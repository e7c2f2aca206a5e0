#pragma once

#include "knowledge/Records.h"

namespace norvex {

/// Throws HostError (kValueTooLong) for the first text that has more UTF-16 units than its field holds. A
/// text is refused whole, never cut.
void checkLengths(const pellmark::ProcessRecord& record);
void checkLengths(const pellmark::ProcessStepRecord& record);

}  // namespace norvex
