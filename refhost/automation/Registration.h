#pragma once

#include "automation/Registration.h"

namespace norvex {

/// The host's classes and its type library.
const pellmark::Server& hostServer();

}  // namespace norvex
