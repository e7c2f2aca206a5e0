#pragma once

#include "win32/WindowsApi.h"
#include "win32/table/ShownTable.h"

namespace pellmark {

/// The answer to a list window that asks which row begins with what a person has typed: the first one from
/// where the window wants the search to begin, over the end to the beginning, case ignored. -1 when there is
/// none, or none near enough: rows are read one by one, and reading all of a long list takes too long.
int findTyped(const ShownTable& table, const NMLVFINDITEMW& wanted);

}  // namespace pellmark
