#pragma once

#include "controls/grid/ColumnTable.h"
#include "knowledge/Records.h"

namespace pellmark {

/// The columns of the step list; the first is the fixed one.
inline constexpr const char* kFixedColumn = "FixedRow";
inline constexpr ColumnSpec kStepColumns[] = {
    {.heading = "", .key = kFixedColumn, .width = 750},
    {.heading = "ID", .key = field::kId, .width = 1000, .internal = true},
    {.heading = "ProcessID", .key = field::kProcessId, .width = 1000, .internal = true},
    {.heading = "Priority", .key = field::kPriority, .width = 1000, .internal = true, .editable = true},
    {.heading = "Name", .key = field::kName, .width = 4000, .editable = true},
    {.heading = "Cutting Cycle", .key = field::kCuttingCycleId, .width = 2000, .editable = true},
};

/// The cutting-cycle types that a listed step may be given, in the order in which they are offered.
inline constexpr int kListedCycleTypes[] = {6, 8, 4, 101, 104};

}  // namespace pellmark
