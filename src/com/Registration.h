#pragma once

#include "automation/Registration.h"

namespace pellmark {

/// The component's class, its interface and its type library.
const Server& componentServer();

}  // namespace pellmark
