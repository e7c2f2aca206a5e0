// The DLL's exports. There is no DllMain of our own: nothing is done while the loader holds its lock.
#include "automation/ClassFactory.h"
#include "automation/Module.h"
#include "refhost/automation/HostApplicationObject.h"
#include "refhost/automation/Identifiers.h"
#include "refhost/automation/KnowledgeBaseServiceObject.h"
#include "refhost/automation/Registration.h"
#include "refhost/automation/TechnologyServiceObject.h"
#include "refhost/automation/TextServiceObjects.h"

namespace {

using namespace norvex;

pellmark::ClassFactory::Make makerOf(REFCLSID classId) {
    if (classId == kApplicationClass) return &makeObject<HostApplicationObject>;
    if (classId == kKnowledgeBaseServiceClass) return &makeObject<KnowledgeBaseServiceObject>;
    if (classId == kTranslationServiceClass) return &makeObject<TranslationServiceObject>;
    if (classId == kLanguageConverterClass) return &makeObject<LanguageConverterObject>;
    if (classId == kTechnologyServiceClass) return &makeObject<TechnologyServiceObject>;
    return nullptr;
}

}  // namespace

extern "C" {

HRESULT STDAPICALLTYPE DllGetClassObject(REFCLSID classId, REFIID iid, void** object) {
    return pellmark::ClassFactory::give("Norvex", makerOf(classId), iid, object);
}

HRESULT STDAPICALLTYPE DllCanUnloadNow() {
    return pellmark::module::Lock::any() ? S_FALSE : S_OK;
}

HRESULT STDAPICALLTYPE DllRegisterServer() {
    return pellmark::installServer(hostServer(), true, nullptr);
}

HRESULT STDAPICALLTYPE DllUnregisterServer() {
    return pellmark::installServer(hostServer(), false, nullptr);
}

HRESULT STDAPICALLTYPE DllInstall(BOOL install, LPCWSTR commandLine) {
    return pellmark::installServer(hostServer(), install != FALSE, commandLine);
}
}
