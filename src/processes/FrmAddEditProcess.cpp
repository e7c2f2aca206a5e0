#include "processes/FrmAddEditProcess.h"

#include <algorithm>

#include "base/Text.h"
#include "featurecases/cFeatureCase.h"
#include "processes/cProcess.h"

namespace pellmark {

namespace {

constexpr Size kClient{9300, 7650};
constexpr const char* kNoFeatureCase = "-1";

/// The unit of the current feature case as text, kNoFeatureCase when there is no case to attach to. A case
/// that leaves its unit open is one nevertheless.
std::string currentCaseMarker(const Component& component) {
    cFeatureCase* view = component.featureCase();
    if (view == nullptr || view->GetCurrentFeatureType() == "-1" || view->GetCurrentValueIds().empty()) {
        return kNoFeatureCase;
    }
    return std::to_string(std::max<int>(view->GetFTUnit(), 0));
}

}  // namespace

FrmAddEditProcess::FrmAddEditProcess(Component& component, std::string processId)
    : ProcessDialog(component, "FrmAddEditProcess"),
      FrameMaterialClass(component, *this, "FrameMaterialClass"),
      processId_(std::move(processId)),
      featureCaseMarker_(currentCaseMarker(component)) {
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
    TxtRule.place({1700, 1050, 5400, 345}, kClient, wide);
    CmdBuildExpression.place({7200, 1035, 1950, 375}, kClient, right);
    label(LblDescription, 1500);
    TxtDescription.place({1700, 1500, 7450, 1080}, kClient, wide);
    TxtDescription.setMultiLine(true);
    FrameMaterialClass.place({150, 2700, 9000, 4275}, kClient, {true, true, true, true});
}

void FrmAddEditProcess::translate() {
    LblName.setCaption(component().GetString("Name"));
    LblUnit.setCaption(component().GetString("Unit"));
    LblRule.setCaption(component().GetString("Rule"));
    CmdBuildExpression.setCaption(component().GetString("Build Expression..."));
    LblDescription.setCaption(component().GetString("Description"));
    FrameMaterialClass.setCaption(component().GetString("Material Class"));
    FrameMaterialClass.prepare();
    translateButtons(CmdOk, CmdCancel, CmdHelp);
}

void FrmAddEditProcess::Form_Load() {
    translate();
    if (!report("FrmAddEditProcess::Form_Load", [this] { loadRecord(); })) {
        abandonLoad();
        return;
    }
    showRecord();
    RefreshNonMembers();
}

void FrmAddEditProcess::loadRecord() {
    editing_ = !processId_.empty();
    if (editing_) {
        setCaption("Edit Process");
        record_ = component().knowledgeBase().processStore().process(processId_);
        return;
    }
    setCaption("Add New Process");
    record_ = {};
    record_.Name = "New Process";
    record_.Unit = unit::kMetric;
    // A host that cannot tell its unit must not keep the user from making a process.
    trap(component().trace(), "FrmAddEditProcess::Form_Load",
         [this] { record_.Unit = component().host().currentUnit(); });
}

void FrmAddEditProcess::showRecord() {
    CmbUnit.setItems({{"Inch", unit::kInch, ""}, {"Metric", unit::kMetric, ""}});
    const auto& units = CmbUnit.items();
    for (std::size_t i = 0; i < units.size(); ++i) {
        if (units[i].itemData == record_.Unit) CmbUnit.setIndex(static_cast<int>(i));
    }
    TxtName.setText(record_.Name);
    TxtRule.setText(record_.Rule);
    TxtDescription.setText(record_.Description);
}

void FrmAddEditProcess::RefreshNonMembers() {
    report("FrmAddEditProcess::RefreshNonMembers", [this] {
        KnowledgeBaseService& base = component().knowledgeBase();
        const std::vector<ListItem> all = itemsOf(*base.materialStore().materials());
        const std::vector<ListItem> members = itemsOf(*base.processStore().materialsOf(record_.Id));
        FrameMaterialClass.show(withoutMembers(all, members), members);
    });
}

void FrmAddEditProcess::CmbUnit_Click() {
    if (const ComboBox::Item* chosen = CmbUnit.selected()) {
        record_.Unit = static_cast<std::int16_t>(chosen->itemData);
    }
}

void FrmAddEditProcess::CmdBuildExpression_Click() {
    report("FrmAddEditProcess::CmdBuildExpression_Click", [this] {
        const std::string built = component().host().buildExpression(TxtRule.text(), handle());
        if (!built.empty()) TxtRule.setText(built);
    });
}

bool FrmAddEditProcess::inputIsAcceptable() {
    if (utf16Length(TxtRule.text()) > limit::kRule) {
        desktop().showMessage({component().GetString("Rule cannot exceed 250 characters"),
                               component().title(), MessageIcon::Information});
        return false;
    }
    if (TxtName.text().empty()) {
        desktop().showMessage({component().GetString("Name cannot be blank"), "", MessageIcon::Critical});
        return false;
    }
    return true;
}

void FrmAddEditProcess::CmdOk_Click() {
    report("FrmAddEditProcess::CmdOk_Click", [this] {
        if (!inputIsAcceptable()) return;
        record_.Description = TxtDescription.text();
        record_.Name = TxtName.text();
        record_.Rule = TxtRule.text();
        store();
        if (!record_.Id.empty()) storeMaterials();
        if (cProcess* list = component().processes()) list->RefreshList(record_.Id);
        unload();
    });
}

void FrmAddEditProcess::store() {
    ProcessStore& processes = component().knowledgeBase().processStore();
    if (editing_) {
        processes.updateProcess(record_);
    } else {
        std::string featureCaseId;
        if (featureCaseMarker_ != kNoFeatureCase) {
            featureCaseId = component().featureCase()->existingOrNewFeatureCase();
        }
        if (record_.Id.empty()) {
            record_.Id = processes.addProcess(record_);
        } else {
            // An OK that failed after the process had been added must not add it a second time.
            processes.updateProcess(record_);
        }
        if (!featureCaseId.empty()) processes.attach(record_.Id, featureCaseId);
    }
    if (cProcess* list = component().processes()) list->UpdateFromDb(record_);
}

/// Every item is sent, moved or not: the lists say what is to be, whatever has changed in the store
/// meanwhile.
void FrmAddEditProcess::storeMaterials() {
    ProcessStore& processes = component().knowledgeBase().processStore();
    const ListView& members = FrameMaterialClass.LV2;
    for (int i = 0; i < members.count(); ++i)
        processes.addMaterial(record_.Id, members.item(i).key);
    const ListView& others = FrameMaterialClass.LV1;
    for (int i = 0; i < others.count(); ++i)
        processes.removeMaterial(record_.Id, others.item(i).key);
}

}  // namespace pellmark
