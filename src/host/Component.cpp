#include "host/Component.h"

#include "base/Error.h"
#include "featurecases/cFeatureCase.h"
#include "host/FrmMain.h"
#include "processes/cProcess.h"

namespace pellmark {

Component::Component(Application& application, const Platform& platform)
    : application_(application),
      platform_(platform),
      files_(platform.files, platform.codePage, platform.idle, platform.operations.trace()),
      settings_(platform.registry, platform.codePage, platform.files, platform.executableName,
                platform.operations.trace()),
      gridOps_(platform.files, files_),
      help_(std::make_unique<HTMLHelp>(platform.help, std::string())) {
    // A host library that is not there must not keep the Application from being created: its calls say so.
    trap(trace(), "Component::Component",
         [this] { languages_ = platform_.hostLibrary.createLanguageConverter(); });
    trap(trace(), "Component::Component",
         [this] { translation_ = platform_.hostLibrary.createTranslationService(); });
    trap(trace(), "Component::Component",
         [this] { knowledgeBase_ = platform_.hostLibrary.createKnowledgeBaseService(); });
}

Component::~Component() {
    releaseControllers();
    if (mainForm_) trap(trace(), "Component::~Component", [this] { mainForm_->unload(); });
}

HostApplication& Component::host() const {
    if (!host_) throw Error(errors::kHostInterface, "Pellmark", "No host object was handed in yet");
    return *host_;
}

void Component::configureTranslation(HostApplication& host, const char* title) {
    if (translation_) {
        translation_->setCallingApplication(title_.empty() ? std::string(title) : title_);
        translation_->setResourceFile(platform_.componentFolder + "\\Pellmark.csv");
        translation_->setOutputLanguage(host.languageCode());
    }
    title_ = GetString(title);
}

void Component::setHelpFile(const std::string& path) {
    help_ = std::make_unique<HTMLHelp>(platform_.help, path);
}

std::string Component::helpFileOf(HostApplication& host) {
    constexpr int kUsEnglish = 1033;
    const std::string folder = host.installationFolder() + "Help\\";
    const int locale = languages_ ? languages_->localeOf(host.languageCode()) : kUsEnglish;
    const std::string localized = folder + std::to_string(locale) + "\\qdl.chm";
    return files_.FileExists(localized) ? localized : folder + std::to_string(kUsEnglish) + "\\qdl.chm";
}

bool Component::isConnected() {
    bool connected = false;
    trap(trace(), "Component::isConnected",
         [&] { connected = knowledgeBase_ && knowledgeBase_->isConnected(); });
    return connected;
}

KnowledgeBaseService& Component::knowledgeBase() const {
    if (!knowledgeBase_) {
        throw Error(errors::kKnowledgeBase, "Pellmark",
                    "The host's knowledge-base service could not be created");
    }
    return *knowledgeBase_;
}

std::string Component::GetString(const std::string& english) {
    std::string text = english;
    if (translation_) trap(trace(), "Component::GetString", [&] { text = translation_->GetString(english); });
    return text;
}

bool Component::CheckPermission(int operation) {
    if (knowledgeBase().userRights().may(operation)) return true;
    std::string what;
    if (operation == PermissionEdit) what = GetString("edit objects in the database!");
    if (operation == PermissionAdd) what = GetString("add new objects to the database!");
    if (operation == PermissionDelete) what = GetString("delete objects from the database!");
    desktop().showMessage(
        {GetString("You do not have permission to") + " " + what, "", MessageIcon::Information});
    return false;
}

FrmMain& Component::mainForm() {
    if (!mainForm_) mainForm_ = std::make_unique<FrmMain>(*this);
    return *mainForm_;
}

bool Component::isMainFormLoaded() const {
    return mainForm_ && mainForm_->isLoaded();
}

void Component::setProcesses(std::unique_ptr<cProcess> processes) {
    processes_ = std::move(processes);
}

void Component::setFeatureCase(std::unique_ptr<cFeatureCase> featureCase) {
    featureCase_ = std::move(featureCase);
}

void Component::releaseControllers() {
    featureCase_.reset();
    processes_.reset();
}

}  // namespace pellmark
