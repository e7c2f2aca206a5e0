#include "host/Application.h"

#include "featurecases/cFeatureCase.h"
#include "host/Component.h"
#include "host/FrmMain.h"
#include "processes/cProcess.h"

namespace pellmark {

namespace {

constexpr const char* kManagerTitle = "Norvex - Process Manager";

}  // namespace

Application::Application(const Platform& platform)
    : platform_(platform), component_(std::make_unique<Component>(*this, platform)) {}

Application::~Application() { Dispose(); }

template <class Call>
void Application::run(const char* operation, const std::shared_ptr<HostApplication>& host, const char* title,
                      Call&& call) {
    trap(platform_.trace, operation, [&] {
        if (!host) return;
        if (!component_) throw Error(errors::kInvalidArgument, "Pellmark", "Dispose was called before");
        if (startUp(host, title)) call();
    });
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
