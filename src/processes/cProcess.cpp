#include "processes/cProcess.h"

#include <algorithm>
#include <iterator>
#include <set>

#include "base/Text.h"
#include "featurecases/cFeatureCase.h"
#include "host/Component.h"
#include "knowledge/ProcessListRecordset.h"
#include "processes/BracketHeading.h"
#include "processes/FrmAddEditProcess.h"
#include "processes/FrmAddExistingProcess.h"
#include "processes/FrmEditProcessMaterials.h"

namespace pellmark {

namespace {

constexpr int kFirstDataColumn = 0;
constexpr const char* kMessageTitle = "Norvex - Process Manager";

struct Column {
    const char* heading;
    const char* key;
};

constexpr Column kAllColumns[] = {{"Id", field::kId},
                                  {"Name", field::kName},
                                  {"Unit", field::kUnit},
                                  {"Rule", field::kRule},
                                  {"Description", field::kDescription}};
constexpr Column kCaseColumns[] = {{"Id", field::kId},     {"FeatureCaseId", field::kFeatureCaseId},
                                   {"Name", field::kName}, {"Unit", field::kUnit},
                                   {"Rule", field::kRule}, {"Description", field::kDescription}};
/// By position in both modes, so that they fall one column to the right where the feature case's id stands.
constexpr Twips kWidths[] = {4000, 2000, 1000, 2000, 4000};

}  // namespace

cProcess::cProcess(Component& component) : component_(component) {}

cProcess::~cProcess() = default;

void cProcess::Init(Grid& grid) {
    grid_ = &grid;
    layOut();
    Trace& trace = component_.trace();
    const auto onGrid = [this](Subscription subscription) {
        subscriptions_.push_back(std::move(subscription));
    };
    subscriptions_.clear();
    onGrid(grid.doubleClicked.subscribe([this](int row) {
        if (row >= grid_->fixedRows()) Editwizard();
    }));
    onGrid(grid.keyPressed.subscribe([this](KeyPress& key) {
        if (key.keyCode != KeyPress::kDelete) return;
        key.handled = true;
        Delete();
    }));
    onGrid(grid.dragStarted.subscribe([this, &trace](DragData& drag) {
        trap(trace, "cProcess::DragStart", [&] { offerSelection(drag); });
    }));
}

void cProcess::layOut() {
    const bool ofCase = component_.featureCase() != nullptr;
    std::string headings;
    const auto add = [&](const Column& column) {
        if (&column != (ofCase ? kCaseColumns : kAllColumns)) headings += '|';
        const std::string text = component_.GetString(column.heading);
        // A "|" within a translation must not shift the columns.
        headings += replaced(ofCase ? BracketHeading(text) : text, '|', ' ');
    };
    Grid::RedrawOff off(*grid_);
    if (ofCase) {
        for (const Column& column : kCaseColumns)
            add(column);
    } else {
        for (const Column& column : kAllColumns)
            add(column);
    }
    grid_->setHeadings(headings);
    for (int col = 0; col < grid_->cols(); ++col) {
        const auto at = static_cast<std::size_t>(col);
        grid_->setColKey(col, ofCase ? kCaseColumns[at].key : kAllColumns[at].key);
        if (at < std::size(kWidths)) grid_->setColWidth(col, kWidths[at]);
    }
    grid_->setColComboList(grid_->colIndex(field::kUnit), kUnitComboList);
    hideInternalColumns();
}

void cProcess::hideInternalColumns() {
    const bool hidden = component_.settings().DebugMode() == 0;
    for (const char* key : {field::kId, field::kFeatureCaseId}) {
        const int col = grid_->colIndex(key);
        if (col >= 0) grid_->setColHidden(col, hidden);
    }
}

void cProcess::RefreshList(const std::string& selectId) {
    trap(component_.trace(), "cProcess::RefreshList", [&] {
        if (component_.featureCase() == nullptr) {
            fillAll(selectId);
        } else {
            fillFeatureCase(selectId);
        }
        grid_->setColComboList(grid_->colIndex(field::kUnit), kUnitComboList);
    });
}

void cProcess::RefreshListfeatureCase(const std::string& selectId) {
    trap(component_.trace(), "cProcess::RefreshListfeatureCase", [&] { fillFeatureCase(selectId); });
}

void cProcess::SetProcessGui(const std::string& id) {
    trap(component_.trace(), "cProcess::SetProcessGui", [&] {
        layOut();
        const int row = grid_->findRow(id);
        if (row < 0) return;
        grid_->select(row, kFirstDataColumn);
        grid_->showCell(row, kFirstDataColumn);
    });
}

void cProcess::fillAll(const std::string& selectId) {
    grid_->bind(component_.knowledgeBase().processStore().processes(""));
    hideInternalColumns();
    // The first rows are on the screen before the ids of all the others are asked for.
    grid_->paintNow();
    Grid::RedrawOff off(*grid_);
    component_.gridOps().SetRowDataToIds(*grid_);
    selectProcess(selectId);
    SetOrphanColor();
}

void cProcess::selectProcess(const std::string& id) {
    int row = grid_->findRow(id);
    if (row < 0 && grid_->hasData()) row = grid_->fixedRows();
    if (row < 0) return;
    grid_->select(row, kFirstDataColumn);
    grid_->showCell(row, kFirstDataColumn);
}

std::vector<pNode> cProcess::listedResults() {
    cFeatureCase& featureCase = *component_.featureCase();
    const FeatureCaseDescription description = featureCase.description();
    if (description.valueIds.empty()) return {};
    const int style = component_.settings().ProcessListStyle();
    if (style != 0 && style != 1) return {};
    std::vector<pNode> working =
        component_.knowledgeBase().featureCaseStore().processesOfValues(description, style);

    // What is listed is what the store holds now, not what the feature case remembered.
    std::vector<std::string> ids;
    for (const pNode& node : working)
        ids.push_back(node.id);
    const auto current = component_.knowledgeBase().processStore().processRecords(ids);
    std::vector<pNode> ordered;
    std::set<std::string> listed;
    for (const bool exact : {true, false}) {
        for (std::size_t i = 0; i < working.size(); ++i) {
            if (exact && !working[i].ExactMatch) continue;
            if (i >= current.size() || !current[i] || !listed.insert(lowerAscii(working[i].id)).second)
                continue;
            pNode node = working[i];
            node.Name = current[i]->Name;
            node.unit = current[i]->Unit;
            node.Rule = current[i]->Rule;
            node.Description = current[i]->Description;
            ordered.push_back(std::move(node));
        }
    }
    return ordered;
}

void cProcess::fillFeatureCase(const std::string& selectId) {
    if (component_.featureCase() == nullptr) return;
    Grid::RedrawOff off(*grid_);
    auto records = std::make_shared<ProcessListRecordset>();
    grid_->bind(nullptr);
    const std::vector<pNode> results = listedResults();
    for (const pNode& node : results) {
        // A record that does not fit its fields must not hide the others.
        trap(component_.trace(), "cProcess::RefreshList", [&] { records->addRow(node); });
    }
    if (records->count() == 0) return;
    records->setFilter(ProcessListRecordset::unitFilter(component_.featureCase()->GetFTUnit()));
    grid_->bind(std::move(records));
    hideInternalColumns();
    component_.gridOps().SetRowDataToIds(*grid_);

    const int nameCol = grid_->colIndex(field::kName);
    for (const pNode& node : results) {
        const int row = grid_->findRow(node.id);
        if (node.ExactMatch) {
            grid_->setForeColor(row, nameCol, kGreen);
        } else {
            grid_->setItalic(row, nameCol, true);
        }
    }
    const int most = std::max(component_.settings().MaxProcessReturnNum(), 0) + 1;
    if (grid_->rows() > most) grid_->setRows(most);
    selectProcess(selectId);
}

void cProcess::SetOrphanColor() {
    const int nameCol = grid_->colIndex(field::kName);
    Grid::RedrawOff off(*grid_);
    grid_->setColumnForeColor(nameCol, kBlack);
    const auto orphans = component_.knowledgeBase().processStore().orphanProcesses();
    if (const auto keys = orphans->keys()) {
        for (const Guid& key : *keys)
            grid_->setForeColor(grid_->findRow(key), nameCol, kRed);
        return;
    }
    const std::size_t idField = orphans->fieldIndex(field::kId).value_or(0);
    for (std::size_t i = 0; i < orphans->count(); ++i) {
        grid_->setForeColor(grid_->findRow(orphans->text(i, idField)), nameCol, kRed);
    }
}

void cProcess::UpdateFromDb(const ProcessRecord& record) {
    const ProcessRecord current = component_.knowledgeBase().processStore().process(record.Id);
    Grid::RedrawOff off(*grid_);
    int row = grid_->findRow(current.Id);
    if (row < 0) {
        row = grid_->addRow();
        grid_->setRowData(row, current.Id);
        grid_->setText(row, field::kId, current.Id);
    }
    grid_->setText(row, field::kName, current.Name);
    grid_->setText(row, field::kUnit, std::to_string(current.Unit));
    grid_->setText(row, field::kRule, current.Rule);
    grid_->setText(row, field::kDescription, current.Description);
}

std::string cProcess::SelectedProcessID() const {
    return grid_ == nullptr ? std::string() : grid_->text(grid_->row(), field::kId);
}

template <class Remove>
void cProcess::removeSelected(Remove&& remove) {
    Grid::RedrawOff off(*grid_);
    for (int i = grid_->selectedRows() - 1; i >= 0; --i) {
        bool removed = false;
        const int row = grid_->selectedRow(i);
        // One process that fails must not keep the others from being handled.
        trap(component_.trace(), "cProcess::Delete", [&] { removed = remove(row); });
        if (removed) grid_->removeRow(grid_->selectedRow(i));
    }
    grid_->select(grid_->rows() - 1, kFirstDataColumn);
    grid_->showCell(grid_->rows() - 1, kFirstDataColumn);
}

void cProcess::Delete() {
    trap(component_.trace(), "cProcess::Delete", [this] {
        if (!component_.CheckPermission(PermissionDelete)) return;
        if (grid_->rows() < 2 || grid_->selectedRows() == 0) return;
        const MessageBox question{
            component_.GetString("Permanently delete selected item(s) from the database?"), kMessageTitle,
            MessageIcon::Question, MessageButtons::OkCancel};
        if (component_.desktop().showMessage(question) != MessageAnswer::Ok) return;
        ProcessStore& store = component_.knowledgeBase().processStore();
        removeSelected([&](int row) { return store.deleteProcess(grid_->rowData(row)); });
    });
}

void cProcess::DeleteFromFeatureCase() {
    trap(component_.trace(), "cProcess::DeleteFromFeatureCase", [this] {
        if (!component_.CheckPermission(PermissionDelete) || grid_->selectedRows() == 0) return;
        const MessageBox question{
            "Delete selected process(es) from the selected Feature Case?\r\n\r\nAre you sure?", kMessageTitle,
            MessageIcon::Question, MessageButtons::OkCancel};
        if (component_.desktop().showMessage(question) != MessageAnswer::Ok) return;
        ProcessStore& store = component_.knowledgeBase().processStore();
        removeSelected([&](int row) {
            return store.detach(grid_->text(row, field::kFeatureCaseId), grid_->text(row, field::kId));
        });
    });
}

void cProcess::AddNewWizard() {
    trap(component_.trace(), "cProcess::AddNewWizard", [this] {
        if (!component_.CheckPermission(PermissionAdd)) return;
        FrmAddEditProcess(component_, "").showModal(ownerWindow());
    });
}

void cProcess::Editwizard() {
    trap(component_.trace(), "cProcess::Editwizard", [this] {
        if (!component_.CheckPermission(PermissionEdit)) return;
        // Without an id the dialog would make a new process.
        const std::string id = SelectedProcessID();
        if (!id.empty()) FrmAddEditProcess(component_, id).showModal(ownerWindow());
    });
}

void cProcess::EditExistingProcesseswizard() {
    trap(component_.trace(), "cProcess::EditExistingProcesseswizard", [this] {
        if (!component_.CheckPermission(PermissionEdit)) return;
        cFeatureCase* view = component_.featureCase();
        if (view == nullptr) return;
        if (view->GetCurrentValueIds().empty()) {
            component_.desktop().showMessage({component_.GetString("No feature type is currently selected"),
                                              kMessageTitle, MessageIcon::Critical});
            return;
        }
        FrmAddExistingProcess(component_, std::to_string(view->GetFTUnit()), SelectedProcessID())
            .showModal(ownerWindow());
    });
}

void cProcess::EditMaterialsWizard() {
    trap(component_.trace(), "cProcess::EditMaterialsWizard", [this] {
        if (!component_.CheckPermission(PermissionEdit) || grid_->rows() < 2) return;
        const std::string id = component_.gridOps().SelectedId(*grid_);
        if (!id.empty()) FrmEditProcessMaterials(component_, id).showModal(ownerWindow());
    });
}

WindowHandle cProcess::ownerWindow() const {
    Form* form = grid_->form();
    return form == nullptr ? 0 : form->handle();
}

void cProcess::offerSelection(DragData& drag) {
    drag.clear();
    cVSGridOps& ops = component_.gridOps();
    const std::string path = ops.GetTempFolderPath() + "Processes.csv";
    drag.text = replaced(ops.SaveSelectionAsDelimitedFile(*grid_, path, ","), ',', '\t');
    drag.copyOnly = true;
}

}  // namespace pellmark
