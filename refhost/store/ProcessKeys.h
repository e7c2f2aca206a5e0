#pragma once

#include "refhost/store/Connection.h"

namespace norvex {

/// Gives every process that lacks them its keys of the natural order. Cheap where none does. Throws
/// pellmark::Error when the file cannot be written.
void completeProcessKeys(Connection& connection);

}  // namespace norvex
