#include "util/TolerantTranslation.h"

#include <utility>

namespace pellmark {

void TolerantTranslation::setCallingApplication(const std::string& title) {
    trap(operations_, "TolerantTranslation::setCallingApplication",
         [&] { service_->setCallingApplication(title); });
}

void TolerantTranslation::setResourceFile(const std::string& path) {
    trap(operations_, "TolerantTranslation::setResourceFile", [&] { service_->setResourceFile(path); });
}

void TolerantTranslation::setOutputLanguage(std::int16_t languageCode) {
    hasFailed_ = false;
    trap(operations_, "TolerantTranslation::setOutputLanguage",
         [&] { service_->setOutputLanguage(languageCode); });
}

std::string TolerantTranslation::GetString(const std::string& english) {
    try {
        std::string text = service_->GetString(english);
        return text.empty() ? english : text;
    } catch (...) {
        if (std::exchange(hasFailed_, true)) return english;
        throw;
    }
}

}  // namespace pellmark
