#pragma once

#include "win32/WindowsApi.h"

#include <oaidl.h>

#include "automation/Automation.h"

namespace pellmark {

/// A type of the library that is embedded in this module, registered or not. Throws CallError with the
/// system's code when it cannot be loaded.
ComPtr<ITypeInfo> loadTypeInfo(REFGUID id);

}  // namespace pellmark
