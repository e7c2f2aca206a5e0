#include "refhost/automation/Registration.h"

#include "refhost/automation/Identifiers.h"

namespace norvex {

namespace {

constexpr pellmark::RegisteredClass kClasses[] = {
    {kApplicationClass, L"Norvex.Application", L"Norvex host application"},
    {kKnowledgeBaseServiceClass, L"Norvex.KnowledgeBaseService", L"Norvex machining knowledge base"},
    {kTranslationServiceClass, L"Norvex.TranslationService", L"Norvex texts in the language of the user"},
    {kLanguageConverterClass, L"Norvex.LanguageConverter", L"Norvex language codes and Windows locales"},
    {kTechnologyServiceClass, L"Norvex.TechnologyService", L"Norvex technology of process steps"},
};

}  // namespace

const pellmark::Server& hostServer() {
    // its dispatch interfaces are marshalled by the system as they are
    static const pellmark::Server server{"Norvex", kTypeLibrary, L"Norvex Reference Host 1.0", kClasses, {}};
    return server;
}

}  // namespace norvex
