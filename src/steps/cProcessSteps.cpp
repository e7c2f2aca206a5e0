#include "steps/cProcessSteps.h"

#include <algorithm>
#include <exception>
#include <functional>

#include "base/Error.h"
#include "base/Text.h"
#include "settings/NumberOptions.h"
#include "steps/FrmAddEditProcessTechStep.h"
#include "steps/StepColumns.h"
#include "steps/StepLooks.h"
#include "steps/StepRows.h"
#include "steps/StepTechnology.h"

namespace pellmark {

namespace {

constexpr const char* kMessageTitle = "Norvex - Process Manager";

int firstShownColumn(const Grid& grid) {
    for (int col = grid.fixedCols(); col < grid.cols(); ++col) {
        if (!grid.colHidden(col)) return col;
    }
    return grid.fixedCols();
}

}  // namespace

cProcessSteps::cProcessSteps(const StepServices& services, const Grid* processes)
    : services_(services), processes_(processes), files_(services) {}

void cProcessSteps::Init(Grid& grid) {
    grid_ = &grid;
    trap(services_.person.operations(), "cProcessSteps::Init", [this] {
        const Grid::RedrawOff off(*grid_);
        layOutColumns(*grid_, kStepColumns, [this](const std::string& english) {
            return services_.person.texts.GetString(english);
        });
        grid_->setFixedCols(1);
        layout_.emplace(*grid_, services_.person.layouts);
    });
    listen();
    RefreshList("");
}

void cProcessSteps::listen() {
    const Operations& operations = services_.person.operations();
    const auto on = [this](Subscription subscription) { subscriptions_.push_back(std::move(subscription)); };
    subscriptions_.clear();
    edits_ = std::make_unique<StepEdits>(services_, *grid_);
    on(grid_->doubleClicked.subscribe([this](int row) {
        if (row >= grid_->fixedRows()) Editwizard();
    }));
    on(grid_->keyPressed.subscribe([this](KeyPress& key) { keyPressed(key); }));
    on(grid_->dragStarted.subscribe([this, operations](DragData& drag) {
        trap(operations, "cProcessSteps::DragStart", [&] { offerSelection(drag); });
    }));
}

void cProcessSteps::offerFinding(FindLine& line) {
    arrangement_ = std::make_unique<ListArrangement>(services_.person, services_.idle, *grid_, line);
    subscriptions_.push_back(arrangement_->changed.subscribe([this] { rearrange(); }));
}

void cProcessSteps::keyPressed(KeyPress& key) {
    if (key.handled) return;
    key.handled = true;
    if (key.keyCode == KeyPress::kDelete) {
        Delete();
    } else if (key.is(KeyPress::kEnter) || key.is(KeyPress::kF2)) {
        Editwizard();
    } else if (key.is(KeyPress::kInsert)) {
        AddNewWizard();
    } else if (key.is(KeyPress::kF5)) {
        Refresh();
    } else if (key.isWithControl('C')) {
        CopySelection();
    } else {
        key.handled = false;
    }
}

std::string cProcessSteps::selectedProcess() const {
    return processes_ == nullptr ? std::string() : services_.gridOps.SelectedId(*processes_);
}

std::string cProcessSteps::SelectedStepID() const {
    return grid_ == nullptr ? std::string() : services_.gridOps.SelectedId(*grid_);
}

WindowHandle cProcessSteps::ownerWindow() const {
    Form* const form = grid_->form();
    return form == nullptr ? 0 : form->handle();
}

// --- filling ----------------------------------------------------------------------------------------------

void cProcessSteps::RefreshList(const std::string& selectId) {
    trap(services_.person.operations(), "cProcessSteps::RefreshList", [&] {
        const Grid::RedrawOff off(*grid_);
        if (layout_) layout_->restore();
        fill(selectId);
        offerCuttingCycles();
    });
}

void cProcessSteps::Refresh() {
    carryOut(services_.person, "cProcessSteps::Refresh", [this] {
        KeptPlace place(*grid_);
        const Grid::RedrawOff off(*grid_);
        fill(place.currentId());
        offerCuttingCycles();
        place.restoreSelection();
        place.restoreScroll();
    });
}

void cProcessSteps::rearrange() {
    trapAndTell(services_.person, "cProcessSteps::rearrange", [this] {
        KeptPlace place(*grid_);
        const Grid::RedrawOff off(*grid_);
        fill(place.currentId().empty() ? arrangement_->rowBefore() : place.currentId());
        place.restoreSelection();
    });
}

void cProcessSteps::FollowProcess() {
    trap(services_.person.operations(), "cProcessSteps::FollowProcess", [this] {
        const Grid::RedrawOff off(*grid_);
        const bool sameProcess = equalNoCase(selectedProcess(), shownProcess_);
        fill(sameProcess ? SelectedStepID() : std::string());
        // The cycles are the same for every process.
        if (grid_->colComboList(grid_->colIndex(field::kCuttingCycleId)).empty()) offerCuttingCycles();
    });
}

void cProcessSteps::fill(const std::string& selectId) {
    shownProcess_ = selectedProcess();
    // The steps of another process must not stay where these cannot be read.
    grid_->bind(nullptr);
    hideInternalColumns(*grid_, kStepColumns, services_.settings.orDefault(option::kDebugMode) == 0);
    if (shownProcess_.empty()) return;
    auto steps = store().steps(shownProcess_);
    if (arrangement_) steps = arrangement_->arranged(std::move(steps));
    grid_->bind(std::move(steps));
    services_.gridOps.SetRowDataToIds(*grid_);
    selectStep(selectId);
    decorate();
}

/// What has just been stored is shown, also where it is not what is looked for.
void cProcessSteps::fillWith(const std::string& stepId) {
    const Grid::RedrawOff off(*grid_);
    fill(stepId);
    const bool isHidden = arrangement_ && arrangement_->isNarrowed() && grid_->findRow(stepId) < 0;
    if (isHidden && arrangement_->drop()) fill(stepId);
}

void cProcessSteps::offerCuttingCycles() {
    const auto cycles = store().cuttingCycles({std::begin(kListedCycleTypes), std::end(kListedCycleTypes)});
    const std::size_t id = cycles->requireField(field::kId);
    const std::size_t name = cycles->requireField(field::kName);
    DisplayList list;
    for (std::size_t i = 0; i < cycles->count(); ++i)
        list.add(cycles->text(i, id), cycles->text(i, name));
    grid_->setColComboList(grid_->colIndex(field::kCuttingCycleId), list.text());
}

void cProcessSteps::selectStep(const std::string& id) {
    int row = grid_->findRow(id);
    if (row < 0 && grid_->hasData()) row = grid_->fixedRows();
    if (row < 0) return;
    const int col = firstShownColumn(*grid_);
    grid_->select(row, col);
    grid_->showCell(row, col);
}

void cProcessSteps::decorate() {
    trap(services_.person.operations(), "cProcessSteps::DecorateRows",
         [this] { decorateSteps(*grid_, store(), services_.settings, services_.person.texts); });
}

void cProcessSteps::UpdateFromDb(const std::string& id) {
    trap(services_.person.operations(), "cProcessSteps::UpdateFromDb", [&] {
        if (grid_->findRow(id) >= 0) showStoredStep(*grid_, store(), id);
    });
}

// --- commands ---------------------------------------------------------------------------------------------

void cProcessSteps::Delete() {
    carryOut(services_.person, "cProcessSteps::Delete", [this] {
        if (!services_.rights.CheckPermission(PermissionDelete)) return;
        // The list may change while the question is open.
        const std::vector<std::string> ids = selectedIdsBottomUp();
        if (ids.empty()) return;
        const MessageBox question{
            services_.person.texts.GetString("Permanently delete selected item(s) from the database?"),
            kMessageTitle,
            MessageIcon::Question,
            MessageButtons::OkCancel,
            namesOf(ids),
            true};
        if (services_.person.desktop.showMessage(question) == MessageAnswer::Ok) deleteSteps(ids);
    });
}

std::vector<std::string> cProcessSteps::selectedIdsBottomUp() const {
    std::vector<int> rows;
    for (int i = 0; i < grid_->selectedRows(); ++i)
        rows.push_back(grid_->selectedRow(i));
    std::sort(rows.begin(), rows.end(), std::greater<>());
    std::vector<std::string> ids;
    for (const int row : rows)
        ids.push_back(grid_->rowData(row));
    return ids;
}

std::vector<std::string> cProcessSteps::namesOf(const std::vector<std::string>& idsBottomUp) const {
    std::vector<std::string> names;
    std::transform(idsBottomUp.rbegin(), idsBottomUp.rend(), std::back_inserter(names),
                   [this](const std::string& id) { return grid_->text(grid_->findRow(id), field::kName); });
    return names;
}

void cProcessSteps::deleteSteps(const std::vector<std::string>& ids) {
    std::exception_ptr failure;
    {
        const Grid::RedrawOff off(*grid_);
        for (const std::string& id : ids) {
            // One step that fails must not keep the others from being deleted; the first failure is told,
            // the others are traced.
            try {
                if (store().deleteStep(id)) {
                    grid_->removeRow(grid_->findRow(id));
                } else {
                    // A step that is refused keeps its row; one that somebody else has deleted does not.
                    showStoredStep(*grid_, store(), id);
                }
            } catch (...) {
                if (failure) {
                    services_.person.operations().trace().record("cProcessSteps::Delete",
                                                                 describeCurrentException());
                } else {
                    failure = std::current_exception();
                }
            }
        }
        if (grid_->selectedRows() == 0) grid_->select(grid_->row(), firstShownColumn(*grid_));
    }
    if (failure) std::rethrow_exception(failure);
}

void cProcessSteps::CopySelection() {
    carryOut(services_.person, "cProcessSteps::CopySelection",
             [this] { services_.gridOps.CopySelection(*grid_); });
}

void cProcessSteps::AddNewWizard() {
    carryOut(services_.person, "cProcessSteps::AddNewWizard", [this] {
        if (!services_.rights.CheckPermission(PermissionAdd)) return;
        if (processes_ == nullptr) return;
        const std::string process = processes_->text(processes_->row(), field::kId);
        if (process.empty()) return;
        frmAddEditProcessTechStep dialog(services_, process);
        const Subscription told = dialog.processStored.subscribe(
            [this](const std::string& processId) { processStepsStored.raise(processId); });
        dialog.showModal(ownerWindow());
        if (dialog.StoredStepId().empty()) {
            decorate();
        } else {
            fillWith(dialog.StoredStepId());
        }
    });
}

void cProcessSteps::Editwizard() {
    carryOut(services_.person, "cProcessSteps::Editwizard", [this] {
        if (!services_.rights.CheckPermission(PermissionEdit)) return;
        const std::string id = SelectedStepID();
        if (id.empty()) return;
        try {
            runWizard(id);
        } catch (const Error& error) {
            if (error.number() != errors::kNotFound || showStoredStep(*grid_, store(), id)) throw;
            tellStepIsGone(services_.person);
        }
    });
}

void cProcessSteps::runWizard(const std::string& id) {
    const ProcessStepRecord step = store().step(id);
    const TechParams stored = storedValues(*store().values(id));
    const auto technology = services_.technology.create(step.cuttingCycleId, step.processId);
    handOver(*technology, stored, Quotes::Remove);
    technology->setOperationName(withoutQuotes(step.name));
    const TechParams before = valuesNow(*technology);
    const std::string nameBefore = withoutQuotes(technology->operationName());
    if (!services_.technology.runStepWizard(*technology, ownerWindow())) return;

    const ValueChanges changes = changesBetween(before, valuesNow(*technology), stored, id);
    const std::string name = withoutQuotes(technology->operationName());
    const ProcessStepRecord now = store().step(id);
    const bool overTheirName = name != nameBefore && now.name != step.name && now.name != name;
    const bool overTheirs =
        overTheirName || overwriteOthers(changes, stored, storedValues(*store().values(id)));
    if (overTheirs && !mayOverwrite()) return;
    for (const StepValueRecord& value : changes.set)
        store().setValue(value);
    for (const std::int32_t code : changes.removed)
        store().deleteValue(id, code);
    if (name != nameBefore) {
        // What else of the step has changed while the wizard was open is not the wizard's.
        ProcessStepRecord renamed = store().step(id);
        renamed.name = name;
        store().updateStep(renamed);
        showStoredStep(*grid_, store(), id);
    }
    if (changes.set.empty() && changes.removed.empty()) return;
    trap(services_.person.operations(), "cProcessSteps::Editwizard",
         [&] { services_.technology.stored(id, *technology); });
    decorate();
}

bool cProcessSteps::mayOverwrite() {
    const MessageBox question{
        services_.person.texts.GetString("Somebody else has changed the same values of this step meanwhile. "
                                         "Store yours in their place?"),
        "",
        MessageIcon::Question,
        MessageButtons::OkCancel,
        {},
        true};
    return services_.person.show(question) == MessageAnswer::Ok;
}

void cProcessSteps::OpenPrc() {
    carryOut(services_.person, "cProcessSteps::OpenPrc", [this] {
        if (!services_.rights.CheckPermission(PermissionAdd)) return;
        const std::string process = selectedProcess();
        if (process.empty()) return;
        const std::string path = files_.askForFile(ownerWindow());
        if (path.empty()) return;
        ProcessFiles::Import outcome;
        const bool whole = trapAndTell(services_.person, "cProcessSteps::OpenPrc",
                                       [&] { files_.import(path, process, ownerWindow(), outcome); });
        fillWith(outcome.firstStepId.empty() ? SelectedStepID() : outcome.firstStepId);
        tellImport(outcome, !whole);
    });
}

void cProcessSteps::tellImport(const ProcessFiles::Import& outcome, bool failed) {
    // Where nothing at all was added because of a failure, that has been told.
    const bool inPart = outcome.added < outcome.all && (!failed || outcome.added > 0);
    if (!outcome.cancelled && !inPart) return;
    Texts& texts = services_.person.texts;
    services_.person.show(
        {texts.GetString("The import has not come to its end. Steps that have been added:") + " " +
             std::to_string(outcome.added) + " / " + std::to_string(outcome.all),
         "", MessageIcon::Information});
}

void cProcessSteps::Save() {
    carryOut(services_.person, "cProcessSteps::Save", [this] {
        files_.save(
            *grid_, selectedProcess(), [this] { return allIds(); }, ownerWindow());
    });
}

/// A process file holds the whole process, whatever a person looks for or sorts by in the list.
std::vector<std::string> cProcessSteps::allIds() {
    std::vector<std::string> ids;
    if (arrangement_ == nullptr || arrangement_->isPlain()) {
        for (int row = grid_->fixedRows(); row < grid_->rows(); ++row)
            ids.push_back(grid_->rowData(row));
        return ids;
    }
    const auto steps = store().steps(selectedProcess());
    const std::size_t id = steps->requireField(field::kId);
    for (std::size_t i = 0; i < steps->count(); ++i)
        ids.push_back(steps->text(i, id));
    return ids;
}

void cProcessSteps::offerSelection(DragData& drag) {
    drag.clear();
    const std::string folder = services_.gridOps.GetTempFolderPath();
    const std::string path = folder + "Processes.csv";
    const std::string text = services_.gridOps.SelectionAsDelimitedText(*grid_, ",");
    // Where the file cannot be written, which is traced there, the text alone is offered.
    if (!folder.empty() && services_.fileIO.WriteFile(path, text)) drag.files = {path};
    drag.text = replaced(text, ',', '\t');
    drag.copyOnly = true;
}

}  // namespace pellmark
