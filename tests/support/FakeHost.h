#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "ports/HostInterfaces.h"
#include "support/FakeKnowledgeBase.h"
#include "support/FakeTechnologyService.h"

namespace pellmark::test {

/// The host as a test sets it up.
class FakeHost : public HostApplication {
  public:
    static constexpr WindowHandle kWindow = 7;

    WindowHandle mainWindow() override { return called("MainWindowHandle", window); }
    std::string installationFolder() override {
        return called("InstallationFolder", std::string("C:\\Norvex\\"));
    }
    std::int16_t languageCode() override { return called("LanguageCode", language); }
    std::int16_t currentUnit() override { return called("CurrentUnit", unitCode); }
    std::string buildExpression(const std::string& rule, WindowHandle) override {
        rulesOffered.push_back(rule);
        return called("Build", builtRule);
    }

    WindowHandle window = kWindow;
    std::int16_t language = 2;
    std::int16_t unitCode = unit::kMetric;
    std::string builtRule;  ///< what the expression builder answers
    std::vector<std::string> rulesOffered;
    /// Told of each call by its member: the host's code may do anything then.
    std::function<void(const std::string& member)> onCall;

  private:
    template <class Answer>
    Answer called(const char* member, Answer answer) {
        if (onCall) onCall(member);
        return answer;
    }
};

/// What the host's library would create, kept where a test can look at it. The objects it hands out are thin
/// references, since the component owns and releases what it creates.
class FakeHostLibrary : public HostLibrary {
  public:
    explicit FakeHostLibrary(KnowledgeBaseService& knowledgeBase) : knowledgeBase_(knowledgeBase) {}

    std::unique_ptr<KnowledgeBaseService> createKnowledgeBaseService() override;
    std::unique_ptr<TranslationService> createTranslationService() override;
    std::unique_ptr<LanguageConverter> createLanguageConverter() override;
    std::unique_ptr<TechnologyService> createTechnologyService() override;

    FakeTechnologyService technology;
    std::map<std::string, std::string> translations;
    std::vector<std::string> translationCalls;  ///< "ResourceFile C:\...", in order
    std::int32_t locale = 1031;
    /// Told of each call of a service that the library has created.
    std::function<void(const std::string& member)> onCall;
    bool missing = false;  ///< the library is not installed
    int alive = 0;         ///< objects not released yet

  private:
    KnowledgeBaseService& knowledgeBase_;
};

}  // namespace pellmark::test
