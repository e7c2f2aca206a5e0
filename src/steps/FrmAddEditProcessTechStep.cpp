#include "steps/FrmAddEditProcessTechStep.h"

#include "base/Convert.h"
#include "steps/StepTechnology.h"

namespace pellmark {

namespace {

constexpr Size kClient{6300, 1800};
constexpr Size kFrame{6000, 1050};
/// Wider than what the list offers for a step that is there already: milling cycles are added here too.
const std::vector<int> kOfferedTypes{6, 8, 4, 43, 45, 50, 49};

bool isStored(TechnologyParameter& parameter) {
    return parameter.kind() == TechnologyParameter::kKindKept ||
           parameter.state() == TechnologyParameter::kStateSet;
}

}  // namespace

frmAddEditProcessTechStep::frmAddEditProcessTechStep(const StepServices& services, std::string processId)
    : Dialog(services.person, "frmAddEditProcessTechStep"),
      services_(services),
      processId_(std::move(processId)) {
    setCaption("Add Edit Default Technology Step");
    setClientSize(kClient);
    FrameTechnology.place({150, 150, kFrame.width, kFrame.height}, kClient, {});
    Lblcycle.place({150, 480, 1950, 255}, kFrame, {});
    CmbProcessType.place({2150, 420, 3700, 345}, kFrame, {});
    addButtons(kClient, CmdOk, CmdCancel, CmdHelp);
    on(CmbProcessType.indexChanged.subscribe([this] { CmbProcessType_Change(); }));
}

void frmAddEditProcessTechStep::Form_Load() {
    FrameTechnology.setCaption(GetString("Technology"));
    Lblcycle.setCaption(GetString("Cutting Cycle"));
    translateButtons(CmdOk, CmdCancel, CmdHelp);
    if (!loadOrAbandon("frmAddEditProcessTechStep::Form_Load", [this] { loadCuttingCycles(); })) return;
    CmbProcessType.setIndex(0);
    setCaption(GetString("Add Technology"));
}

void frmAddEditProcessTechStep::loadCuttingCycles() {
    const auto cycles = services_.knowledgeBase.stepStore().cuttingCycles(kOfferedTypes);
    const std::size_t id = cycles->requireField(field::kId);
    const std::size_t name = cycles->requireField(field::kName);
    std::vector<ComboBox::Item> items;
    for (std::size_t i = 0; i < cycles->count(); ++i)
        items.push_back({cycles->text(i, name), toInt32(cycles->text(i, id)), ""});
    CmbProcessType.setItems(std::move(items));
}

void frmAddEditProcessTechStep::CmbProcessType_Change() {
    const ComboBox::Item* const chosen = CmbProcessType.selected();
    cuttingCycleId_ = chosen == nullptr ? std::int16_t{0} : static_cast<std::int16_t>(chosen->itemData);
}

void frmAddEditProcessTechStep::CmdOk_Click() {
    carryOut("frmAddEditProcessTechStep::CmdOk_Click", [this] {
        // Without a cutting cycle there is nothing to add.
        if (CmbProcessType.selected() != nullptr) {
            const auto technology = services_.technology.create(cuttingCycleId_, processId_);
            if (services_.technology.edit(*technology, handle()) == TechnologyService::kAccepted)
                store(*technology);
        }
        unload();
    });
}

void frmAddEditProcessTechStep::store(TechnologyObject& technology) {
    const bool stored =
        trap(person().operations(), "frmAddEditProcessTechStep::CmdOk_Click", [&] { storeStep(technology); });
    if (!stored) {
        person().show({GetString("Id is not unique - could not add this value to database"), "",
                       MessageIcon::Critical});
    } else if (!stepId_.empty()) {
        processStored.raise(processId_);
    }
}

void frmAddEditProcessTechStep::storeStep(TechnologyObject& technology) {
    ProcessStepStore& steps = services_.knowledgeBase.stepStore();
    stepId_ = steps.addStep(
        {"", withoutQuotes(technology.operationName()), processId_, 0, technology.cuttingCycleId()});
    if (stepId_.empty()) return;  // the knowledge base has refused it
    const std::int32_t count = technology.count();
    for (std::int32_t position = 1; position <= count; ++position) {
        TechnologyParameter& parameter = technology.parameter(position);
        if (!isStored(parameter)) continue;
        const Variant value = parameter.value();
        if (!isEmpty(value)) steps.addValue({stepId_, parameter.clCode(), toText(value)});
    }
    // The host may remember where the values came from; that it cannot is no reason to complain of them.
    trap(person().operations(), "frmAddEditProcessTechStep::CmdOk_Click",
         [&] { services_.technology.stored(stepId_, technology); });
}

}  // namespace pellmark
