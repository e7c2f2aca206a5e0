#include "host/Application.h"

#include "base/Error.h"

namespace pellmark {

namespace {

constexpr const char* kManagerTitle = "Norvex - Process Manager";
constexpr const char* kEditorTitle = "Norvex - Process Tech Loftwise";

}  // namespace

Application::Application(const Platform& platform)
    : platform_(platform), services_(std::make_unique<Services>(platform)) {}

Application::~Application() {
    end();
}

template <class Call>
void Application::run(const char* operation, const std::shared_ptr<HostApplication>& host, const char* title,
                      Call&& call) {
    if (!host) return;
    if (platform_.operations.running()) {
        // The host's window is disabled under a dialog, but a script of it, or a member that the component
        // calls, may still come here.
        platform_.operations.trace().record(operation, "refused: the component has not ended what it does");
        return;
    }
    trapCommand(platform_.operations, operation, [&] {
        if (!services_) throw Error(errors::kInvalidArgument, "Pellmark", "Dispose was called before");
        if (startUp(host, title)) call();
    });
}

bool Application::startUp(const std::shared_ptr<HostApplication>& host, const char* title) {
    services_->configureTexts(*host, title);
    if (!services_->isConnected()) {
        const UserInterface& person = services_->person;
        std::string text = person.texts.GetString("Not connected to database");
        if (const std::string& reason = services_->missingKnowledgeBase(); !reason.empty())
            text += "\n\n" + reason;
        person.show({text, "", MessageIcon::Critical});
        return false;
    }
    services_->take(host);
    return true;
}

FrmMain& Application::mainForm() {
    if (!mainForm_) mainForm_ = std::make_unique<FrmMain>(services_->forViews());
    return *mainForm_;
}

void Application::ShowWindowProcessesView(const std::shared_ptr<HostApplication>& host,
                                          const std::string& processGuid) {
    run("Application::ShowWindowProcessesView", host, kManagerTitle, [&] {
        // The refill would otherwise go to the first row, although the host named none.
        const std::string select = processGuid.empty() ? shown().processGuid : processGuid;
        showEmbedded(FRView::FRProcesses);
        if (cProcess* list = mainForm().processes()) list->RefreshList(select);
    });
}

void Application::ShowWindowProcessCaseView(const std::shared_ptr<HostApplication>& host,
                                            const CaseDescription& description) {
    run("Application::ShowWindowProcessCaseView", host, kManagerTitle, [&] {
        CaseDescription wanted = description;
        if (CaseView* current = mainForm().caseView()) {
            // Made anew, its lists would begin at their first rows, although the host named none.
            const CaseDescription before = current->shown();
            if (wanted.processGuid.empty()) wanted.processGuid = before.processGuid;
            if (wanted.processStepGuid.empty()) wanted.processStepGuid = before.processStepGuid;
        }
        showEmbedded(FRView::FRProcesscase);
        if (CaseView* view = mainForm().caseView()) view->show(wanted);
    });
}

std::string Application::OpenProcess(const std::shared_ptr<HostApplication>& host, WindowHandle owner,
                                     const CaseDescription& description) {
    std::string answer;  // this object may be gone when the call has ended
    run("Application::OpenProcess", host, kManagerTitle, [&] {
        ReturnProcessGuid.clear();
        interruptEmbeddedView([&] {
            captionForPicking();
            showModally(owner, description);
            answer = ReturnProcessGuid;
        });
    });
    return answer;
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
    std::string answer;  // a call that could not begin answers nothing
    run("Application::OpenFeatureCase", host, kManagerTitle, [&] {
        interruptEmbeddedView([&] {
            mainForm().FeatureCasePick = true;
            captionForPicking();
            showModally(owner, description);
            answer = ReturnFeatureCaseGuid;  // after a cancel that of the last confirmed pick
        });
    });
    return answer;
}

void Application::EditProcess(const std::shared_ptr<HostApplication>& host, WindowHandle owner,
                              const CaseDescription& description) {
    run("Application::EditProcess", host, kEditorTitle, [&] {
        interruptEmbeddedView([&] {
            FrmMain& form = mainForm();
            form.unload();  // its lists are built anew for this call
            form.SetView(FRView::FRProcesscase);
            form.load();
            if (CaseView* view = form.caseView()) {
                view->show(description);
                view->processes.editForHost(description.processGuid, owner);
            }
            form.unload();
        });
    });
}

void Application::showEmbedded(FRView view) {
    FrmMain& form = mainForm();
    const WindowHandle parent = services_->host.mainWindow();
    form.SetView(view);
    captionForViewing();  // before the first paint, so that no OK button flashes up
    if (!form.isShown() || form.embeddedIn() != parent) form.embed(parent);
}

void Application::captionForViewing() {
    FrmMain& form = mainForm();
    form.CmdOK.setVisible(false);
    form.CmdCancel.setCaption(services_->texts.GetString("Exit"));
}

void Application::captionForPicking() {
    FrmMain& form = mainForm();
    form.CmdOK.setVisible(true);
    form.CmdCancel.setCaption(services_->texts.GetString("Cancel"));
}

void Application::showModally(WindowHandle owner, const CaseDescription& description) {
    FrmMain& form = mainForm();
    form.SetView(FRView::FRProcesscase);
    if (CaseView* view = form.caseView()) view->show(description);
    form.showModal(owner);
    form.FeatureCasePick = false;
    if (const auto& picked = form.picked()) {
        ReturnProcessGuid = picked->processId;
        ReturnFeatureCaseGuid = picked->featureCaseId;
    }
}

template <class Show>
void Application::interruptEmbeddedView(Show&& show) {
    FrmMain& form = mainForm();
    const std::optional<EmbeddedPlace> place = form.embeddedPlace();
    if (!place) {
        form.unload();  // its window may have gone with the host's
        show();
        return;
    }
    Control* const focused = form.focused();
    const FRView view = form.view();
    const CaseDescription before = shown();
    form.unload();
    trap(platform_.operations, "Application::interruptEmbeddedView", [&] { show(); });
    services_->texts.setTitle(services_->texts.GetString(kManagerTitle));
    form.SetView(view);
    captionForViewing();
    if (focused != nullptr) focused->setFocus();
    form.embed(*place);
    if (CaseView* restored = form.caseView()) {
        restored->showAgain(before);
    } else if (cProcess* list = form.processes()) {
        list->RefreshList(before.processGuid);
    }
}

CaseDescription Application::shown() {
    if (!mainForm_) return {};
    if (CaseView* view = mainForm_->caseView()) return view->shown();
    CaseDescription now;
    if (const cProcess* list = mainForm_->processes()) now.processGuid = list->SelectedProcessID();
    return now;
}

std::string Application::missingKnowledgeBase() const {
    return services_ ? services_->missingKnowledgeBase() : std::string();
}

void Application::Dispose() {
    platform_.operations.whenIdle([self = std::weak_ptr(self_)] {
        if (const auto application = self.lock()) (*application)->end();
    });
}

void Application::end() {
    trap(platform_.operations, "Application::Dispose", [this] {
        if (mainForm_) {
            mainForm_->releaseView();
            mainForm_->unload();
        }
        mainForm_.reset();
        services_.reset();
    });
}

}  // namespace pellmark
