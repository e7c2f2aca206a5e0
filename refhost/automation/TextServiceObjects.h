#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "refhost/automation/AutomationObject.h"
#include "refhost/texts/TranslationTable.h"

namespace norvex {

/// "Norvex.TranslationService". The table is read when a text is asked for after the file or the language has
/// changed; a file that cannot be read leaves every text English.
class TranslationServiceObject : public AutomationObject {
  public:
    TranslationServiceObject();

  private:
    const TranslationTable& table();

    std::string callingApplication_;
    std::string resourceFile_;
    std::int16_t outputLanguage_;
    std::optional<TranslationTable> table_;
};

/// "Norvex.LanguageConverter"
class LanguageConverterObject : public AutomationObject {
  public:
    LanguageConverterObject();
};

}  // namespace norvex
