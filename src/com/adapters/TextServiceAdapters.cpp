#include "com/adapters/TextServiceAdapters.h"

namespace pellmark {

void TranslationAdapter::setCallingApplication(const std::string& title) {
    service_.put("CallingApplication", title);
}

void TranslationAdapter::setResourceFile(const std::string& path) {
    service_.put("ResourceFile", path);
}

void TranslationAdapter::setOutputLanguage(std::int16_t languageCode) {
    service_.put("OutputLanguage", languageCode);
}

std::string TranslationAdapter::GetString(const std::string& english) {
    return service_.call("GetString", {english}).text();
}

std::int32_t LanguageConverterAdapter::localeOf(std::int16_t languageCode) {
    return converter_.call("LocaleOf", {languageCode}).int32();
}

}  // namespace pellmark
