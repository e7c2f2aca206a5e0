#pragma once

#include "refhost/store/Connection.h"
#include "refhost/technology/CuttingTable.h"

namespace norvex {

/// Fills the table of speeds and feeds with the usual starting values.
void writeCuttingData(Connection& connection);

/// The table as the knowledge base has it; rows for a kind of work that this program does not know are left
/// out.
CuttingTable readCuttingData(Connection& connection);

}  // namespace norvex
