#include "host/FrmMenu.h"

#include <algorithm>
#include <initializer_list>

#include "base/Error.h"
#include "featurecases/cFeatureCase.h"
#include "host/Component.h"
#include "processes/cProcess.h"

namespace pellmark {

namespace {

/// Below the headings, for a menu that the keyboard asks for.
constexpr Point kKeyboardPlace{-1, -1};

MenuItem& itemOf(Menu& menu, std::string_view name) {
    auto& items = menu.items();
    const auto found =
        std::find_if(items.begin(), items.end(), [name](const MenuItem& item) { return item.name == name; });
    if (found == items.end()) throw Error(errors::kInvalidArgument, "Pellmark.FrmMenu", std::string(name));
    return *found;
}

void enable(Menu& menu, std::initializer_list<const char*> names, bool enabled) {
    for (const char* name : names)
        itemOf(menu, name).enabled = enabled;
}

}  // namespace

FrmMenu::FrmMenu(Component& component) : Form(component.desktop(), "FrmMenu"), component_(component) {
    setCaption("Menus");
    buildProcessMenu();
    buildStepMenu();
    mnufetaureCaseContext.add("mnuProperties", "Properties", [this] {
        if (cFeatureCase* view = component_.featureCase()) view->Properties();
    });
    buildOtherMenus();
}

FrmMenu::~FrmMenu() = default;

void FrmMenu::buildProcessMenu() {
    const auto list = [this](void (cProcess::*command)()) {
        return [this, command] {
            if (cProcess* processes = component_.processes()) (processes->*command)();
        };
    };
    mnuProcess.add("mnuProcessAddNew", "New...", list(&cProcess::AddNewWizard));
    mnuProcess.add("mnuProcessEdit", "Edit...", list(&cProcess::Editwizard));
    mnuProcess.add("mnuProcessEditProcessses", "Process Members...",
                   list(&cProcess::EditExistingProcesseswizard));
    mnuProcess.add("mnuProcessBar2", "-");
    mnuProcess.add("mnuProcessDelete", "Delete", list(&cProcess::Delete));
    mnuProcess.add("mnuProcessDeleteFromfeatureCase", "Delete From Feature Case",
                   list(&cProcess::DeleteFromFeatureCase));
    mnuProcess.add("mnuProcessBar1", "-");
    mnuProcess.add("mnuProcessSaveAs", "Save...");
    mnuProcess.add("mnuProcessPrint", "Print...");
    mnuProcess.add("mnuProcessFormatColumns", "Format Columns...");
}

void FrmMenu::buildStepMenu() {
    mnuProcessStep.add("mnuProcessStepAddNew", "New...");
    mnuProcessStep.add("mnuProcessStepEdit", "Edit...");
    mnuProcessStep.add("mnuProcessStepBar2", "-");
    mnuProcessStep.add("mnuProcessStepDelete", "Delete");
    mnuProcessStep.add("mnuProcessStepBar1", "-");
    mnuProcessStep.add("mnuProcessStepOpen", "Open...");
    mnuProcessStep.add("mnuProcessStepSave", "Save...");
    mnuProcessStep.add("mnuProcessStepPrint", "Print...");
    mnuProcessStep.add("mnuProcessStepFormatColumns", "Format Columns...");
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

void FrmMenu::setGrids(Grid* processes, Grid* processCase, Grid* processStep) {
    FGProcesses = processes;
    FGProcessCase = processCase;
    FGProcessStep = processStep;
    subscriptions_.clear();
    if (processes != nullptr) {
        listen(*processes, "FrmMenu::FGProcesses_MouseDown", mnuProcess, &FrmMenu::prepareProcessMenu);
    }
    if (processCase != nullptr) {
        listen(*processCase, "FrmMenu::FGProcessCase_MouseDown", mnufetaureCaseContext, nullptr);
    }
    if (processStep != nullptr) {
        listen(*processStep, "FrmMenu::FGProcessStep_MouseDown", mnuProcessStep, &FrmMenu::prepareStepMenu);
    }
}

void FrmMenu::listen(Grid& grid, const char* operation, Menu& menu, void (FrmMenu::*prepare)()) {
    const auto open = [this, &grid, operation, &menu, prepare](Point at) {
        trap(component_.trace(), operation, [&] {
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
    // A new process is attached to a feature case from the start, so there must be one to attach it to.
    const bool ofCase = component_.featureCase() != nullptr;
    for (const char* name :
         {"mnuProcessDeleteFromfeatureCase", "mnuProcessAddNew", "mnuProcessEditProcessses"}) {
        itemOf(mnuProcess, name).visible = ofCase;
    }
}

void FrmMenu::prepareStepMenu() {
    const std::string stepId = component_.gridOps().SelectedId(*FGProcessStep);
    const bool hasData = FGProcessStep->rows() >= 2;
    const bool hasProcess =
        component_.processes() != nullptr && !component_.processes()->SelectedProcessID().empty();
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
        MenuItem& copy = shown.add(item.name, item.isSeparator() ? "-" : component_.GetString(item.caption));
        copy.command = item.command;
        copy.visible = item.visible;
        // An item whose command does not exist yet must not look as if it did something.
        copy.enabled = item.enabled && item.command != nullptr;
    }
    form->popUp(shown, grid, at);
}

void FrmMenu::EditMaterials() {
    if (cProcess* processes = component_.processes()) processes->EditMaterialsWizard();
}

}  // namespace pellmark
