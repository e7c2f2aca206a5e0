#pragma once

#include <stdexcept>

#include "com/LoadedServer.h"

namespace pellmark {

/// A library with the usual entry points, registered for everybody while this lives.
class RegisteredLibrary {
  public:
    explicit RegisteredLibrary(const wchar_t* dll)
        : module_(LoadLibraryW((programFolder() + L"\\" + dll).c_str())) {
        if (module_ == nullptr || FAILED(call("DllRegisterServer")))
            throw std::runtime_error("not registered");
    }
    RegisteredLibrary(const RegisteredLibrary&) = delete;
    RegisteredLibrary& operator=(const RegisteredLibrary&) = delete;
    ~RegisteredLibrary() {
        call("DllUnregisterServer");
        FreeLibrary(module_);
    }

  private:
    HRESULT call(const char* name) {
        using Entry = HRESULT STDAPICALLTYPE();
        auto* const entry = reinterpret_cast<Entry*>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
        return entry == nullptr ? E_NOINTERFACE : entry();
    }

    HMODULE module_;
};

}  // namespace pellmark
