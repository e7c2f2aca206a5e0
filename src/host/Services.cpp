#include "host/Services.h"

#include <exception>

#include "knowledge/AbsentKnowledgeBase.h"
#include "ports/AbsentTechnology.h"
#include "util/TolerantTranslation.h"

namespace pellmark {

namespace {

/// Of the layouts' key: the same for every call and in every language.
constexpr const char* kComponentTitle = "Norvex - Process Manager";

}  // namespace

Services::Services(const Platform& platform)
    : platform_(platform),
      knowledgeBase_(createKnowledgeBase()),
      technology_(createTechnology()),
      files(platform.files, platform.codePage, platform.idle, platform.operations.trace()),
      settings(platform.registry, platform.codePage, platform.files, platform.executableName,
               platform.operations.trace()),
      layouts(platform.registry, platform.codePage, platform.executableName, kComponentTitle,
              platform.operations.trace()),
      dialogs(platform.fileDialogs, platform.systemDialogs, platform.printer, platform.files,
              platform.executableName),
      texts(platform.operations),
      help(platform.help, platform.files, platform.desktop, texts),
      person{platform.desktop, texts, help, layouts},
      gridOps({person, platform.files, files, platform.codePage, dialogs, platform.clipboard,
               platform.printer, platform.idle, settings, platform.componentFolder}),
      rights(*knowledgeBase_, person),
      creation(*knowledgeBase_) {
    trap(platform.operations, "Services::Services",
         [this] { languages_ = platform_.hostLibrary.createLanguageConverter(); });
    trap(platform.operations, "Services::Services", [this] {
        texts.setService(std::make_unique<TolerantTranslation>(
            platform_.hostLibrary.createTranslationService(), platform_.operations));
    });
}

ViewServices Services::forViews() {
    const StepServices steps{person,  rights,  *knowledgeBase_, *technology_,    settings,
                             gridOps, dialogs, files,           platform_.files, platform_.idle};
    return {person, *knowledgeBase_, rights, settings, gridOps, host, creation, steps};
}

namespace {

/// Creates a service of the host's library, or its stand-in with the reason why there is none: a library that
/// is not there must not keep the Application from being created.
template <class Absent, class Service, class Create>
std::unique_ptr<Service> createOr(const Operations& operations, const char* operation, std::string& reason,
                                  Create&& create) {
    std::unique_ptr<Service> created;
    trap(operations, operation, [&] {
        try {
            created = create();
        } catch (const std::exception& error) {
            reason = error.what();
            throw;
        }
    });
    if (created) return created;
    return std::make_unique<Absent>(reason);
}

}  // namespace

std::unique_ptr<KnowledgeBaseService> Services::createKnowledgeBase() {
    return createOr<AbsentKnowledgeBase, KnowledgeBaseService>(
        platform_.operations, "Services::createKnowledgeBase", missingKnowledgeBase_,
        [this] { return platform_.hostLibrary.createKnowledgeBaseService(); });
}

std::unique_ptr<TechnologyService> Services::createTechnology() {
    std::string reason;
    return createOr<AbsentTechnology, TechnologyService>(
        platform_.operations, "Services::createTechnology", reason,
        [this] { return platform_.hostLibrary.createTechnologyService(); });
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
    const bool hasAnswered = trap(platform_.operations, "Services::isConnected",
                                  [&] { connected = knowledgeBase_->isConnected(); });
    if (hasAnswered && !connected)
        platform_.operations.trace().record("Services::isConnected", "the knowledge base is not connected");
    return connected;
}

std::string Services::helpFileOf(HostApplication& application) {
    constexpr int kUsEnglish = 1033;
    const std::string folder = application.installationFolder() + "Help\\";
    int locale = kUsEnglish;
    const std::int16_t language = application.languageCode();
    // A person without help in the own language still wants the list.
    if (languages_) {
        trap(platform_.operations, "Services::helpFileOf", [&] { locale = languages_->localeOf(language); });
    }
    const std::string localized = folder + std::to_string(locale) + "\\qdl.chm";
    return files.FileExists(localized) ? localized : folder + std::to_string(kUsEnglish) + "\\qdl.chm";
}

}  // namespace pellmark
