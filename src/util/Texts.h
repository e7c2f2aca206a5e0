#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "base/Operations.h"
#include "ports/HostInterfaces.h"

namespace pellmark {

/// What a person reads, in the language of the current call: the host's translation of an English text. One
/// per Application object.
class Texts {
  public:
    explicit Texts(const Operations& operations) : operations_(operations) {}

    /// Null where the host has no translations: every text then stays English.
    void setService(std::unique_ptr<TranslationService> service) { service_ = std::move(service); }
    /// Binds the service to a language and a table of texts, and takes the title of the call, given in
    /// English.
    void configure(const std::string& englishTitle, const std::string& resourceFile,
                   std::int16_t languageCode);

    /// The translation of an English text, the text itself when there is none.
    std::string GetString(const std::string& english);

    /// The component's title in the current call, translated; empty before the first call.
    const std::string& title() const { return title_; }
    void setTitle(std::string title) { title_ = std::move(title); }

  private:
    Operations operations_;
    std::unique_ptr<TranslationService> service_;
    std::string title_;
};

}  // namespace pellmark
