#pragma once

#include <memory>
#include <string>

#include "host/Application.h"
#include "host/HTMLHelp.h"
#include "host/Platform.h"
#include "ports/HostInterfaces.h"
#include "settings/cQDLExtSettings.h"
#include "util/cFileIO.h"
#include "util/cVSGridOps.h"

namespace pellmark {

class cFeatureCase;
class cProcess;
class FrmMain;

/// What one Application object shares among its forms and controllers. Handed by reference to whoever
/// needs it; gone after Dispose.
class Component {
  public:
    Component(Application& application, const Platform& platform);
    ~Component();
    Component(const Component&) = delete;
    Component& operator=(const Component&) = delete;

    Application& application() const { return application_; }
    const Platform& platform() const { return platform_; }
    Trace& trace() const { return platform_.operations.trace(); }
    const Operations& operations() const { return platform_.operations; }
    Desktop& desktop() const { return platform_.desktop; }

    // --- what each public call sets anew -----------------------------------------------------------------
    HostApplication& host() const;
    void setHost(std::shared_ptr<HostApplication> host) { host_ = std::move(host); }
    /// Binds the translation service to the host's language and takes the looked-up title.
    void configureTranslation(HostApplication& host, const char* title);
    void setHelpFile(const std::string& path);
    /// The help file of a host: the one of its language, or the one of locale 1033 when that is missing.
    std::string helpFileOf(HostApplication& host);
    /// The component's own title, looked up; empty before the first call.
    const std::string& title() const { return title_; }

    // --- shared objects ----------------------------------------------------------------------------------
    /// False also when the host's service could not be created.
    bool isConnected();
    /// Throws Error when the host's service could not be created.
    KnowledgeBaseService& knowledgeBase() const;
    cQDLExtSettings& settings() { return settings_; }
    cVSGridOps& gridOps() { return gridOps_; }
    cFileIO& files() { return files_; }
    HTMLHelp& help() { return *help_; }

    /// The translation of an English text, the text itself when there is none.
    std::string GetString(const std::string& english);
    /// Asks the knowledge base whether the current user may; tells the user when not.
    bool CheckPermission(int operation);

    // --- the main form and its controllers ---------------------------------------------------------------
    FrmMain& mainForm();
    bool isMainFormLoaded() const;
    /// Null while there is none.
    cProcess* processes() const { return processes_.get(); }
    cFeatureCase* featureCase() const { return featureCase_.get(); }
    void setProcesses(std::unique_ptr<cProcess> processes);
    void setFeatureCase(std::unique_ptr<cFeatureCase> featureCase);
    void releaseControllers();

  private:
    Application& application_;
    Platform platform_;
    cFileIO files_;
    cQDLExtSettings settings_;
    cVSGridOps gridOps_;
    std::unique_ptr<KnowledgeBaseService> knowledgeBase_;
    std::unique_ptr<TranslationService> translation_;
    std::unique_ptr<LanguageConverter> languages_;
    std::unique_ptr<HTMLHelp> help_;
    std::shared_ptr<HostApplication> host_;
    std::string title_;
    std::unique_ptr<FrmMain> mainForm_;
    std::unique_ptr<cFeatureCase> featureCase_;
    std::unique_ptr<cProcess> processes_;
};

}  // namespace pellmark
