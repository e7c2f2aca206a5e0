#include "refhost/automation/TextServiceObjects.h"

#include "refhost/automation/HostConfiguration.h"
#include "refhost/automation/Identifiers.h"
#include "refhost/texts/Languages.h"
#include "refhost/windows/FileBytes.h"

namespace norvex {

using pellmark::VariantArg;

TranslationServiceObject::TranslationServiceObject()
    : AutomationObject("Norvex.TranslationService", kTranslationService),
      outputLanguage_(configuration::languageCode()) {
    property(
        1, L"CallingApplication", [this](const Arguments&) { return callingApplication_; },
        [this](const Arguments& call) { callingApplication_ = call.text(0); });
    property(
        2, L"ResourceFile", [this](const Arguments&) { return resourceFile_; },
        [this](const Arguments& call) {
            resourceFile_ = call.text(0);
            table_.reset();
        });
    property(
        3, L"OutputLanguage", [this](const Arguments&) { return outputLanguage_; },
        [this](const Arguments& call) {
            outputLanguage_ = call.int16(0);
            table_.reset();
        });
    method(4, L"GetString", 1, [this](const Arguments& call) { return table().text(call.text(0)); });
}

const TranslationTable& TranslationServiceObject::table() {
    if (!table_) table_.emplace(bytesOf(pellmark::toWide(resourceFile_)), outputLanguage_);
    return *table_;
}

LanguageConverterObject::LanguageConverterObject()
    : AutomationObject("Norvex.LanguageConverter", kLanguageConverter) {
    method(1, L"LocaleOf", 1, [](const Arguments& call) { return languageOf(call.int16(0)).locale; });
}

}  // namespace norvex
