#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "host/FrmMain.h"
#include "host/Platform.h"
#include "host/Services.h"
#include "host/Views.h"
#include "ports/HostInterfaces.h"

namespace pellmark {

/// The component's one public class, in core's terms. Every method but Dispose does nothing when the host
/// object is null, and shows "Not connected to database" when the knowledge base is not connected. No method
/// throws: an unexpected failure ends it, is traced, and what was set so far is returned.
class Application {
  public:
    explicit Application(const Platform& platform);
    ~Application();
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    void ShowWindowProcessesView(const std::shared_ptr<HostApplication>& host,
                                 const std::string& processGuid);
    void ShowWindowProcessCaseView(const std::shared_ptr<HostApplication>& host,
                                   const CaseDescription& description);
    /// The picked process's id, "" after a cancel. `owner` is the window that the modal form stands over.
    std::string OpenProcess(const std::shared_ptr<HostApplication>& host, WindowHandle owner,
                            const CaseDescription& description);
    void EditFeatureCase(const std::shared_ptr<HostApplication>& host, WindowHandle owner,
                         const CaseDescription& description);
    /// The picked feature case's id; after a cancel that of the last confirmed pick.
    std::string OpenFeatureCase(const std::shared_ptr<HostApplication>& host, WindowHandle owner,
                                const CaseDescription& description);
    void EditProcess(const std::shared_ptr<HostApplication>& host, WindowHandle owner,
                     const CaseDescription& description);
    /// Releases everything; later calls do nothing. While something of the component is on the stack it takes
    /// effect when that has ended.
    void Dispose();

    /// Why the host's knowledge-base service could not be created at all; "" when it was, or after Dispose.
    std::string missingKnowledgeBase() const;

    FRView CurrentView = FRView::FRProcesses;  ///< kept for the host, not used here

    /// What the user picked last, see OpenProcess and OpenFeatureCase.
    std::string ReturnProcessGuid;
    std::string ReturnFeatureCaseGuid;

  private:
    /// Does nothing when the call cannot begin: no host object, released, or not connected.
    template <class Call>
    void run(const char* operation, const std::shared_ptr<HostApplication>& host, const char* title,
             Call&& call);
    bool startUp(const std::shared_ptr<HostApplication>& host, const char* title);
    FrmMain& mainForm();
    void showEmbedded(FRView view);
    void captionForViewing();
    void captionForPicking();
    /// Lets a modal call have the main form, and shows an embedded view again afterwards, where and as it
    /// was.
    template <class Show>
    void interruptEmbeddedView(Show&& show);
    CaseDescription shown();
    void showModally(WindowHandle owner, const CaseDescription& description);
    void end();

    Platform platform_;
    std::unique_ptr<Services> services_;
    std::unique_ptr<FrmMain> mainForm_;
    std::shared_ptr<Application*> self_ = std::make_shared<Application*>(this);
};

}  // namespace pellmark
