// The DLL's exports. There is no DllMain of our own: nothing is done while the loader holds its lock.
#include "win32/WindowsApi.h"

#include <olectl.h>

#include "Pellmark.h"
#include "automation/ClassFactory.h"
#include "automation/Module.h"
#include "com/ApplicationObject.h"
#include "com/ComponentRoot.h"
#include "com/Registration.h"

namespace {

using namespace pellmark;

ComPtr<IDispatch> makeApplication() {
    return ComPtr<IDispatch>::adopt(new ApplicationObject(ComponentRoot::compose()));
}

}  // namespace

extern "C" {

HRESULT STDAPICALLTYPE DllGetClassObject(REFCLSID clsid, REFIID iid, void** object) {
    return ClassFactory::give("Pellmark", clsid == CLSID_Application ? &makeApplication : nullptr, iid,
                              object);
}

HRESULT STDAPICALLTYPE DllCanUnloadNow() {
    return module::Lock::any() ? S_FALSE : S_OK;
}

HRESULT STDAPICALLTYPE DllRegisterServer() {
    return installServer(componentServer(), true, nullptr);
}

HRESULT STDAPICALLTYPE DllUnregisterServer() {
    return installServer(componentServer(), false, nullptr);
}

HRESULT STDAPICALLTYPE DllInstall(BOOL install, LPCWSTR commandLine) {
    return installServer(componentServer(), install != FALSE, commandLine);
}
}
