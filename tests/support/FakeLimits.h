#pragma once

#include "knowledge/Records.h"

namespace pellmark::test {

/// Throws Error (value too long) for the first text that its field cannot hold, as every knowledge base does.
void checkLengths(const ProcessRecord& record);
void checkLengths(const ProcessStepRecord& record);

}  // namespace pellmark::test
