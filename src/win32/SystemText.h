#pragma once

#include <string>

#include "win32/WindowsApi.h"

namespace pellmark {

/// What the system says about an error code, without its line break; its number when it says nothing.
std::string systemText(DWORD systemError);

}  // namespace pellmark
