#pragma once

#include "win32/WindowsApi.h"

#include <span>
#include <string>
#include <vector>

/// Registration of a DLL's classes and of its type library, for everybody or for the current user alone.
namespace pellmark {

/// A class that clients create by its name.
struct RegisteredClass {
    GUID id;
    const wchar_t* progId;
    const wchar_t* description;
};

/// An interface that is called from other apartments as the type library describes it.
struct RegisteredInterface {
    GUID id;
    const wchar_t* name;
};

/// What a DLL is known for, in version 1.0.
struct Server {
    const char* name;  ///< in error texts
    GUID typeLibrary;
    const wchar_t* description;  ///< of the type library
    std::span<const RegisteredClass> classes;
    std::span<const RegisteredInterface> interfaces;
};

/// One registry value below Software\Classes; an empty name is the key's default value.
struct RegistrationEntry {
    std::wstring key;
    std::wstring name;
    std::wstring value;
};

/// Everything that registration writes for a DLL at this path.
std::vector<RegistrationEntry> registrationEntries(const Server& server, const std::wstring& dllPath);

/// HKEY_LOCAL_MACHINE registers for everybody, HKEY_CURRENT_USER for the user. Either everything is written
/// or, after a failure, nothing is left; the answer is S_OK or the system's code.
HRESULT registerServer(const Server& server, HKEY hive, const std::wstring& dllPath);

/// Removing what is not there is no failure.
HRESULT unregisterServer(const Server& server, HKEY hive);

/// Answers the exports that install the DLL that this code is part of, or take that back. `regsvr32 /i:user`
/// passes "user", for the current user alone; no text means everybody, any other is E_INVALIDARG.
HRESULT installServer(const Server& server, bool install, const wchar_t* commandLine) noexcept;

}  // namespace pellmark
