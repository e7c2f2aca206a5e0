#pragma once

#include <windows.h>

#include <stdexcept>

#include "Pellmark.h"
#include "automation/Automation.h"
#include "com/EmbeddedTypes.h"

namespace pellmark {

/// The built DLL, loaded by its path as a host without registration would, and unloaded with its owner.
class LoadedServer {
  public:
    LoadedServer() : module_(LoadLibraryW((programFolder() + L"\\Pellmark.dll").c_str())) {
        if (module_ == nullptr) throw std::runtime_error("Pellmark.dll cannot be loaded");
    }
    LoadedServer(const LoadedServer&) = delete;
    LoadedServer& operator=(const LoadedServer&) = delete;
    ~LoadedServer() { FreeLibrary(module_); }

    template <class Function>
    Function* entry(const char* name) const {
        return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
    }
    HRESULT getClassObject(REFCLSID clsid, REFIID iid, void** object) const {
        return entry<HRESULT STDAPICALLTYPE(REFCLSID, REFIID, void**)>("DllGetClassObject")(clsid, iid,
                                                                                            object);
    }
    HRESULT canUnloadNow() const { return entry<HRESULT STDAPICALLTYPE()>("DllCanUnloadNow")(); }
    HRESULT registerServer() const { return entry<HRESULT STDAPICALLTYPE()>("DllRegisterServer")(); }
    HRESULT unregisterServer() const { return entry<HRESULT STDAPICALLTYPE()>("DllUnregisterServer")(); }
    HRESULT install(BOOL install, LPCWSTR commandLine) const {
        return entry<HRESULT STDAPICALLTYPE(BOOL, LPCWSTR)>("DllInstall")(install, commandLine);
    }

    ComPtr<IClassFactory> factory() const {
        ComPtr<IClassFactory> factory;
        if (FAILED(getClassObject(CLSID_Application, IID_IClassFactory, factory.receiveVoid()))) {
            throw std::runtime_error("no class factory");
        }
        return factory;
    }
    ComPtr<_Application> create() const {
        ComPtr<_Application> object;
        if (FAILED(factory()->CreateInstance(nullptr, IID__Application, object.receiveVoid()))) {
            throw std::runtime_error("no object");
        }
        return object;
    }

  private:
    HMODULE module_;
};

/// Automation's services on the calling thread.
class Apartment {
  public:
    Apartment() { OleInitialize(nullptr); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
    ~Apartment() { OleUninitialize(); }
};

}  // namespace pellmark
