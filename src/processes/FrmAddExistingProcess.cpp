#include "processes/FrmAddExistingProcess.h"

#include "base/Error.h"
#include "base/Text.h"
#include "featurecases/cFeatureCase.h"
#include "processes/cProcess.h"

namespace pellmark {

namespace {

constexpr Size kClient{10500, 6600};
constexpr const char* kSource = "Pellmark.FrmAddExistingProcess";

}  // namespace

FrmAddExistingProcess::FrmAddExistingProcess(Component& component, std::string featureCaseUnit,
                                             std::string currentProcessId)
    : ProcessDialog(component, "FrmAddExistingProcess"),
      FrameProcesses(component, *this, "FrameProcesses"),
      unit_(std::move(featureCaseUnit)),
      currentProcessId_(std::move(currentProcessId)) {
    setBorderStyle(BorderStyle::Sizable);
    setClientSize(kClient);
    setMinimumSize({6600, 4500});
    FrameProcesses.place({150, 120, 10200, 5805}, kClient, {true, true, true, true});
    addButtons(kClient, CmdOk, CmdCancel, CmdHelp);
    on(FrameProcesses.Cmdrefresh.clicked.subscribe([this] { RefreshNonMembers(); }));
}

void FrmAddExistingProcess::Form_Load() {
    setCaption(component().GetString("Process Members"));
    FrameProcesses.setCaption(component().GetString("Processes"));
    FrameProcesses.prepare();
    translateButtons(CmdOk, CmdCancel, CmdHelp);
    RefreshNonMembers();
}

void FrmAddExistingProcess::RefreshNonMembers() {
    report("FrmAddExistingProcess::RefreshNonMembers", [this] {
        const std::vector<ListItem> members = listedMembers();
        FrameProcesses.show(withoutMembers(processesOfUnit(), members), members);
        initialMembers_.clear();
        for (const ListItem& member : members)
            initialMembers_.insert(lowerAscii(member.key));
    });
}

std::vector<ListItem> FrmAddExistingProcess::listedMembers() const {
    std::vector<ListItem> members;
    if (component().processes() == nullptr) return members;
    const Grid& grid = component().processes()->grid();
    for (int row = grid.fixedRows(); row < grid.rows(); ++row) {
        members.push_back({grid.rowData(row), grid.text(row, field::kName), {}});
    }
    return members;
}

std::vector<ListItem> FrmAddExistingProcess::processesOfUnit() const {
    const auto records = component().knowledgeBase().processStore().processes("");
    const std::size_t id = records->fieldIndex(field::kId).value_or(0);
    const std::size_t name = records->fieldIndex(field::kName).value_or(0);
    const std::size_t unitField = records->fieldIndex(field::kUnit).value_or(0);
    std::vector<ListItem> items;
    for (std::size_t i = 0; i < records->count(); ++i) {
        if (unit_ != kNoUnit && records->text(i, unitField) != unit_) continue;
        items.push_back({records->text(i, id), records->text(i, name), {}});
    }
    return items;
}

void FrmAddExistingProcess::CmdOk_Click() {
    report("FrmAddExistingProcess::CmdOk_Click", [this] {
        const std::string id = featureCaseId();
        attachNewMembers(id);
        detachCandidates(id);
        if (cProcess* list = component().processes()) list->RefreshList(currentProcessId_);
        unload();
    });
}

std::string FrmAddExistingProcess::featureCaseId() {
    cFeatureCase* view = component().featureCase();
    if (view == nullptr) {
        throw Error(errors::kInvalidArgument, kSource, "There is no feature case to attach processes to");
    }
    return unit_ == kNoUnit ? view->GetFirstFeatureTypeExactMatchId() : view->existingOrNewFeatureCase();
}

void FrmAddExistingProcess::attachNewMembers(const std::string& featureCaseId) {
    ProcessStore& processes = component().knowledgeBase().processStore();
    const ListView& members = FrameProcesses.LV2;
    for (int i = 0; i < members.count(); ++i) {
        const std::string& id = members.item(i).key;
        if (initialMembers_.contains(lowerAscii(id))) continue;
        if (featureCaseId.empty()) {
            throw Error(errors::kNotFound, kSource,
                        "The feature case is not stored yet. Choose its unit, then attach processes to it.");
        }
        processes.attach(id, featureCaseId);
        initialMembers_.insert(lowerAscii(id));
    }
}

/// Candidates that were never attached are sent, too: the store may have attached them meanwhile.
void FrmAddExistingProcess::detachCandidates(const std::string& featureCaseId) {
    if (featureCaseId.empty()) return;
    ProcessStore& processes = component().knowledgeBase().processStore();
    const ListView& candidates = FrameProcesses.LV1;
    for (int i = 0; i < candidates.count(); ++i) {
        const std::string& id = candidates.item(i).key;
        if (processes.detach(featureCaseId, id)) continue;
        component().trace().record("FrmAddExistingProcess::CmdOk_Click",
                                   "the knowledge base keeps " + id + " attached");
    }
}

}  // namespace pellmark
