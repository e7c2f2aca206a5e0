#pragma once

#include "automation/Automation.h"

namespace norvex {

/// The description of an interface out of the type library inside this DLL.
HRESULT loadTypeInfo(REFIID interfaceId, ITypeInfo** info);

}  // namespace norvex
