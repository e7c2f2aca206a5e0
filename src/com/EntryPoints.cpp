// The DLL's exports. There is no DllMain of our own: nothing is done while the loader holds its lock.
#include "win32/WindowsApi.h"

#include <olectl.h>

#include <cwchar>
#include <new>

#include "Pellmark.h"
#include "automation/Automation.h"
#include "automation/Guard.h"
#include "automation/Module.h"
#include "com/ClassFactory.h"
#include "com/ComponentRoot.h"
#include "com/Registration.h"

namespace {

using namespace pellmark;

HRESULT registerIn(HKEY hive) {
    HRESULT answer = E_FAIL;
    const HRESULT guard = guarded("Pellmark", [&] { answer = registerServer(hive, module::path()); });
    return FAILED(guard) ? guard : answer;
}

HRESULT unregisterIn(HKEY hive) {
    HRESULT answer = E_FAIL;
    const HRESULT guard = guarded("Pellmark", [&] { answer = unregisterServer(hive); });
    return FAILED(guard) ? guard : answer;
}

}  // namespace

extern "C" {

HRESULT STDAPICALLTYPE DllGetClassObject(REFCLSID clsid, REFIID iid, void** object) {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (clsid != CLSID_Application) return CLASS_E_CLASSNOTAVAILABLE;
    auto* const made = new (std::nothrow) ClassFactory(&ComponentRoot::compose);
    if (made == nullptr) return E_OUTOFMEMORY;
    const auto factory = ComPtr<ClassFactory>::adopt(made);
    return factory->QueryInterface(iid, object);
}

HRESULT STDAPICALLTYPE DllCanUnloadNow() {
    return module::Lock::any() ? S_FALSE : S_OK;
}

HRESULT STDAPICALLTYPE DllRegisterServer() {
    return registerIn(HKEY_LOCAL_MACHINE);
}

HRESULT STDAPICALLTYPE DllUnregisterServer() {
    return unregisterIn(HKEY_LOCAL_MACHINE);
}

// regsvr32 /i:user registers for the current user alone; without "user" it is the registration for everybody.
HRESULT STDAPICALLTYPE DllInstall(BOOL install, LPCWSTR commandLine) {
    HKEY hive = HKEY_LOCAL_MACHINE;
    if (commandLine != nullptr && *commandLine != L'\0') {
        if (::_wcsicmp(commandLine, L"user") != 0) return E_INVALIDARG;
        hive = HKEY_CURRENT_USER;
    }
    return install != FALSE ? registerIn(hive) : unregisterIn(hive);
}
}
