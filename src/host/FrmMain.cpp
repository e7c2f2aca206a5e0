#include "host/FrmMain.h"

#include <algorithm>

#include "util/FormLayout.h"

namespace pellmark {

namespace {

using layout::kTabMargin;

constexpr Size kButton{1215, 375};

}  // namespace

FrmMain::FrmMain(const ViewServices& services)
    : Form(services.person.desktop, "FrmMain"),
      services_(services),
      menus_(services.person, services.gridOps) {
    setBorderStyle(BorderStyle::Sizable);
    setClientSize({14400, 10200});
    setDefaultButton(&CmdOK);
    setCancelButton(&CmdCancel);
    setHelpButton(&CmdHelp);
    placeFilters();

    const auto on = [this](Subscription subscription) { subscriptions_.push_back(std::move(subscription)); };
    on(CmdOK.clicked.subscribe([this] { CmdOk_Click(); }));
    on(CmdCancel.clicked.subscribe([this] { CmdCancel_Click(); }));
    on(CmdHelp.clicked.subscribe([this] { CmdHelp_Click(); }));
    on(TabCtrl.clicked.subscribe([this](int index) { tabClicked(index); }));
    for (Grid* grid : {&VSFGProcessCase, &VSFGProcessCaseResults, &VSFGProcessStep})
        on(grid->entered.subscribe([this, grid] { gridEntered(*grid); }));
    on(FindAllProcesses.toggled.subscribe([this] {
        fitMinimum();
        arrangeInside(TabProcesses);
    }));
    for (FindLine* line : {&FindProcessCaseResults, &FindProcessStep})
        on(line->toggled.subscribe([this] { rearrangeCase(); }));
    for (Splitter* bar : {&SplitFilters, &SplitSteps, &SplitStepsBeside})
        on(bar->moved.subscribe([this] { arrangeInside(SizerProcessCase); }));
    for (Grid* grid : {&VSFGAllProcesses, &VSFGProcessCase, &VSFGProcessCaseResults, &VSFGProcessStep})
        on(grid->gridChanged.subscribe([this](const GridChange& change) {
            const bool mayBeAFont =
                change.what == GridChange::What::Font || change.what == GridChange::What::All;
            if (mayBeAFont) rearrangeCase();
        }));
    on(TabCtrl.indexChanged.subscribe([this] { fitMinimum(); }));
    fitMinimum();
}

FrmMain::~FrmMain() = default;

void FrmMain::Form_Load() {
    trap(services_.person.operations(), "FrmMain::Form_Load", [this] { translateCaptions(); });
}

void FrmMain::restoreLayout() {
    restoreFormLayout(*this, services_.person.layouts);
}

void FrmMain::Form_QueryUnload() {
    saveFormLayout(*this, services_.person.layouts);
}

void FrmMain::translateCaptions() {
    Texts& texts = services_.person.texts;
    const auto translate = [&texts](Control& control, const char* english) {
        control.setCaption(texts.GetString(english));
    };
    setCaption(texts.title());
    translate(TabProcesses, "Processes");
    translate(SizerProcessCase, "Process Case");
    translate(FrameFilters, "Filters");
    // Nobody sees the captions of bars; a screen reader says them.
    translate(SplitFilters, "Bar below the filters");
    translate(SplitSteps, "Bar between processes and steps");
    translate(SplitStepsBeside, "Bar between processes and steps");
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
    trap(services_.person.operations(), "FrmMain::SetView", [&] {
        releaseView();
        picked_.reset();
        view_ = view;
        translateCaptions();  // the language is the host's, and may be another one since the form was loaded
        if (!userClick_) TabCtrl.setIndex(static_cast<int>(view));
        if (view == FRView::FRProcesses) {
            buildProcessesView();
        } else {
            buildProcessCaseView();
        }
        services_.person.layouts.SaveSetting("View", static_cast<std::int32_t>(view));
    });
}

void FrmMain::releaseView() {
    menus_.release();
    caseView_.reset();
    processesView_.reset();
}

cProcess* FrmMain::processes() {
    if (caseView_) return &caseView_->processes;
    return processesView_ ? &processesView_->processes : nullptr;
}

void FrmMain::buildProcessesView() {
    processesView_ = std::make_unique<ProcessesView>(services_, VSFGAllProcesses, FindAllProcesses);
    menus_.serve(processesView_->processes);
    VSFGAllProcesses.setFocus();
}

void FrmMain::buildProcessCaseView() {
    caseView_ =
        std::make_unique<CaseView>(services_,
                                   FeatureCaseControls{CmbFTNvxFeatureType, CmbFTPartType, CmbPartMaterial,
                                                       CmbFTUnit, CmbProcessCaseUnit, VSFGProcessCase},
                                   CaseView::List{VSFGProcessCaseResults, FindProcessCaseResults},
                                   CaseView::List{VSFGProcessStep, FindProcessStep});
    menus_.serve(*caseView_, VSFGProcessCase);
    VSFGProcessCaseResults.setFocus();
}

void FrmMain::SetViewByUserClick(FRView view) {
    userClick_ = true;
    SetView(view);
    userClick_ = false;
}

void FrmMain::tabClicked(int index) {
    if (index != 0 && index != 1) return;
    const bool switched = trapCommand(services_.person.operations(), "FrmMain::TabCtrl_Click", [&] {
        SetViewByUserClick(static_cast<FRView>(index));
        // The host fills the view after it has switched to it; a person expects it filled at once.
        if (cProcess* list = processes()) list->RefreshList("");
    });
    // A command is still at work on the view that is shown, so the tab goes back to it.
    if (!switched) TabCtrl.setIndex(static_cast<int>(view_));
}

void FrmMain::gridEntered(const Grid& active) {
    for (Grid* grid : {&VSFGProcessCase, &VSFGProcessCaseResults, &VSFGProcessStep})
        grid->setActiveLook(grid == &active);
}

void FrmMain::CmdOk_Click() {
    trapCommand(services_.person.operations(), "FrmMain::CmdOk_Click", [this] {
        // What cannot be had is empty: an identifier of an earlier pick would be taken for this one's.
        picked_.emplace();
        const bool wantsCase = std::exchange(FeatureCasePick, false);
        trapAndTell(services_.person, "FrmMain::CmdOk_Click", [&] {
            if (wantsCase) picked_->featureCaseId = pickedFeatureCase();
        });
        trap(services_.person.operations(), "FrmMain::CmdOk_Click", [this] {
            if (const cProcess* list = processes()) picked_->processId = list->SelectedProcessID();
        });
        unload();
    });
}

std::string FrmMain::pickedFeatureCase() {
    if (!caseView_ || !caseView_->featureCase.hasCase()) return {};
    std::string existing = caseView_->featureCase.existingFeatureCase();
    if (!existing.empty()) return existing;
    if (!services_.rights.CheckPermission(PermissionAdd)) return {};
    return caseView_->featureCase.existingOrNewFeatureCase();
}

void FrmMain::CmdCancel_Click() {
    unload();
}

void FrmMain::CmdHelp_Click() {
    carryOut(services_.person, "FrmMain::CmdHelp_Click",
             [this] { services_.person.help.openHelp(handle()); });
}

void FrmMain::placeFilters() {
    constexpr Twips kRow = 405;
    constexpr Size kFrame{4850, 1590};
    const auto row = [&](Label& label, ComboBox& combo, int number) {
        const Twips top = 270 + number * kRow;
        label.place({150, top + 60, 2150, 255}, kFrame, {});
        combo.place({2350, top, 2400, 345}, kFrame, {});
    };
    row(LblUnit, CmbFTUnit, 0);
    row(LblNvxFeatureType, CmbFTNvxFeatureType, 1);
    row(LblpartType, CmbFTPartType, 2);
    row(Label2, CmbProcessCaseUnit, 0);
    row(LblPartMaterial, CmbPartMaterial, 1);
}

void FrmMain::arrange(Size client) {
    Sizer.setBounds({0, 0, client.width, client.height});
}

void FrmMain::arrangeSizer(Size client) {
    const Twips tabsHeight = std::max(client.height - layout::kButtonStripHeight, 0);
    TabCtrl.setBounds({kTabMargin, kTabMargin, std::max(client.width - 2 * kTabMargin, 0),
                       std::max(tabsHeight - kTabMargin, 0)});
    FrameButtons.setBounds({0, tabsHeight, client.width, layout::kButtonStripHeight});
}

void FrmMain::arrangeStrip(Size strip) {
    Frame1.setBounds({0, 0, strip.width, strip.height});
}

void FrmMain::arrangeButtons(Size strip) {
    const auto places = layout::arrangeButtons(strip.width, kButton, kButton, kButton);
    CmdHelp.setBounds(places.help);
    CmdCancel.setBounds(places.cancel);
    CmdOK.setBounds(places.ok);
}

void FrmMain::placeList(FindLine& line, Grid& grid, Rect at) {
    line.setBounds({at.left, at.top, at.width, line.taken()});
    arrangeInside(line);
    at.top += line.taken();
    at.height = std::max(at.height - line.taken(), 0);
    grid.setBounds(at);
}

void FrmMain::arrangeProcesses(Size page) {
    placeList(FindAllProcesses, VSFGAllProcesses,
              {kTabMargin, kTabMargin, std::max(page.width - 2 * kTabMargin, 0),
               std::max(page.height - 2 * kTabMargin, 0)});
}

layout::CaseNeeds FrmMain::caseNeeds() const {
    return {layout::needsOf(VSFGProcessCase.font(), false),
            layout::needsOf(VSFGProcessCaseResults.font(), FindProcessCaseResults.isOpen()),
            layout::needsOf(VSFGProcessStep.font(), FindProcessStep.isOpen())};
}

void FrmMain::fitMinimum() {
    const bool showsCase = TabCtrl.index() == static_cast<int>(FRView::FRProcesscase);
    setMinimumSize(layout::formAround(showsCase ? layout::smallestCasePage(caseNeeds())
                                                : layout::smallestListPage(layout::needsOf(
                                                      VSFGAllProcesses.font(), FindAllProcesses.isOpen()))));
}

void FrmMain::rearrangeCase() {
    fitMinimum();
    arrangeInside(SizerProcessCase);
}

void FrmMain::arrangeProcessCase(Size page) {
    const auto at = layout::arrangeProcessCase(
        page, caseNeeds(), {SplitFilters.share(), SplitSteps.share(), SplitStepsBeside.share()});
    FrameFilters.setBounds(at.filters);
    FrameFeatureTypeFilters.setBounds(at.featureTypeFilters);
    FrameProcessFilters.setBounds(at.processFilters);
    FrameProcessCase.setBounds(at.processCase);
    FrameProcessCaseResults.setBounds(at.results);
    FrameProcessStep.setBounds(at.steps);
    VSFGProcessCase.setBounds(layout::gridInFrame(at.processCase));
    placeList(FindProcessCaseResults, VSFGProcessCaseResults, layout::gridInFrame(at.results));
    placeList(FindProcessStep, VSFGProcessStep, layout::gridInFrame(at.steps));

    SplitFilters.setDivision(at.filtersDivision);
    SplitFilters.setBounds(at.filtersBar);
    SplitSteps.setVisible(at.isStacked);
    SplitStepsBeside.setVisible(!at.isStacked);
    Splitter& bar = at.isStacked ? SplitSteps : SplitStepsBeside;
    bar.setDivision(at.listsDivision);
    bar.setBounds(at.listsBar);
}

}  // namespace pellmark
