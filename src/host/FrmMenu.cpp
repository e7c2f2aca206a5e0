#include "host/FrmMenu.h"

#include <algorithm>
#include <functional>
#include <initializer_list>

#include "base/Error.h"
#include "host/Views.h"

namespace pellmark {

namespace {

/// Below the headings, for a menu that the keyboard asks for.
constexpr Point kKeyboardPlace{-1, -1};

/// Keys as keyboards name them; looked up like captions.
constexpr const char* kInsertKey = "Ins";
constexpr const char* kDeleteKey = "Del";
constexpr const char* kEnterKey = "Enter";
constexpr const char* kEditKey = "F2";

MenuItem& itemOf(Menu& menu, std::string_view name) {
    auto& items = menu.items();
    const auto found =
        std::find_if(items.begin(), items.end(), [name](const MenuItem& item) { return item.name == name; });
    if (found == items.end()) throw Error(errors::kInvalidArgument, "Pellmark.FrmMenu", std::string(name));
    return *found;
}

/// Where a dialog has a default button, Enter presses that.
bool enterEdits(Grid& grid) {
    const Button* button = grid.form() == nullptr ? nullptr : grid.form()->defaultButton();
    return button == nullptr || !button->visible() || !button->enabled();
}

WindowHandle windowOf(Grid& grid) {
    const Form* const form = grid.form();
    return form != nullptr ? form->handle() : 0;
}

void enable(Menu& menu, std::initializer_list<const char*> names, bool enabled) {
    for (const char* name : names)
        itemOf(menu, name).enabled = enabled;
}

}  // namespace

FrmMenu::FrmMenu(const UserInterface& person, cVSGridOps& gridOps)
    : Form(person.desktop, "FrmMenu"), person_(person), gridOps_(gridOps) {
    setCaption("Menus");
    buildProcessMenu();
    buildStepMenu();
    mnufetaureCaseContext.add("mnuProperties", "Properties", [this] {
        if (featureCase_ != nullptr) featureCase_->Properties();
    });
    buildOtherMenus();
}

FrmMenu::~FrmMenu() = default;

void FrmMenu::buildProcessMenu() {
    using Command = void (cProcess::*)();
    const auto list = [this](Command command) -> std::function<void()> {
        return [this, command] {
            if (processes_ != nullptr) std::invoke(command, *processes_);
        };
    };
    mnuProcess.add("mnuProcessAddNew", "New...", list(&cProcess::AddNewWizard)).shortcut = kInsertKey;
    mnuProcess.add("mnuProcessEdit", "Edit...", list(&cProcess::Editwizard));
    mnuProcess.add("mnuProcessEditProcessses", "Process Members...",
                   list(&cProcess::EditExistingProcesseswizard));
    mnuProcess.add("mnuProcessBar2", "-");
    mnuProcess.add("mnuProcessDelete", "Delete", list(&cProcess::Delete)).shortcut = kDeleteKey;
    mnuProcess.add("mnuProcessDeleteFromfeatureCase", "Delete From Feature Case",
                   list(&cProcess::DeleteFromFeatureCase));
    mnuProcess.add("mnuProcessBar1", "-");
    mnuProcess.add("mnuProcessSaveAs", "Save...", [this] {
        if (FGProcesses != nullptr) gridOps_.SaveGrid(*FGProcesses, windowOf(*FGProcesses));
    });
    mnuProcess.add("mnuProcessPrint", "Print...", [this] {
        if (FGProcesses != nullptr) gridOps_.PrintGrid(*FGProcesses, person_.texts.GetString("Processes"));
    });
    mnuProcess.add("mnuProcessFormatColumns", "Format Columns...", [this] { formatColumns(FGProcesses); });
}

void FrmMenu::buildStepMenu() {
    using Command = void (cProcessSteps::*)();
    const auto list = [this](Command command) -> std::function<void()> {
        return [this, command] {
            if (steps_ != nullptr) std::invoke(command, *steps_);
        };
    };
    mnuProcessStep.add("mnuProcessStepAddNew", "New...", list(&cProcessSteps::AddNewWizard)).shortcut =
        kInsertKey;
    mnuProcessStep.add("mnuProcessStepEdit", "Edit...", list(&cProcessSteps::Editwizard));
    mnuProcessStep.add("mnuProcessStepBar2", "-");
    mnuProcessStep.add("mnuProcessStepDelete", "Delete", list(&cProcessSteps::Delete)).shortcut = kDeleteKey;
    mnuProcessStep.add("mnuProcessStepBar1", "-");
    mnuProcessStep.add("mnuProcessStepOpen", "Open...", list(&cProcessSteps::OpenPrc));
    mnuProcessStep.add("mnuProcessStepSave", "Save...", list(&cProcessSteps::Save));
    mnuProcessStep.add("mnuProcessStepPrint", "Print...", [this] {
        if (FGProcessStep != nullptr)
            gridOps_.PrintGrid(*FGProcessStep, person_.texts.GetString("Process Steps"));
    });
    mnuProcessStep.add("mnuProcessStepFormatColumns", "Format Columns...",
                       [this] { formatColumns(FGProcessStep); });
}

void FrmMenu::buildOtherMenus() {
    for (Menu* menu : {&mnuDefaultStep, &mnuDefault, &mnuPartType}) {
        menu->add(menu->name() + "AddNew", "New...");
        menu->add(menu->name() + "Edit", "Edit...");
        menu->add(menu->name() + "Delete", "Delete");
        menu->add(menu->name() + "Save", "Save...");
        menu->add(menu->name() + "Print", "Print...");
        menu->add(menu->name() + "FormatColumns", "Format Columns...");
    }
    mnuFeatureType.add("mnuFeatureTypeAddNewWizard", "New...");
    mnuFeatureType.add("mnuFeatureTypeEdit", "Edit...");
    mnuFeatureType.add("mnuFeatureTypeEditKeys", "Edit Keys...");
    mnuFeatureType.add("mnuFeatureTypeDelete", "Delete");
    mnuFeatureType.add("mnuFeatureTypeDeleteFromPart", "Delete From Part");
    mnuFeatureType.add("mnuFeatureTypeSave", "Save...");
}

void FrmMenu::serve(cProcess& processes) {
    release();
    serveProcesses(processes);
}

void FrmMenu::serve(CaseView& view, Grid& processCase) {
    release();
    featureCase_ = &view.featureCase;
    steps_ = &view.steps;
    FGProcessCase = &processCase;
    FGProcessStep = &view.steps.grid();
    serveProcesses(view.processes);
    listen(processCase, "FrmMenu::FGProcessCase_MouseDown", mnufetaureCaseContext, nullptr);
    listen(*FGProcessStep, "FrmMenu::FGProcessStep_MouseDown", mnuProcessStep, &FrmMenu::prepareStepMenu);
}

void FrmMenu::serveProcesses(cProcess& processes) {
    processes_ = &processes;
    FGProcesses = &processes.grid();
    listen(*FGProcesses, "FrmMenu::FGProcesses_MouseDown", mnuProcess, &FrmMenu::prepareProcessMenu);
    subscriptions_.push_back(FGProcesses->keyPressed.subscribe([this](KeyPress& key) {
        if (!key.control || key.keyCode != 'M') return;
        key.handled = true;
        EditMaterials();
    }));
}

void FrmMenu::release() {
    subscriptions_.clear();
    processes_ = nullptr;
    featureCase_ = nullptr;
    steps_ = nullptr;
    FGProcesses = nullptr;
    FGProcessCase = nullptr;
    FGProcessStep = nullptr;
}

void FrmMenu::listen(Grid& grid, const char* operation, Menu& menu, void (FrmMenu::*prepare)()) {
    const auto open = [this, &grid, operation, &menu, prepare](Point at) {
        trap(person_.operations(), operation, [&] {
            if (prepare != nullptr) (this->*prepare)();
            popUpOver(grid, menu, at);
        });
    };
    subscriptions_.push_back(grid.mousePressed.subscribe([open](const MousePress& press) {
        if (press.button == MouseButton::Right) open(press.at);
    }));
    subscriptions_.push_back(grid.contextMenuRequested.subscribe([open] { open(kKeyboardPlace); }));
}

void FrmMenu::prepareProcessMenu() {
    const bool hasData = FGProcesses->rows() >= 2;
    enable(mnuProcess, {"mnuProcessAddNew"}, true);
    enable(mnuProcess,
           {"mnuProcessDelete", "mnuProcessEdit", "mnuProcessDeleteFromfeatureCase", "mnuProcessPrint",
            "mnuProcessSaveAs", "mnuProcessFormatColumns"},
           hasData);
    itemOf(mnuProcess, "mnuProcessEdit").shortcut = enterEdits(*FGProcesses) ? kEnterKey : kEditKey;
    // A new process is attached to a feature case from the start, so there must be one to attach it to.
    const bool ofCase = featureCase_ != nullptr;
    for (const char* name :
         {"mnuProcessDeleteFromfeatureCase", "mnuProcessAddNew", "mnuProcessEditProcessses"}) {
        itemOf(mnuProcess, name).visible = ofCase;
    }
}

void FrmMenu::prepareStepMenu() {
    const std::string stepId = gridOps_.SelectedId(*FGProcessStep);
    const bool hasData = FGProcessStep->rows() >= 2;
    const bool hasProcess = processes_ != nullptr && !processes_->SelectedProcessID().empty();
    itemOf(mnuProcessStep, "mnuProcessStepEdit").shortcut = enterEdits(*FGProcessStep) ? kEnterKey : "";
    // A step is added to, and read from a file into, the selected process.
    enable(mnuProcessStep, {"mnuProcessStepAddNew", "mnuProcessStepOpen"}, hasProcess);
    enable(mnuProcessStep, {"mnuProcessStepEdit"}, hasData && !stepId.empty());
    enable(
        mnuProcessStep,
        {"mnuProcessStepDelete", "mnuProcessStepSave", "mnuProcessStepPrint", "mnuProcessStepFormatColumns"},
        hasData);
}

void FrmMenu::popUpOver(Grid& grid, Menu& menu, Point at) {
    Form* form = grid.form();
    if (form == nullptr) return;
    // The language is the host's and may change between two calls, so what is opened is translated each time.
    Menu shown(menu.name(), menu.caption());
    for (const MenuItem& item : menu.items()) {
        MenuItem& copy =
            shown.add(item.name, item.isSeparator() ? "-" : person_.texts.GetString(item.caption));
        copy.command = item.command;
        copy.visible = item.visible;
        if (!item.shortcut.empty()) copy.shortcut = person_.texts.GetString(item.shortcut);
        // An item whose command does not exist yet must not look as if it did something.
        copy.enabled = item.enabled && item.command != nullptr;
    }
    form->popUp(shown, grid, at);
}

void FrmMenu::formatColumns(Grid* grid) {
    const Form* const form = grid == nullptr ? nullptr : grid->form();
    if (form != nullptr) gridOps_.FormatColumns(*grid, *form);
}

void FrmMenu::EditMaterials() {
    if (processes_ != nullptr) processes_->EditMaterialsWizard();
}

}  // namespace pellmark
