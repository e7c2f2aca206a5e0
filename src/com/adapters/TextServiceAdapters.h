#pragma once

#include "automation/DispatchObject.h"
#include "ports/HostInterfaces.h"

namespace pellmark {

/// The host's translation service, its members called by name.
class TranslationAdapter : public TranslationService {
  public:
    explicit TranslationAdapter(DispatchObject service) : service_(std::move(service)) {}

    void setCallingApplication(const std::string& title) override;
    void setResourceFile(const std::string& path) override;
    void setOutputLanguage(std::int16_t languageCode) override;
    std::string GetString(const std::string& english) override;

  private:
    DispatchObject service_;
};

/// The host's language converter, its member called by name.
class LanguageConverterAdapter : public LanguageConverter {
  public:
    explicit LanguageConverterAdapter(DispatchObject converter) : converter_(std::move(converter)) {}

    std::int32_t localeOf(std::int16_t languageCode) override;

  private:
    DispatchObject converter_;
};

}  // namespace pellmark
