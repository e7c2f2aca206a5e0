#include "util/Texts.h"

namespace pellmark {

void Texts::configure(const std::string& englishTitle, const std::string& resourceFile,
                      std::int16_t languageCode) {
    if (service_) {
        service_->setCallingApplication(title_.empty() ? englishTitle : title_);
        service_->setResourceFile(resourceFile);
        service_->setOutputLanguage(languageCode);
    }
    title_ = GetString(englishTitle);
}

std::string Texts::GetString(const std::string& english) {
    std::string text = english;
    if (service_) trap(operations_, "Texts::GetString", [&] { text = service_->GetString(english); });
    return text;
}

}  // namespace pellmark
