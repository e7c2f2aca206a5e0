// The DLL's exports. There is no DllMain of our own: nothing is done while the loader holds its lock.
#include <cwchar>
#include <new>

#include "automation/Guard.h"
#include "refhost/automation/ClassFactory.h"
#include "refhost/automation/HostApplicationObject.h"
#include "refhost/automation/Identifiers.h"
#include "refhost/automation/KnowledgeBaseServiceObject.h"
#include "refhost/automation/Registration.h"
#include "refhost/automation/TechnologyServiceObject.h"
#include "refhost/automation/TextServiceObjects.h"

namespace {

using namespace norvex;

ClassFactory::Make makerOf(REFCLSID classId) {
    if (classId == kApplicationClass) return &makeObject<HostApplicationObject>;
    if (classId == kKnowledgeBaseServiceClass) return &makeObject<KnowledgeBaseServiceObject>;
    if (classId == kTranslationServiceClass) return &makeObject<TranslationServiceObject>;
    if (classId == kLanguageConverterClass) return &makeObject<LanguageConverterObject>;
    if (classId == kTechnologyServiceClass) return &makeObject<TechnologyServiceObject>;
    return nullptr;
}

template <class Operation>
HRESULT carryOut(Operation operation, HKEY hive) {
    HRESULT answer = E_FAIL;
    const HRESULT guard = pellmark::guarded("Norvex", [&] { answer = operation(hive); });
    return FAILED(guard) ? guard : answer;
}

}  // namespace

extern "C" {

HRESULT STDAPICALLTYPE DllGetClassObject(REFCLSID classId, REFIID iid, void** object) {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    const ClassFactory::Make make = makerOf(classId);
    if (make == nullptr) return CLASS_E_CLASSNOTAVAILABLE;
    const pellmark::ComPtr<IClassFactory> factory(new (std::nothrow) ClassFactory(make));
    return factory ? factory->QueryInterface(iid, object) : E_OUTOFMEMORY;
}

HRESULT STDAPICALLTYPE DllCanUnloadNow() {
    return pellmark::module::Lock::any() ? S_FALSE : S_OK;
}

HRESULT STDAPICALLTYPE DllRegisterServer() {
    return carryOut(registerLibrary, HKEY_LOCAL_MACHINE);
}

HRESULT STDAPICALLTYPE DllUnregisterServer() {
    return carryOut(unregisterLibrary, HKEY_LOCAL_MACHINE);
}

// regsvr32 /i:user registers for the current user alone
HRESULT STDAPICALLTYPE DllInstall(BOOL install, LPCWSTR commandLine) {
    HKEY hive = HKEY_LOCAL_MACHINE;
    if (commandLine != nullptr && *commandLine != L'\0') {
        if (_wcsicmp(commandLine, L"user") != 0) return E_INVALIDARG;
        hive = HKEY_CURRENT_USER;
    }
    return install != FALSE ? carryOut(registerLibrary, hive) : carryOut(unregisterLibrary, hive);
}
}
