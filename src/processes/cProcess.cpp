#include "processes/cProcess.h"

#include <algorithm>

#include "base/Error.h"
#include "base/Text.h"
#include "knowledge/ProcessListRecordset.h"
#include "processes/BracketHeading.h"
#include "processes/CaseProcesses.h"
#include "processes/FrmAddEditProcess.h"
#include "processes/FrmAddExistingProcess.h"
#include "processes/FrmEditProcessMaterials.h"
#include "processes/ProcessRemoval.h"
#include "settings/NumberOptions.h"

namespace pellmark {

namespace {

constexpr int kFirstDataColumn = 0;
constexpr const char* kMessageTitle = "Norvex - Process Manager";

// Widths go by position in both lists, so that those of a case fall one column to the right.
constexpr ColumnSpec kAllColumns[] = {{"Id", field::kId, 4000, true},
                                      {"Name", field::kName, 2000},
                                      {"Unit", field::kUnit, 1000, false, false, kUnitComboList},
                                      {"Rule", field::kRule, 2000},
                                      {"Description", field::kDescription, 4000}};
constexpr ColumnSpec kCaseColumns[] = {
    {"Id", field::kId, 4000, true}, {"FeatureCaseId", field::kFeatureCaseId, 2000, true},
    {"Name", field::kName, 1000},   {"Unit", field::kUnit, 2000, false, false, kUnitComboList},
    {"Rule", field::kRule, 4000},   {"Description", field::kDescription}};

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
                   cQDLExtSettings& settings, cVSGridOps& gridOps, HostApplication& host,
                   cFeatureCase* featureCase)
    : person_(person),
      knowledgeBase_(knowledgeBase),
      rights_(rights),
      settings_(settings),
      gridOps_(gridOps),
      host_(host),
      featureCase_(featureCase) {}

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
        if (heldBack_ == 0) const OneChange change(*this);
    }));
    onGrid(grid.doubleClicked.subscribe([this](int row) {
        if (row >= grid_->fixedRows()) Editwizard();
    }));
    onGrid(grid.keyPressed.subscribe([this](KeyPress& key) {
        if (key.keyCode != KeyPress::kDelete) return;
        key.handled = true;
        Delete();
    }));
    onGrid(grid.dragStarted.subscribe([this](DragData& drag) {
        trap(person_.operations(), "cProcess::DragStart", [&] { offerSelection(drag); });
    }));
}

std::span<const ColumnSpec> cProcess::columns() const {
    return featureCase_ == nullptr ? std::span<const ColumnSpec>(kAllColumns) : kCaseColumns;
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
    fillFailure_.clear();
    trap(person_.operations(), "cProcess::RefreshList", [&] {
        try {
            fill(selectId);
        } catch (const std::exception& error) {
            fillFailure_ = error.what();
            throw;
        }
    });
}

void cProcess::RefreshListfeatureCase(const std::string& selectId) {
    if (featureCase_ != nullptr) RefreshList(selectId);
}

void cProcess::fill(const std::string& selectId) {
    if (featureCase_ == nullptr) {
        fillAll(selectId);
    } else {
        fillFeatureCase(selectId);
    }
    grid_->setColComboList(grid_->colIndex(field::kUnit), kUnitComboList);
}

void cProcess::fillAll(const std::string& selectId) {
    grid_->bind(knowledgeBase_.processStore().processes(""));
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
    results_.clear();
    results_ = processesOfCase(knowledgeBase_, featureCase_->description(),
                               settings_.orDefault(option::kProcessListStyle));
    auto records = std::make_shared<ProcessListRecordset>();
    for (const pNode& node : results_) {
        // A record that does not fit its fields must not hide the others.
        trap(person_.operations(), "cProcess::RefreshList", [&] { records->addRow(node); });
    }
    if (records->count() == 0) return;
    records->setFilter(ProcessListRecordset::unitFilter(featureCase_->GetFTUnit()));
    grid_->bind(std::move(records));
    restoreColumns();
    gridOps_.SetRowDataToIds(*grid_);
    markMatches();
    cutToLimit();
    selectProcess(selectId);
}

void cProcess::markMatches() {
    const int nameCol = grid_->colIndex(field::kName);
    for (const pNode& node : results_) {
        const int row = grid_->findRow(node.id);
        if (node.ExactMatch) {
            grid_->setForeColor(row, nameCol, kGreen);
        } else {
            grid_->setItalic(row, nameCol, true);
        }
    }
}

void cProcess::cutToLimit() {
    const int most = std::max(settings_.orDefault(option::kMaxProcessReturnNum), 0);
    if (grid_->dataRows() > most) grid_->setRows(grid_->fixedRows() + most);
}

void cProcess::SetOrphanColor() {
    const int nameCol = grid_->colIndex(field::kName);
    Grid::RedrawOff off(*grid_);
    grid_->setColumnForeColor(nameCol, kBlack);
    const auto orphans = knowledgeBase_.processStore().orphanProcesses();
    if (const auto keys = orphans->keys()) {
        for (const Guid& key : *keys)
            grid_->setForeColor(grid_->findRow(key), nameCol, kRed);
        return;
    }
    const std::size_t idField = orphans->requireField(field::kId);
    for (std::size_t i = 0; i < orphans->count(); ++i) {
        grid_->setForeColor(grid_->findRow(orphans->text(i, idField)), nameCol, kRed);
    }
}

void cProcess::UpdateFromDb(const ProcessRecord& record) {
    const auto current = knowledgeBase_.processStore().processes(record.Id);
    Grid::RedrawOff off(*grid_);
    int row = grid_->findRow(record.Id);
    if (current->count() == 0) {
        if (row >= 0) grid_->removeRow(row);
        return;
    }
    if (row < 0) {
        row = grid_->addRow();
        grid_->setRowData(row, record.Id);
    }
    for (const char* key : {field::kId, field::kName, field::kUnit, field::kRule, field::kDescription})
        grid_->setText(row, key, current->text(0, current->requireField(key)));
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
        ProcessRemoval removal(person_, *grid_);
        const MessageBox question{
            person_.texts.GetString("Permanently delete selected item(s) from the database?"), kMessageTitle,
            MessageIcon::Question, MessageButtons::OkCancel};
        if (person_.show(question) != MessageAnswer::Ok) return;
        const OneChange change(*this);
        Grid::RedrawOff off(*grid_);
        removal.carryOut("cProcess::Delete", [this](const ProcessRemoval::Target& each) {
            return knowledgeBase_.processStore().deleteProcess(each.id);
        });
        selectLast();
    });
}

void cProcess::DeleteFromFeatureCase() {
    carryOut(person_, "cProcess::DeleteFromFeatureCase", [this] {
        if (!rights_.CheckPermission(PermissionDelete) || grid_->selectedRows() == 0) return;
        ProcessRemoval removal(person_, *grid_);
        const MessageBox question{
            "Delete selected process(es) from the selected Feature Case?\r\n\r\nAre you sure?", kMessageTitle,
            MessageIcon::Question, MessageButtons::OkCancel};
        if (person_.show(question) != MessageAnswer::Ok) return;
        const OneChange change(*this);
        Grid::RedrawOff off(*grid_);
        removal.carryOut("cProcess::DeleteFromFeatureCase", [this](const ProcessRemoval::Target& each) {
            if (each.featureCaseId.empty()) return false;
            return knowledgeBase_.processStore().detach(each.featureCaseId, each.id);
        });
        selectLast();
    });
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
        if (!id.empty()) openDialog(id, ownerWindow(), nullptr);
    });
}

void cProcess::editForHost(const std::string& id, WindowHandle owner) {
    trapAndTell(person_, "cProcess::editForHost", [&] { openDialog(id, owner, &rights_); });
}

void cProcess::openDialog(const std::string& id, WindowHandle owner, Rights* atOk) {
    FrmAddEditProcess dialog(person_, knowledgeBase_, host_, featureCase_, id, atOk);
    const Subscription stored = dialog.stored.subscribe([this](const ProcessRecord& record) {
        const OneChange change(*this);
        UpdateFromDb(record);
    });
    const Subscription completed =
        dialog.completed.subscribe([this](const std::string& processId) { RefreshList(processId); });
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
        FrmAddExistingProcess dialog(person_, knowledgeBase_, *featureCase_, *grid_,
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
        if (!id.empty()) FrmEditProcessMaterials(person_, knowledgeBase_, id).showModal(ownerWindow());
    });
}

WindowHandle cProcess::ownerWindow() const {
    Form* form = grid_->form();
    return form == nullptr ? 0 : form->handle();
}

void cProcess::offerSelection(DragData& drag) {
    drag.clear();
    const std::string path = gridOps_.GetTempFolderPath() + "Processes.csv";
    drag.text = replaced(gridOps_.SaveSelectionAsDelimitedFile(*grid_, path, ","), ',', '\t');
    drag.copyOnly = true;
}

}  // namespace pellmark
