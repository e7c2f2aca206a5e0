#pragma once

#include "store/Connection.h"

namespace norvex {

/// Fills an empty knowledge base with users and sample machining data. Call inside a write transaction.
void writeSeedData(Connection& connection);

}  // namespace norvex
