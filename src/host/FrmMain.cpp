#include "host/FrmMain.h"

#include <algorithm>

#include "featurecases/cFeatureCase.h"
#include "host/Component.h"
#include "host/MainLayout.h"
#include "knowledge/Records.h"
#include "processes/cProcess.h"

namespace pellmark {

namespace {

constexpr Size kButton{1215, 375};
constexpr Twips kTabMargin = 60;

}  // namespace

FrmMain::FrmMain(Component& component)
    : Form(component.desktop(), "FrmMain"), component_(component), menus_(component) {
    setBorderStyle(BorderStyle::Sizable);
    setClientSize({14400, 10200});
    setMinimumSize({9600, 7200});
    setDefaultButton(&CmdOK);
    setCancelButton(&CmdCancel);
    FrameButtons.setBordered(false);
    placeFilters();

    const auto on = [this](Subscription subscription) { subscriptions_.push_back(std::move(subscription)); };
    on(CmdOK.clicked.subscribe([this] { CmdOk_Click(); }));
    on(CmdCancel.clicked.subscribe([this] { CmdCancel_Click(); }));
    on(CmdHelp.clicked.subscribe([this] { CmdHelp_Click(); }));
    on(TabCtrl.clicked.subscribe([this](int index) { tabClicked(index); }));
    on(VSFGProcessCaseResults.entered.subscribe(
        [this] { gridEntered(VSFGProcessCaseResults, VSFGProcessStep); }));
    on(VSFGProcessStep.entered.subscribe([this] { gridEntered(VSFGProcessStep, VSFGProcessCaseResults); }));
}

FrmMain::~FrmMain() = default;

void FrmMain::Form_Load() {
    trap(component_.trace(), "FrmMain::Form_Load", [this] {
        setCaption(component_.title());
        TabProcesses.setCaption(component_.GetString("Processes"));
        SizerProcessCase.setCaption(component_.GetString("Process Case"));
        translateCaptions();
    });
}

void FrmMain::Form_QueryUnload() {}

void FrmMain::translateCaptions() {
    const auto translate = [this](Control& control, const char* english) {
        control.setCaption(component_.GetString(english));
    };
    translate(FrameFilters, "Filters");
    translate(FrameFeatureTypeFilters, "Feature Case Filters");
    translate(LblUnit, "Unit");
    translate(LblNvxFeatureType, "Norvex Feature Type");
    translate(LblpartType, "Part Type");
    translate(FrameProcessFilters, "Process Filters");
    translate(Label2, "Unit");
    translate(LblPartMaterial, "Part Material Class");
    translate(FrameProcessCase, "Feature Case");
    translate(FrameProcessCaseResults, "Processes");
    translate(FrameProcessStep, "Process Steps");
    translate(CmdOK, "OK");
    translate(CmdHelp, "Help");
}

void FrmMain::SetView(FRView view) {
    trap(component_.trace(), "FrmMain::SetView", [&] {
        component_.releaseControllers();
        view_ = view;
        if (!userClick_) TabCtrl.setIndex(static_cast<int>(view));
        if (view == FRView::FRProcesses) {
            buildProcessesView();
        } else {
            buildProcessCaseView();
        }
    });
}

void FrmMain::buildProcessesView() {
    menus_.setGrids(&VSFGAllProcesses, nullptr, nullptr);
    auto processes = std::make_unique<cProcess>(component_);
    processes->Init(VSFGAllProcesses);
    component_.setProcesses(std::move(processes));
}

void FrmMain::buildProcessCaseView() {
    menus_.setGrids(&VSFGProcessCaseResults, &VSFGProcessCase, &VSFGProcessStep);
    component_.setFeatureCase(std::make_unique<cFeatureCase>(component_));
    component_.featureCase()->Init(*this);
    component_.setProcesses(std::make_unique<cProcess>(component_));
    component_.processes()->Init(VSFGProcessCaseResults);
    layOutSteps();
    caseChanged_ = component_.featureCase()->caseChanged.subscribe([this] { caseChanged(); });
    VSFGProcessCaseResults.setFocus();
}

void FrmMain::layOutSteps() {
    struct Column {
        const char* heading;
        const char* key;
        Twips width;
        bool internal;
    };
    constexpr Column kColumns[] = {
        {"ID", field::kId, 1000, true},
        {"ProcessID", field::kProcessId, 1000, true},
        {"Priority", field::kPriority, 1000, true},
        {"Name", field::kName, 4000, false},
        {"Cutting Cycle", field::kCuttingCycleId, 2000, false},
    };
    std::string headings;  // the first column, before the first divider, is the fixed one
    for (const Column& column : kColumns)
        headings += '|' + component_.GetString(column.heading);
    const bool debug = component_.settings().DebugMode() != 0;
    Grid::RedrawOff off(VSFGProcessStep);
    VSFGProcessStep.setHeadings(headings);
    VSFGProcessStep.setFixedCols(1);
    VSFGProcessStep.setColKey(0, "FixedRow");
    VSFGProcessStep.setColWidth(0, 750);
    for (int col = 1; col < VSFGProcessStep.cols(); ++col) {
        const Column& column = kColumns[col - 1];
        VSFGProcessStep.setColKey(col, column.key);
        VSFGProcessStep.setColWidth(col, column.width);
        VSFGProcessStep.setColHidden(col, column.internal && !debug);
    }
}

void FrmMain::caseChanged() {
    cProcess* processes = component_.processes();
    if (processes != nullptr) processes->RefreshList(processes->SelectedProcessID());
}

void FrmMain::SetViewByUserClick(FRView view) {
    userClick_ = true;
    SetView(view);
    userClick_ = false;
}

void FrmMain::tabClicked(int index) {
    if (index != 0 && index != 1) return;
    SetViewByUserClick(static_cast<FRView>(index));
    // The host fills the view after it has switched to it; a person expects it filled at once.
    if (cProcess* processes = component_.processes()) processes->RefreshList("");
}

void FrmMain::gridEntered(Grid& active, Grid& other) {
    active.setActiveLook(true);
    other.setActiveLook(false);
}

void FrmMain::CmdOk_Click() {
    Application& application = component_.application();
    trap(component_.trace(), "FrmMain::CmdOk_Click", [&] {
        const std::string featureCase = FeatureCasePick ? pickedFeatureCase() : std::string();
        FeatureCasePick = false;
        application.ReturnFeatureCaseGuid = featureCase;
    });
    trap(component_.trace(), "FrmMain::CmdOk_Click", [&] {
        application.ReturnProcessGuid =
            component_.processes() ? component_.processes()->SelectedProcessID() : "";
    });
    unload();
}

std::string FrmMain::pickedFeatureCase() {
    cFeatureCase* featureCase = component_.featureCase();
    if (featureCase == nullptr || featureCase->GetCurrentFeatureType() == "-1") return {};
    return featureCase->existingOrNewFeatureCase();
}

void FrmMain::CmdCancel_Click() {
    unload();
}

void FrmMain::CmdHelp_Click() {
    trap(component_.trace(), "FrmMain::CmdHelp_Click",
         [this] { component_.help().OpenHTMLHelp(handle(), Variant(HTMLHelp::kContext)); });
}

void FrmMain::placeFilters() {
    constexpr Twips kRow = 405;
    constexpr Size kFrame{4900, 1590};
    const auto row = [&](Label& label, ComboBox& combo, int number) {
        const Twips top = 270 + number * kRow;
        label.place({150, top + 60, 1700, 255}, kFrame, {});
        combo.place({1900, top, 2850, 345}, kFrame, {});
    };
    row(LblUnit, CmbFTUnit, 0);
    row(LblNvxFeatureType, CmbFTNvxFeatureType, 1);
    row(LblpartType, CmbFTPartType, 2);
    row(Label2, CmbProcessCaseUnit, 0);
    row(LblPartMaterial, CmbPartMaterial, 1);
}

void FrmMain::arrange(Size client) {
    const Twips tabsHeight = std::max(client.height - layout::kButtonStripHeight, 0);
    TabCtrl.setBounds({kTabMargin, kTabMargin, std::max(client.width - 2 * kTabMargin, 0),
                       std::max(tabsHeight - kTabMargin, 0)});
    FrameButtons.setBounds({0, tabsHeight, client.width, layout::kButtonStripHeight});
    const auto strip = layout::arrangeButtons(client.width, kButton, kButton, kButton);
    CmdHelp.setBounds(strip.help);
    CmdCancel.setBounds(strip.cancel);
    CmdOK.setBounds(strip.ok);
}

void FrmMain::arrangeProcesses(Size page) {
    VSFGAllProcesses.setBounds({kTabMargin, kTabMargin, std::max(page.width - 2 * kTabMargin, 0),
                                std::max(page.height - 2 * kTabMargin, 0)});
}

void FrmMain::arrangeProcessCase(Size page) {
    const auto at = layout::arrangeProcessCase(page);
    FrameFilters.setBounds(at.filters);
    FrameFeatureTypeFilters.setBounds(at.featureTypeFilters);
    FrameProcessFilters.setBounds(at.processFilters);
    FrameProcessCase.setBounds(at.processCase);
    FrameProcessCaseResults.setBounds(at.results);
    FrameProcessStep.setBounds(at.steps);
    VSFGProcessCase.setBounds(layout::gridInFrame(at.processCase));
    VSFGProcessCaseResults.setBounds(layout::gridInFrame(at.results));
    VSFGProcessStep.setBounds(layout::gridInFrame(at.steps));
}

}  // namespace pellmark
