#include "com/adapters/AutomationHostLibrary.h"

#include <cstdio>

#include "automation/DispatchObject.h"
#include "base/Error.h"
#include "com/adapters/KnowledgeBaseAdapter.h"
#include "com/adapters/TechnologyServiceAdapter.h"
#include "com/adapters/TextServiceAdapters.h"

namespace pellmark {

namespace {

DispatchObject createByProgId(const char* progId) {
    CLSID classId{};
    ComPtr<IDispatch> object;
    HRESULT code = CLSIDFromProgID(toWide(progId).c_str(), &classId);
    if (SUCCEEDED(code)) {
        code = CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, object.receiveVoid());
    }
    if (FAILED(code)) {
        char number[16];
        std::snprintf(number, sizeof(number), "0x%08lX", static_cast<unsigned long>(code));
        throw Error(errors::kHostInterface, progId,
                    std::string("The host's class ") + progId + " cannot be created (error " + number +
                        "). Check that the host's automation library is registered.");
    }
    return {std::move(object), progId};
}

}  // namespace

std::unique_ptr<KnowledgeBaseService> AutomationHostLibrary::createKnowledgeBaseService() {
    return std::make_unique<KnowledgeBaseAdapter>(createByProgId("Norvex.KnowledgeBaseService"));
}

std::unique_ptr<TranslationService> AutomationHostLibrary::createTranslationService() {
    return std::make_unique<TranslationAdapter>(createByProgId("Norvex.TranslationService"));
}

std::unique_ptr<LanguageConverter> AutomationHostLibrary::createLanguageConverter() {
    return std::make_unique<LanguageConverterAdapter>(createByProgId("Norvex.LanguageConverter"));
}

std::unique_ptr<TechnologyService> AutomationHostLibrary::createTechnologyService() {
    return std::make_unique<TechnologyServiceAdapter>(createByProgId("Norvex.TechnologyService"));
}

}  // namespace pellmark
