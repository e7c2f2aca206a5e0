#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "base/Operations.h"
#include "ports/HostInterfaces.h"

namespace pellmark {

/// The host's translation service, forgiven what must not keep a person from the views: what cannot be
/// translated is English. Each window asks for dozens of texts, so a service that fails to translate fails
/// once per call of the component and answers in English from then on; the trace is for the reason, not for
/// its repetition.
class TolerantTranslation : public TranslationService {
  public:
    TolerantTranslation(std::unique_ptr<TranslationService> service, const Operations& operations)
        : service_(std::move(service)), operations_(operations) {}

    /// A failure of these three is traced.
    void setCallingApplication(const std::string& title) override;
    void setResourceFile(const std::string& path) override;
    /// The last of what a call of the component sets.
    void setOutputLanguage(std::int16_t languageCode) override;

    /// English where the service has no text or an empty one. Throws the service's first failure after the
    /// language was set.
    std::string GetString(const std::string& english) override;

  private:
    std::unique_ptr<TranslationService> service_;
    Operations operations_;
    bool hasFailed_ = false;
};

}  // namespace pellmark
