#include "host/Services.h"

#include <exception>

#include "knowledge/AbsentKnowledgeBase.h"

namespace pellmark {

Services::Services(const Platform& platform)
    : platform_(platform),
      knowledgeBase_(createKnowledgeBase()),
      files(platform.files, platform.codePage, platform.idle, platform.operations.trace()),
      settings(platform.registry, platform.codePage, platform.files, platform.executableName,
               platform.operations.trace()),
      gridOps(platform.files, files),
      texts(platform.operations),
      help(platform.help, std::string()),
      person{platform.desktop, texts, help},
      rights(*knowledgeBase_, person),
      creation(*knowledgeBase_) {
    trap(platform.operations, "Services::Services",
         [this] { languages_ = platform_.hostLibrary.createLanguageConverter(); });
    trap(platform.operations, "Services::Services",
         [this] { texts.setService(platform_.hostLibrary.createTranslationService()); });
}

/// A host library that is not there must not keep the Application from being created: its calls say so.
std::unique_ptr<KnowledgeBaseService> Services::createKnowledgeBase() {
    std::string reason;
    std::unique_ptr<KnowledgeBaseService> created;
    trap(platform_.operations, "Services::createKnowledgeBase", [&] {
        try {
            created = platform_.hostLibrary.createKnowledgeBaseService();
        } catch (const std::exception& error) {
            reason = error.what();
            throw;
        }
    });
    if (created) return created;
    return std::make_unique<AbsentKnowledgeBase>(reason);
}

void Services::configureTexts(HostApplication& application, const std::string& englishTitle) {
    texts.configure(englishTitle, platform_.componentFolder + "\\Pellmark.csv", application.languageCode());
}

void Services::take(const std::shared_ptr<HostApplication>& application) {
    host.set(application);
    help.HelpFile = helpFileOf(*application);
}

bool Services::isConnected() {
    bool connected = false;
    trap(platform_.operations, "Services::isConnected", [&] { connected = knowledgeBase_->isConnected(); });
    return connected;
}

std::string Services::helpFileOf(HostApplication& application) {
    constexpr int kUsEnglish = 1033;
    const std::string folder = application.installationFolder() + "Help\\";
    const int locale = languages_ ? languages_->localeOf(application.languageCode()) : kUsEnglish;
    const std::string localized = folder + std::to_string(locale) + "\\qdl.chm";
    return files.FileExists(localized) ? localized : folder + std::to_string(kUsEnglish) + "\\qdl.chm";
}

}  // namespace pellmark
