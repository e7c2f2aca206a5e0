#include "processes/cProcess.h"

#include <algorithm>

#include "base/Error.h"
#include "base/Text.h"
#include "knowledge/ArrangedRecords.h"
#include "knowledge/ProcessListRecordset.h"
#include "processes/BracketHeading.h"
#include "processes/CaseProcesses.h"
#include "processes/FrmAddEditProcess.h"
#include "processes/FrmAddExistingProcess.h"
#include "processes/FrmEditProcessMaterials.h"
#include "processes/ProcessMarks.h"
#include "processes/ProcessRemoval.h"
#include "processes/ProcessRows.h"
#include "settings/NumberOptions.h"

namespace pellmark {

namespace {

constexpr int kFirstDataColumn = 0;
constexpr const char* kMessageTitle = "Norvex - Process Manager";

}  // namespace

/// Whatever happens to the rows while one of these lives is one change of the current process.
class cProcess::OneChange {
  public:
    explicit OneChange(cProcess& list) : list_(list) { ++list_.heldBack_; }
    OneChange(const OneChange&) = delete;
    OneChange& operator=(const OneChange&) = delete;
    ~OneChange() {
        if (--list_.heldBack_ > 0) return;
        trap(list_.person_.operations(), "cProcess::currentChanged",
             [this] { list_.currentChanged.raise(); });
    }

  private:
    cProcess& list_;
};

cProcess::cProcess(const UserInterface& person, KnowledgeBaseService& knowledgeBase, Rights& rights,
                   cQDLExtSettings& settings, cVSGridOps& gridOps, Idle& idle, HostApplication& host,
                   cFeatureCase* featureCase)
    : person_(person),
      knowledgeBase_(knowledgeBase),
      rights_(rights),
      settings_(settings),
      gridOps_(gridOps),
      idle_(idle),
      host_(host),
      featureCase_(featureCase),
      all_(knowledgeBase) {}

cProcess::~cProcess() = default;

void cProcess::Init(Grid& grid) {
    grid_ = &grid;
    layOutColumns(grid, columns(), headings());
    layout_.emplace(grid, person_.layouts);
    restoreColumns();
    const auto onGrid = [this](Subscription subscription) {
        subscriptions_.push_back(std::move(subscription));
    };
    subscriptions_.clear();
    onGrid(grid.rowChanged.subscribe([this] {
        if (heldBack_ > 0) return;
        // A row that the knowledge base cannot give is no reason to leave the grid in the midst of a change.
        trap(person_.operations(), "cProcess::rowChanged", [this] {
            const OneChange change(*this);
            refreshWhereGone();
        });
    }));
    onGrid(grid.doubleClicked.subscribe([this](int row) {
        if (row >= grid_->fixedRows()) Editwizard();
    }));
    onGrid(grid.keyPressed.subscribe([this](KeyPress& key) { keyPressed(key); }));
    onGrid(grid.dragStarted.subscribe([this](DragData& drag) {
        trap(person_.operations(), "cProcess::DragStart", [&] { offerSelection(drag); });
    }));
}

void cProcess::offerFinding(FindLine& line) {
    arrangement_ = std::make_unique<ListArrangement>(person_, idle_, *grid_, line);
    subscriptions_.push_back(arrangement_->changed.subscribe([this] { rearrange(); }));
}

void cProcess::keyPressed(KeyPress& key) {
    if (key.handled) return;
    key.handled = true;
    if (key.keyCode == KeyPress::kDelete) {
        Delete();
    } else if (key.is(KeyPress::kEnter) || key.is(KeyPress::kF2)) {
        Editwizard();
    } else if (key.is(KeyPress::kInsert) && featureCase_ != nullptr) {
        // A new process is attached to a feature case from the start, so there must be one to attach it to.
        AddNewWizard();
    } else if (key.is(KeyPress::kF5)) {
        Refresh();
    } else if (key.isWithControl('C')) {
        CopySelection();
    } else {
        key.handled = false;
    }
}

std::span<const ColumnSpec> cProcess::columns() const {
    return processColumns(featureCase_ != nullptr);
}

HeadingText cProcess::headings() const {
    return [&texts = person_.texts, ofCase = featureCase_ != nullptr](const std::string& english) {
        const std::string text = texts.GetString(english);
        return ofCase ? BracketHeading(text) : text;
    };
}

void cProcess::restoreColumns() {
    const Grid::RedrawOff off(*grid_);
    layout_->restore();
    hideInternalColumns(*grid_, columns(), settings_.orDefault(option::kDebugMode) == 0);
}

// --- filling -----------------------------------------------------------------------------------------------

void cProcess::RefreshList(const std::string& selectId) {
    const OneChange change(*this);
    trap(person_.operations(), "cProcess::RefreshList", [&] {
        forgetRead();
        fill(selectId);
    });
}

void cProcess::RefreshListfeatureCase(const std::string& selectId) {
    if (featureCase_ != nullptr) RefreshList(selectId);
}

void cProcess::Refresh() {
    carryOut(person_, "cProcess::Refresh", [this] { readAnew(); });
}

void cProcess::readAnew() {
    const OneChange change(*this);
    KeptPlace place(*grid_);
    forgetRead();
    fill(place.currentId());
    place.restoreSelection();
    place.restoreScroll();
}

void cProcess::rearrange() {
    trapAndTell(person_, "cProcess::rearrange", [this] {
        const OneChange change(*this);
        KeptPlace place(*grid_);
        fill(place.currentId().empty() ? arrangement_->rowBefore() : place.currentId());
        place.restoreSelection();
    });
}

void cProcess::forgetRead() {
    all_.forget();
    ofCase_.reset();
}

/// A row that reads as nothing, though its id is known, has been deleted by somebody else.
void cProcess::refreshWhereGone() {
    const int row = grid_->row();
    if (row < 0 || grid_->rowData(row).empty() || !grid_->text(row, field::kId).empty()) return;
    person_.operations().trace().record("cProcess::rowChanged",
                                        "A listed process is gone: the list is read anew.");
    // What tells of the row is still at work on the rows that there are.
    person_.operations().whenIdle([list = std::weak_ptr(self_)] {
        if (const auto alive = list.lock()) (*alive)->Refresh();
    });
}

void cProcess::fill(const std::string& selectId) {
    fillFailure_.clear();
    try {
        if (featureCase_ == nullptr) {
            fillAll(selectId);
        } else {
            fillFeatureCase(selectId);
        }
    } catch (const std::exception& error) {
        fillFailure_ = error.what();
        throw;
    }
    grid_->setColComboList(grid_->colIndex(field::kUnit), kUnitComboList);
}

void cProcess::fillAll(const std::string& selectId) {
    grid_->bind(all_.read(arrangement_.get()));
    restoreColumns();
    // The first rows are on the screen before the ids of all the others are asked for.
    grid_->paintNow();
    Grid::RedrawOff off(*grid_);
    gridOps_.SetRowDataToIds(*grid_);
    selectProcess(selectId);
    SetOrphanColor();
}

void cProcess::fillFeatureCase(const std::string& selectId) {
    Grid::RedrawOff off(*grid_);
    grid_->bind(nullptr);
    restoreColumns();
    if (!ofCase_) readFeatureCase();
    if (ofCase_->count() == 0) return;
    // The limit is one of the list's own order, exact matches before partial ones, whatever is wanted of it.
    const int most = std::max(settings_.orDefault(option::kMaxProcessReturnNum), 0);
    auto records = firstRecords(ofCase_, static_cast<std::size_t>(most));
    if (arrangement_) records = arrangement_->arranged(std::move(records));
    grid_->bind(std::move(records));
    gridOps_.SetRowDataToIds(*grid_);
    markMatches(*grid_, results_, person_.texts);
    selectProcess(selectId);
}

void cProcess::readFeatureCase() {
    results_.clear();
    results_ = processesOfCase(knowledgeBase_, featureCase_->description(),
                               settings_.orDefault(option::kProcessListStyle));
    auto records = std::make_shared<ProcessListRecordset>();
    for (const pNode& node : results_) {
        // A record that does not fit its fields must not hide the others.
        trap(person_.operations(), "cProcess::RefreshList", [&] { records->addRow(node); });
    }
    if (records->count() > 0) records->setFilter(ProcessListRecordset::unitFilter(featureCase_->GetFTUnit()));
    ofCase_ = std::move(records);
}

void cProcess::SetOrphanColor() {
    markOrphans(*grid_, knowledgeBase_.processStore(), person_.texts);
}

void cProcess::UpdateFromDb(const ProcessRecord& record) {
    forgetRead();
    showStoredProcess(*grid_, knowledgeBase_.processStore(), record.Id);
}

// --- the current process -----------------------------------------------------------------------------------

void cProcess::SetProcessGui(const std::string& id) {
    trap(person_.operations(), "cProcess::SetProcessGui", [&] {
        Grid::RedrawOff off(*grid_);
        nameColumns(*grid_, columns(), headings());
        const int row = grid_->findRow(id);
        if (row < 0) return;
        grid_->select(row, kFirstDataColumn);
        grid_->showCell(row, kFirstDataColumn);
    });
}

void cProcess::selectProcess(const std::string& id) {
    int row = grid_->findRow(id);
    if (row < 0 && grid_->hasData()) row = grid_->fixedRows();
    if (row < 0) return;
    grid_->select(row, kFirstDataColumn);
    grid_->showCell(row, kFirstDataColumn);
}

void cProcess::selectLast() {
    grid_->select(grid_->rows() - 1, kFirstDataColumn);
    grid_->showCell(grid_->rows() - 1, kFirstDataColumn);
}

std::string cProcess::SelectedProcessID() const {
    return grid_ == nullptr ? std::string() : grid_->text(grid_->row(), field::kId);
}

// --- commands ----------------------------------------------------------------------------------------------

void cProcess::Delete() {
    carryOut(person_, "cProcess::Delete", [this] {
        if (!rights_.CheckPermission(PermissionDelete)) return;
        if (grid_->rows() < 2 || grid_->selectedRows() == 0) return;
        ProcessRemoval removal(person_, idle_, *grid_);
        const MessageBox question{
            person_.texts.GetString("Permanently delete selected item(s) from the database?"),
            kMessageTitle,
            MessageIcon::Question,
            MessageButtons::OkCancel,
            removal.names(),
            true};
        if (person_.show(question) != MessageAnswer::Ok) return;
        const OneChange change(*this);
        Grid::RedrawOff off(*grid_);
        forgetRead();
        removal.carryOut("cProcess::Delete", [this](const ProcessRemoval::Target& each) {
            ProcessStore& store = knowledgeBase_.processStore();
            return store.deleteProcess(each.id) || !isStored(store, each.id);
        });
        selectLast();
    });
}

void cProcess::DeleteFromFeatureCase() {
    carryOut(person_, "cProcess::DeleteFromFeatureCase", [this] {
        if (!rights_.CheckPermission(PermissionDelete) || grid_->selectedRows() == 0) return;
        ProcessRemoval removal(person_, idle_, *grid_);
        const MessageBox question{
            "Delete selected process(es) from the selected Feature Case?\r\n\r\nAre you sure?", kMessageTitle,
            MessageIcon::Question, MessageButtons::OkCancel, removal.names()};
        if (person_.show(question) != MessageAnswer::Ok) return;
        const OneChange change(*this);
        Grid::RedrawOff off(*grid_);
        forgetRead();
        removal.carryOut("cProcess::DeleteFromFeatureCase", [this](const ProcessRemoval::Target& each) {
            if (each.featureCaseId.empty()) return false;
            ProcessStore& store = knowledgeBase_.processStore();
            return store.detach(each.featureCaseId, each.id) || !isStored(store, each.id);
        });
        selectLast();
    });
}

void cProcess::CopySelection() {
    carryOut(person_, "cProcess::CopySelection", [this] { gridOps_.CopySelection(*grid_); });
}

bool cProcess::isThere(const std::string& id) {
    if (isStored(knowledgeBase_.processStore(), id)) return true;
    tellProcessIsGone(person_);
    readAnew();
    return false;
}

void cProcess::AddNewWizard() {
    carryOut(person_, "cProcess::AddNewWizard", [this] {
        if (rights_.CheckPermission(PermissionAdd)) openDialog("", ownerWindow(), nullptr);
    });
}

void cProcess::Editwizard() {
    carryOut(person_, "cProcess::Editwizard", [this] {
        if (!rights_.CheckPermission(PermissionEdit)) return;
        // Without an id the dialog would make a new process.
        const std::string id = SelectedProcessID();
        if (!id.empty() && isThere(id)) openDialog(id, ownerWindow(), nullptr);
    });
}

void cProcess::editForHost(const std::string& id, WindowHandle owner) {
    trapAndTell(person_, "cProcess::editForHost", [&] { openDialog(id, owner, &rights_); });
}

void cProcess::openDialog(const std::string& id, WindowHandle owner, Rights* atOk) {
    FrmAddEditProcess dialog(person_, knowledgeBase_, settings_, host_, featureCase_, id, atOk);
    const Subscription stored = dialog.stored.subscribe([this](const ProcessRecord& record) {
        const OneChange change(*this);
        UpdateFromDb(record);
    });
    const Subscription completed = dialog.completed.subscribe([this](const std::string& processId) {
        RefreshList(processId);
        // What has just been stored is shown, also where it is not what is looked for.
        const bool isHidden = arrangement_ && arrangement_->isNarrowed() && grid_->findRow(processId) < 0;
        if (isHidden && arrangement_->drop()) RefreshList(processId);
    });
    dialog.showModal(owner);
}

void cProcess::EditExistingProcesseswizard() {
    carryOut(person_, "cProcess::EditExistingProcesseswizard", [this] {
        if (!rights_.CheckPermission(PermissionEdit) || featureCase_ == nullptr) return;
        if (featureCase_->GetCurrentValueIds().empty()) {
            person_.show({person_.texts.GetString("No feature type is currently selected"), kMessageTitle,
                          MessageIcon::Critical});
            return;
        }
        // OK would detach what a list that could not be read does not show.
        if (!fillFailure_.empty()) throw Error(errors::kKnowledgeBase, "Pellmark.cProcess", fillFailure_);
        // The dialog takes the rows of the list for everything that is attached.
        if (arrangement_ && arrangement_->drop()) rearrange();
        FrmAddExistingProcess dialog(person_, idle_, knowledgeBase_, *featureCase_, *grid_,
                                     std::to_string(featureCase_->GetFTUnit()));
        const std::string current = SelectedProcessID();
        const Subscription completed = dialog.completed.subscribe([this, &current] { RefreshList(current); });
        dialog.showModal(ownerWindow());
    });
}

void cProcess::EditMaterialsWizard() {
    carryOut(person_, "cProcess::EditMaterialsWizard", [this] {
        if (!rights_.CheckPermission(PermissionEdit) || grid_->rows() < 2) return;
        const std::string id = grid_->rowData(grid_->row());
        if (!id.empty() && isThere(id))
            FrmEditProcessMaterials(person_, knowledgeBase_, id).showModal(ownerWindow());
    });
}

WindowHandle cProcess::ownerWindow() const {
    Form* form = grid_->form();
    return form == nullptr ? 0 : form->handle();
}

void cProcess::offerSelection(DragData& drag) {
    drag.clear();
    const std::string folder = gridOps_.GetTempFolderPath();
    // Without that folder the file would land in whatever folder the host has made the current one.
    const std::string text =
        folder.empty() ? gridOps_.SelectionAsDelimitedText(*grid_, ",")
                       : gridOps_.SaveSelectionAsDelimitedFile(*grid_, folder + "Processes.csv", ",");
    drag.text = replaced(text, ',', '\t');
    drag.copyOnly = true;
}

}  // namespace pellmark
