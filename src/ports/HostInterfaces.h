#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "base/Geometry.h"
#include "knowledge/KnowledgeBaseService.h"
#include "ports/Technology.h"

/// What the component asks of its host besides the knowledge base.
namespace pellmark {

/// The object that the host hands in with every call.
class HostApplication {
  public:
    virtual ~HostApplication() = default;
    /// The window that the embedded views become children of.
    virtual WindowHandle mainWindow() = 0;
    /// The host's installation folder, with its trailing "\".
    virtual std::string installationFolder() = 0;
    /// The host's own number of its current language.
    virtual std::int16_t languageCode() = 0;
    /// unit::kInch or unit::kMetric.
    virtual std::int16_t currentUnit() = 0;
    /// Lets the user build a rule; the new text, or "" when the user cancelled.
    virtual std::string buildExpression(const std::string& rule, WindowHandle owner) = 0;
};

/// The host's text lookup, keyed by the English text itself.
class TranslationService {
  public:
    virtual ~TranslationService() = default;
    virtual void setCallingApplication(const std::string& title) = 0;
    virtual void setResourceFile(const std::string& path) = 0;
    virtual void setOutputLanguage(std::int16_t languageCode) = 0;
    virtual std::string GetString(const std::string& english) = 0;
};

class LanguageConverter {
  public:
    virtual ~LanguageConverter() = default;
    /// The Windows locale identifier (1033 is US English) of a host language code.
    virtual std::int32_t localeOf(std::int16_t languageCode) = 0;
};

/// The host's library, from which the component creates its services. Each call makes a new object.
class HostLibrary {
  public:
    virtual ~HostLibrary() = default;
    virtual std::unique_ptr<KnowledgeBaseService> createKnowledgeBaseService() = 0;
    virtual std::unique_ptr<TranslationService> createTranslationService() = 0;
    virtual std::unique_ptr<LanguageConverter> createLanguageConverter() = 0;
    virtual std::unique_ptr<TechnologyService> createTechnologyService() = 0;
};

}  // namespace pellmark
