#pragma once

#include <windows.h>

namespace norvex {

/// A class that clients create by its ProgID.
struct CreatableClass {
    GUID id;
    const wchar_t* progId;
    const wchar_t* description;
};

inline constexpr std::size_t kCreatableClasses = 5;
extern const CreatableClass kClasses[kCreatableClasses];

/// Writes the classes and the type library below Software\Classes of the hive, for the DLL that this code is
/// part of. After a failure nothing is left behind. The answer is S_OK or the system's code.
HRESULT registerLibrary(HKEY hive);
/// Removing what is not there is no failure.
HRESULT unregisterLibrary(HKEY hive);

}  // namespace norvex
