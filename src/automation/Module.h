#pragma once

#include "win32/WindowsApi.h"

#include <string>

namespace pellmark::module {

/// Held by everything that keeps the DLL loaded: automation objects, class factories, locks of a server.
class Lock {
  public:
    Lock() noexcept { add(); }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;
    ~Lock() { remove(); }

    /// For LockServer, whose two calls share no object.
    static void add() noexcept;
    static void remove() noexcept;
    static bool any() noexcept;
};

/// The module that this code is part of, found by address: no work in DllMain, and right in a test program
/// too.
HINSTANCE instance() noexcept;

/// Full path of a module, of any length; the program's for a null module. Throws std::runtime_error when the
/// system does not say.
std::wstring pathOf(HMODULE module);

/// Full path of the module that this code is part of.
inline std::wstring path() {
    return pathOf(instance());
}

}  // namespace pellmark::module
