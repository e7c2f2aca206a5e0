#include "host/Application.h"

#include "base/Error.h"
#include "featurecases/cFeatureCase.h"
#include "host/Component.h"
#include "host/FrmMain.h"
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
    trap(platform_.trace, operation, [&] {
        if (!host) return;
        if (!component_) throw Error(errors::kInvalidArgument, "Pellmark", "Dispose was called before");
        started = startUp(host, title);
        if (started) call();
    });
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
        showEmbedded(FRView::FRProcesses);
        component_->processes()->RefreshList(processGuid);
    });
}

void Application::ShowWindowProcessCaseView(const std::shared_ptr<HostApplication>& host,
                                            const CaseDescription&) {
    run("Application::ShowWindowProcessCaseView", host, kManagerTitle,
        [&] { showEmbedded(FRView::FRProcesscase); });
}

std::string Application::OpenProcess(const std::shared_ptr<HostApplication>& host, WindowHandle,
                                     const CaseDescription&) {
    ReturnProcessGuid.clear();
    run("Application::OpenProcess", host, kManagerTitle, [] {});
    return ReturnProcessGuid;
}

void Application::EditFeatureCase(const std::shared_ptr<HostApplication>& host, WindowHandle,
                                  const CaseDescription&) {
    run("Application::EditFeatureCase", host, kManagerTitle, [] {});
}

std::string Application::OpenFeatureCase(const std::shared_ptr<HostApplication>& host, WindowHandle,
                                         const CaseDescription&) {
    const bool ran = run("Application::OpenFeatureCase", host, kManagerTitle, [] {});
    return ran ? ReturnFeatureCaseGuid : std::string();
}

void Application::EditProcess(const std::shared_ptr<HostApplication>& host, WindowHandle,
                              const CaseDescription&) {
    run("Application::EditProcess", host, kEditorTitle, [] {});
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

void Application::Dispose() {
    trap(platform_.trace, "Application::Dispose", [this] { component_.reset(); });
}

}  // namespace pellmark
