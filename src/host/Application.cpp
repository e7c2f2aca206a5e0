#include "host/Application.h"

#include "base/Error.h"
#include "featurecases/cFeatureCase.h"
#include "host/Component.h"
#include "host/FrmMain.h"
#include "processes/FrmAddEditProcess.h"
#include "processes/cProcess.h"

namespace pellmark {

namespace {

constexpr const char* kManagerTitle = "Norvex - Process Manager";
constexpr const char* kEditorTitle = "Norvex - Process Tech Loftwise";

}  // namespace

Application::Application(const Platform& platform)
    : platform_(platform), component_(std::make_unique<Component>(*this, platform)) {}

Application::~Application() {
    Dispose();
}

template <class Call>
bool Application::run(const char* operation, const std::shared_ptr<HostApplication>& host, const char* title,
                      Call&& call) {
    bool started = false;
    if (!host) return started;
    if (running_) {
        // The host's window is disabled, but a script of it may still come here while a dialog is open.
        platform_.operations.trace().record(operation, "refused: an earlier call is still showing its dialog");
        return started;
    }
    running_ = true;
    trap(platform_.operations, operation, [&] {
        if (!component_) throw Error(errors::kInvalidArgument, "Pellmark", "Dispose was called before");
        started = startUp(host, title);
        if (started) call();
    });
    running_ = false;
    return started;
}

bool Application::startUp(const std::shared_ptr<HostApplication>& host, const char* title) {
    component_->configureTranslation(*host, title);
    if (!component_->isConnected()) {
        component_->desktop().showMessage(
            {component_->GetString("Not connected to database"), "", MessageIcon::Critical});
        return false;
    }
    component_->setHost(host);
    component_->setHelpFile(component_->helpFileOf(*host));
    return true;
}

void Application::ShowWindowProcessesView(const std::shared_ptr<HostApplication>& host,
                                          const std::string& processGuid) {
    run("Application::ShowWindowProcessesView", host, kManagerTitle, [&] {
        // The refill would otherwise go to the first row, although the host named none.
        const std::string select = processGuid.empty() ? currentDescription().processGuid : processGuid;
        showEmbedded(FRView::FRProcesses);
        component_->processes()->RefreshList(select);
    });
}

void Application::ShowWindowProcessCaseView(const std::shared_ptr<HostApplication>& host,
                                            const CaseDescription& description) {
    run("Application::ShowWindowProcessCaseView", host, kManagerTitle, [&] {
        showEmbedded(FRView::FRProcesscase);
        describeCase(description);
        selectNamed(description);
    });
}

std::string Application::OpenProcess(const std::shared_ptr<HostApplication>& host, WindowHandle owner,
                                     const CaseDescription& description) {
    ReturnProcessGuid.clear();
    run("Application::OpenProcess", host, kManagerTitle, [&] {
        interruptEmbeddedView([&] {
            captionForPicking();
            showModally(owner, description);
        });
    });
    return ReturnProcessGuid;
}

void Application::EditFeatureCase(const std::shared_ptr<HostApplication>& host, WindowHandle owner,
                                  const CaseDescription& description) {
    run("Application::EditFeatureCase", host, kManagerTitle, [&] {
        interruptEmbeddedView([&] {
            captionForViewing();
            showModally(owner, description);
        });
    });
}

std::string Application::OpenFeatureCase(const std::shared_ptr<HostApplication>& host, WindowHandle owner,
                                         const CaseDescription& description) {
    const bool ran = run("Application::OpenFeatureCase", host, kManagerTitle, [&] {
        interruptEmbeddedView([&] {
            component_->mainForm().FeatureCasePick = true;
            captionForPicking();
            showModally(owner, description);
        });
    });
    // A cancelled pick answers with the last confirmed one; a call that could not begin answers nothing.
    return ran ? ReturnFeatureCaseGuid : std::string();
}

void Application::EditProcess(const std::shared_ptr<HostApplication>& host, WindowHandle owner,
                              const CaseDescription& description) {
    run("Application::EditProcess", host, kEditorTitle, [&] {
        interruptEmbeddedView([&] {
            FrmMain& form = component_->mainForm();
            form.unload();  // its lists are built anew for this call
            form.SetView(FRView::FRProcesscase);
            describeCase(description);
            selectNamed(description);
            form.load();
            FrmAddEditProcess dialog(*component_, description.processGuid);
            dialog.showModal(owner);
            form.unload();
        });
    });
}

void Application::describeCase(const CaseDescription& description) {
    cFeatureCase* view = component_->featureCase();
    if (view == nullptr) return;
    view->SetFeatureCaseUnitGui(description.featureCaseUnit);
    view->SetNvxFeatureTypeGui(description.nvxFeatureType);
    view->SetPartTypeGui(description.partTypeGuid);
    view->SetFeatureTypeGui(description.featureTypeGuid);
    view->SetPartMaterialClassGui(description.processMaterialClassGuid);
    view->SetProcessUnitGui(description.processUnit);
    view->SetValuesGui(description.valuesGuids);
}

void Application::selectNamed(const CaseDescription& description) {
    cProcess* processes = component_->processes();
    if (processes != nullptr && !description.processGuid.empty())
        processes->SetProcessGui(description.processGuid);
}

void Application::showEmbedded(FRView view) {
    FrmMain& form = component_->mainForm();
    const WindowHandle parent = component_->host().mainWindow();
    form.SetView(view);
    captionForViewing();  // before the first paint, so that no OK button flashes up
    if (!form.isShown() || form.embeddedIn() != parent) form.embed(parent);
}

void Application::captionForViewing() {
    FrmMain& form = component_->mainForm();
    form.CmdOK.setVisible(false);
    form.CmdCancel.setCaption(component_->GetString("Exit"));
}

void Application::captionForPicking() {
    FrmMain& form = component_->mainForm();
    form.CmdOK.setVisible(true);
    form.CmdCancel.setCaption(component_->GetString("Cancel"));
}

void Application::showModally(WindowHandle owner, const CaseDescription& description) {
    FrmMain& form = component_->mainForm();
    form.SetView(FRView::FRProcesscase);
    describeCase(description);
    selectNamed(description);
    form.showModal(owner);
    form.FeatureCasePick = false;
}

template <class Show>
void Application::interruptEmbeddedView(Show&& show) {
    FrmMain& form = component_->mainForm();
    const WindowHandle parent = form.embeddedIn();
    if (parent == 0) {
        show();
        return;
    }
    const FRView view = form.view();
    const CaseDescription shown = currentDescription();
    form.unload();
    trap(platform_.operations, "Application::interruptEmbeddedView", [&] { show(); });
    form.SetView(view);
    captionForViewing();
    form.embed(parent);
    if (view == FRView::FRProcesscase) describeCase(shown);
    component_->processes()->RefreshList(shown.processGuid);
}

CaseDescription Application::currentDescription() {
    CaseDescription shown;
    if (cProcess* processes = component_->processes()) shown.processGuid = processes->SelectedProcessID();
    if (cFeatureCase* view = component_->featureCase()) {
        const FeatureCaseDescription now = view->description();
        shown.valuesGuids = now.valueIds;
        shown.featureCaseUnit = now.unit;
        shown.nvxFeatureType = now.nvxFeatureType;
        shown.partTypeGuid = now.partTypeId;
        shown.featureTypeGuid = now.featureTypeId;
        shown.processMaterialClassGuid = now.materialClassId;
        shown.processUnit = now.processUnit;
    }
    return shown;
}

void Application::Dispose() {
    trap(platform_.operations, "Application::Dispose", [this] { component_.reset(); });
}

}  // namespace pellmark
