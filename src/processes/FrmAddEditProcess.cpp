#include "processes/FrmAddEditProcess.h"

#include <algorithm>

#include "base/OneLine.h"
#include "base/Text.h"
#include "processes/ProcessMerge.h"
#include "settings/NumberOptions.h"

namespace pellmark {

namespace {

constexpr Size kClient{9300, 7650};
constexpr const char* kNoFeatureCase = "-1";
/// Of a text that is told in a message.
constexpr std::size_t kMostUnits = 100;

/// The unit of the current feature case as text, kNoFeatureCase when there is no case to attach to. A case
/// that leaves its unit open is one nevertheless.
std::string currentCaseMarker(cFeatureCase* view) {
    if (view == nullptr || !view->hasCase()) return kNoFeatureCase;
    return std::to_string(std::max<int>(view->GetFTUnit(), 0));
}

}  // namespace

FrmAddEditProcess::FrmAddEditProcess(const UserInterface& person, KnowledgeBaseService& knowledgeBase,
                                     cQDLExtSettings& settings, HostApplication& host,
                                     cFeatureCase* featureCase, std::string processId, Rights* atOk)
    : Dialog(person, "FrmAddEditProcess"),
      FrameMaterialClass(person, *this, "FrameMaterialClass"),
      knowledgeBase_(knowledgeBase),
      settings_(settings),
      host_(host),
      featureCase_(featureCase),
      atOk_(atOk),
      processId_(std::move(processId)),
      featureCaseMarker_(currentCaseMarker(featureCase)) {
    setBorderStyle(BorderStyle::Sizable);
    setClientSize(kClient);
    setMinimumSize({6900, 6600});
    placeControls();
    addButtons(kClient, CmdOk, CmdCancel, CmdHelp);
    on(CmbUnit.clicked.subscribe([this] { CmbUnit_Click(); }));
    on(CmdBuildExpression.clicked.subscribe([this] { CmdBuildExpression_Click(); }));
    on(FrameMaterialClass.Cmdrefresh.clicked.subscribe([this] { RefreshNonMembers(); }));
}

void FrmAddEditProcess::placeControls() {
    const Anchors fixed{};
    const Anchors wide{true, true, true, false};
    const Anchors right{false, true, true, false};
    const auto label = [&](Label& each, Twips top) {
        each.place({150, top + 60, 1500, 255}, kClient, fixed);
    };
    label(LblName, 150);
    TxtName.place({1700, 150, 7450, 345}, kClient, wide);
    label(LblUnit, 600);
    CmbUnit.place({1700, 600, 2400, 345}, kClient, fixed);
    label(LblRule, 1050);
    TxtRule.place({1700, 1050, 5150, 345}, kClient, wide);
    CmdBuildExpression.place({6950, 1035, 2200, 375}, kClient, right);
    label(LblDescription, 1500);
    TxtDescription.place({1700, 1500, 7450, 1080}, kClient, wide);
    TxtDescription.setMultiLine(true);
    FrameMaterialClass.place({150, 2700, 9000, 4275}, kClient, {true, true, true, true});
}

void FrmAddEditProcess::translate() {
    LblName.setCaption(GetString("Name"));
    LblUnit.setCaption(GetString("Unit"));
    LblRule.setCaption(GetString("Rule"));
    CmdBuildExpression.setCaption(GetString("Build Expression..."));
    LblDescription.setCaption(GetString("Description"));
    FrameMaterialClass.setCaption(GetString("Material Class"));
    FrameMaterialClass.prepare();
    translateButtons(CmdOk, CmdCancel, CmdHelp);
}

void FrmAddEditProcess::Form_Load() {
    translate();
    loadOrAbandon("FrmAddEditProcess::Form_Load", [this] {
        loadRecord();
        CmbUnit.setItems({{"Inch", unit::kInch, ""}, {"Metric", unit::kMetric, ""}});
        showRecord();
        unchanged_ = record_;
        readMaterials();
    });
}

void FrmAddEditProcess::loadRecord() {
    editing_ = !processId_.empty();
    if (editing_) {
        setCaption("Edit Process");
        record_ = knowledgeBase_.processStore().process(processId_);
        return;
    }
    setCaption("Add New Process");
    record_ = {};
    record_.Name = "New Process";
    record_.Unit = unit::kMetric;
    // A host that cannot tell its unit must not keep the user from making a process.
    trap(person().operations(), "FrmAddEditProcess::Form_Load",
         [this] { record_.Unit = host_.currentUnit(); });
}

void FrmAddEditProcess::showRecord() {
    const auto& units = CmbUnit.items();
    for (std::size_t i = 0; i < units.size(); ++i) {
        if (units[i].itemData == record_.Unit) CmbUnit.setIndex(static_cast<int>(i));
    }
    TxtName.setText(record_.Name);
    TxtRule.setText(record_.Rule);
    TxtDescription.setText(record_.Description);
}

void FrmAddEditProcess::RefreshNonMembers() {
    carryOut("FrmAddEditProcess::RefreshNonMembers", [this] { readMaterials(); });
}

void FrmAddEditProcess::readMaterials() {
    const std::vector<ListItem> all = itemsOf(*knowledgeBase_.materialStore().materials());
    const std::vector<ListItem> members = storedMaterials();
    FrameMaterialClass.show(withoutMembers(all, members), members);
}

std::vector<ListItem> FrmAddEditProcess::storedMaterials() const {
    if (record_.Id.empty()) return {};
    return itemsOf(*knowledgeBase_.processStore().materialsOf(record_.Id));
}

void FrmAddEditProcess::CmbUnit_Click() {
    if (const ComboBox::Item* chosen = CmbUnit.selected()) {
        record_.Unit = static_cast<std::int16_t>(chosen->itemData);
    }
}

void FrmAddEditProcess::CmdBuildExpression_Click() {
    carryOut("FrmAddEditProcess::CmdBuildExpression_Click", [this] {
        const std::string built = host_.buildExpression(TxtRule.text(), handle());
        if (!built.empty()) TxtRule.setText(built);
    });
}

bool FrmAddEditProcess::inputIsAcceptable() {
    if (utf16Length(TxtRule.text()) > limit::kRule) {
        person().show({GetString("Rule cannot exceed 250 characters"), "", MessageIcon::Information});
        return false;
    }
    if (TxtName.text().empty()) {
        person().show({GetString("Name cannot be blank"), "", MessageIcon::Critical});
        return false;
    }
    return true;
}

bool FrmAddEditProcess::isAllowed() {
    return atOk_ == nullptr || atOk_->CheckPermission(editing_ ? PermissionEdit : PermissionAdd);
}

void FrmAddEditProcess::CmdOk_Click() {
    carryOut("FrmAddEditProcess::CmdOk_Click", [this] {
        if (!inputIsAcceptable() || !isAllowed()) return;
        record_ = typed();
        if (!record_.Id.empty() && takeOverChanges()) return;
        store();
        if (!record_.Id.empty()) storeMaterials();
        person().layouts.SaveComboBoxIndex(CmbUnit);
        completed.raise(record_.Id);
        unload();
    });
}

/// Two people may have the same process open, and the second OK must not undo the first one unseen.
bool FrmAddEditProcess::takeOverChanges() {
    const ProcessRecord theirs = knowledgeBase_.processStore().process(record_.Id);
    const std::vector<ListItem> members = storedMaterials();
    const std::vector<ListItem> materials = itemsOf(*knowledgeBase_.materialStore().materials());
    const MergedProcess merged = mergedProcess(unchanged_, record_, theirs);
    const bool otherMembers = FrameMaterialClass.takeOver(withoutMembers(materials, members), members);
    if (!otherMembers && merged.contested.empty() && merged.record == record_) return false;
    record_ = merged.record;
    showRecord();
    unchanged_ = {record_.Id, theirs.Name, theirs.Unit, theirs.Description, theirs.Rule};
    std::string both;
    for (const ContestedField& field : merged.contested)
        both += "\r\n" + GetString(field.label) + ": " + oneLine(field.theirs, kMostUnits);
    tellChangedMeanwhile(person(), both);
    return true;
}

void FrmAddEditProcess::cancel() {
    carryOut("FrmAddEditProcess::CmdCancel_Click", [this] {
        if (!isChanged() || mayDiscard()) unload();
    });
}

ProcessRecord FrmAddEditProcess::typed() const {
    return {record_.Id, TxtName.text(), record_.Unit, TxtDescription.text(), TxtRule.text()};
}

bool FrmAddEditProcess::isChanged() const {
    return typed() != unchanged_ || FrameMaterialClass.isChanged();
}

bool FrmAddEditProcess::mayDiscard() const {
    if (settings_.orDefault(option::kProcessMngrPromtToSaveDirtyProcess) == 0) return true;
    const MessageBox question{GetString("The process has been changed. Discard the changes?"),
                              "",
                              MessageIcon::Question,
                              MessageButtons::OkCancel,
                              {},
                              true};
    return person().show(question) == MessageAnswer::Ok;
}

void FrmAddEditProcess::store() {
    ProcessStore& processes = knowledgeBase_.processStore();
    if (editing_) {
        processes.updateProcess(record_);
        unchanged_ = record_;
    } else {
        std::string featureCaseId;
        if (featureCaseMarker_ != kNoFeatureCase) {
            featureCaseId = featureCase_->existingOrNewFeatureCase();
        }
        if (record_.Id.empty()) {
            record_.Id = processes.addProcess(record_);
        } else {
            // An OK that failed after the process had been added must not add it a second time.
            processes.updateProcess(record_);
        }
        unchanged_ = record_;
        if (!featureCaseId.empty()) processes.attach(record_.Id, featureCaseId);
    }
    stored.raise(record_);
}

/// Every item is sent, moved or not: the lists say what is to be.
void FrmAddEditProcess::storeMaterials() {
    ProcessStore& processes = knowledgeBase_.processStore();
    const ListView& members = FrameMaterialClass.LV2;
    for (int i = 0; i < members.count(); ++i) {
        processes.addMaterial(record_.Id, members.item(i).key);
        FrameMaterialClass.noteStored(members.item(i).key);
    }
    const ListView& others = FrameMaterialClass.LV1;
    for (int i = 0; i < others.count(); ++i) {
        processes.removeMaterial(record_.Id, others.item(i).key);
        FrameMaterialClass.noteStored(others.item(i).key);
    }
}

}  // namespace pellmark
