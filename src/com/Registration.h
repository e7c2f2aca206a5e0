#pragma once

#include "win32/WindowsApi.h"

#include <string>
#include <vector>

/// Registration of the class and of its type library, for everybody or for the current user alone.
namespace pellmark {

/// One registry value below Software\Classes; an empty name is the key's default value.
struct RegistrationEntry {
    std::wstring key;
    std::wstring name;
    std::wstring value;
};

/// Everything that registration writes for a DLL at this path.
std::vector<RegistrationEntry> registrationEntries(const std::wstring& dllPath);

/// HKEY_LOCAL_MACHINE registers for everybody, HKEY_CURRENT_USER for the user. Either everything is written
/// or, after a failure, nothing is left; the answer is S_OK or the system's code.
HRESULT registerServer(HKEY hive, const std::wstring& dllPath);

/// Removing what is not there is no failure.
HRESULT unregisterServer(HKEY hive);

}  // namespace pellmark
