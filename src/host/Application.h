#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "host/Platform.h"
#include "ports/HostInterfaces.h"

namespace pellmark {

class Component;

/// The views of the main form; the values are those of the public enumeration.
enum class FRView : std::int32_t { FRProcesses = 0, FRProcesscase = 1 };

/// How the host describes a feature case, and what is to be selected in it. The defaults are those of the
/// omitted optional parameters: -1 and "" leave a selection as it is.
struct CaseDescription {
    std::vector<std::string> valuesGuids;
    std::int16_t featureCaseUnit = -1;
    std::int16_t nvxFeatureType = -1;
    std::string partTypeGuid;
    std::string featureTypeGuid;
    std::string processMaterialClassGuid;
    std::int16_t processUnit = -1;
    std::string processGuid;
    std::string processStepGuid;
};

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
    /// Releases everything; later calls do nothing. Not to be called while another call is running: whoever
    /// owns this object waits until that one has returned.
    void Dispose();

    FRView CurrentView = FRView::FRProcesses;  ///< kept for the host, not used here

    /// Written by the main form when the user confirms a pick.
    std::string ReturnProcessGuid;
    std::string ReturnFeatureCaseGuid;

  private:
    /// False when the call could not begin: no host object, released, or not connected.
    template <class Call>
    bool run(const char* operation, const std::shared_ptr<HostApplication>& host, const char* title,
             Call&& call);
    bool startUp(const std::shared_ptr<HostApplication>& host, const char* title);
    void describeCase(const CaseDescription& description);
    void selectNamed(const CaseDescription& description);
    void showEmbedded(FRView view);
    void captionForViewing();
    void captionForPicking();
    template <class Show>
    void interruptEmbeddedView(Show&& show);
    /// What the embedded view shows now, so that it can be shown again after a modal call.
    CaseDescription currentDescription();
    void showModally(WindowHandle owner, const CaseDescription& description);

    Platform platform_;
    std::unique_ptr<Component> component_;
    bool running_ = false;
};

}  // namespace pellmark
