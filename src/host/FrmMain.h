#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "controls/Controls.h"
#include "controls/FindLine.h"
#include "controls/Form.h"
#include "controls/Splitter.h"
#include "controls/grid/Grid.h"
#include "host/FrmMenu.h"
#include "host/MainLayout.h"
#include "host/ViewServices.h"
#include "host/Views.h"

namespace pellmark {

/// The views of the main form; the values are those of the public enumeration.
enum class FRView : std::int32_t { FRProcesses = 0, FRProcesscase = 1 };

/// What a person chose with OK; "" where nothing was.
struct Pick {
    std::string processId;
    std::string featureCaseId;
};

/// A tab page whose controls the form lays out by rules of its own.
class ArrangedPage : public TabPage {
  public:
    ArrangedPage(TabStrip& strip, std::string name, std::function<void(Size)> arrange)
        : TabPage(strip, std::move(name)), arrange_(std::move(arrange)) {}
    void arrange(Size page) override { arrange_(page); }

  private:
    std::function<void(Size)> arrange_;
};

/// The same for a frame, without a border of its own.
class ArrangedFrame : public Frame {
  public:
    ArrangedFrame(Container& parent, std::string name, std::function<void(Size)> arrange)
        : Frame(parent, std::move(name)), arrange_(std::move(arrange)) {
        setBordered(false);
    }
    void arrange(Size client) override { arrange_(client); }

  private:
    std::function<void(Size)> arrange_;
};

/// The one window of the component that the host sees: a tab per view over the grids of that view. It owns
/// the controllers of the view that is shown; every view switch makes them anew and binds them to the grids.
class FrmMain : public Form {
  public:
    explicit FrmMain(const ViewServices& services);
    ~FrmMain() override;

    /// Builds a view and shows its tab.
    void SetView(FRView view);
    /// The same for a click on a tab, which has moved already.
    void SetViewByUserClick(FRView view);
    FRView view() const { return view_; }

    /// The process list of the view; null while there is no view.
    cProcess* processes();
    /// Null unless the view is one of a feature case.
    CaseView* caseView() { return caseView_.get(); }
    /// Ends the view: the controllers go.
    void releaseView();

    /// What OK chose since the last view switch; nothing after a cancel.
    const std::optional<Pick>& picked() const { return picked_; }
    /// Set by OpenFeatureCase just before the modal show; read and cleared by OK.
    bool FeatureCasePick = false;

    void CmdOk_Click();
    void CmdCancel_Click();
    void CmdHelp_Click();

    void arrange(Size client) override;

    /// The pop-up menus of the grids.
    FrmMenu& menus() { return menus_; }

    ArrangedFrame Sizer{*this, "Sizer", [this](Size client) { arrangeSizer(client); }};
    TabStrip TabCtrl{Sizer, "TabCtrl"};
    ArrangedPage TabProcesses{TabCtrl, "TabProcesses", [this](Size page) { arrangeProcesses(page); }};
    FindLine FindAllProcesses{TabProcesses, "FindAllProcesses"};
    Grid VSFGAllProcesses{TabProcesses, "VSFGAllProcesses"};

    ArrangedPage SizerProcessCase{TabCtrl, "SizerProcessCase",
                                  [this](Size page) { arrangeProcessCase(page); }};
    Frame FrameFilters{SizerProcessCase, "FrameFilters", "Filters"};
    Frame FrameFeatureTypeFilters{FrameFilters, "FrameFeatureTypeFilters", "Feature Case Filters"};
    Label LblUnit{FrameFeatureTypeFilters, "LblUnit", "Unit"};
    ComboBox CmbFTUnit{FrameFeatureTypeFilters, "CmbFTUnit"};
    Label LblNvxFeatureType{FrameFeatureTypeFilters, "LblNvxFeatureType", "Norvex Feature Type"};
    ComboBox CmbFTNvxFeatureType{FrameFeatureTypeFilters, "CmbFTNvxFeatureType"};
    Label LblpartType{FrameFeatureTypeFilters, "LblpartType", "Part Type"};
    ComboBox CmbFTPartType{FrameFeatureTypeFilters, "CmbFTPartType"};
    Frame FrameProcessFilters{FrameFilters, "FrameProcessFilters", "Process Filters"};
    Label Label2{FrameProcessFilters, "Label2", "Unit"};
    ComboBox CmbProcessCaseUnit{FrameProcessFilters, "CmbProcessCaseUnit"};
    Label LblPartMaterial{FrameProcessFilters, "LblPartMaterial", "Part Material Class"};
    ComboBox CmbPartMaterial{FrameProcessFilters, "CmbPartMaterial"};
    Frame FrameProcessCase{FrameFilters, "FrameProcessCase", "Feature Case"};
    Grid VSFGProcessCase{FrameProcessCase, "VSFGProcessCase"};
    Splitter SplitFilters{SizerProcessCase, "SplitFilters", Splitter::Bar::Lying};
    Frame FrameProcessCaseResults{SizerProcessCase, "FrameProcessCaseResults", "Processes"};
    FindLine FindProcessCaseResults{FrameProcessCaseResults, "FindProcessCaseResults"};
    Grid VSFGProcessCaseResults{FrameProcessCaseResults, "VSFGProcessCaseResults"};
    Splitter SplitSteps{SizerProcessCase, "SplitSteps", Splitter::Bar::Lying};
    Splitter SplitStepsBeside{SizerProcessCase, "SplitStepsBeside", Splitter::Bar::Standing};
    Frame FrameProcessStep{SizerProcessCase, "FrameProcessStep", "Process Steps"};
    FindLine FindProcessStep{FrameProcessStep, "FindProcessStep"};
    Grid VSFGProcessStep{FrameProcessStep, "VSFGProcessStep"};

    ArrangedFrame FrameButtons{Sizer, "FrameButtons", [this](Size strip) { arrangeStrip(strip); }};
    ArrangedFrame Frame1{FrameButtons, "Frame1", [this](Size strip) { arrangeButtons(strip); }};
    Button CmdOK{Frame1, "CmdOK", "OK"};
    Button CmdCancel{Frame1, "CmdCancel", "Cancel"};
    Button CmdHelp{Frame1, "CmdHelp", "Help"};

  protected:
    void Form_Load() override;
    void restoreLayout() override;
    void Form_QueryUnload() override;

  private:
    void buildProcessesView();
    void buildProcessCaseView();
    std::string pickedFeatureCase();
    void arrangeSizer(Size client);
    void arrangeStrip(Size strip);
    void arrangeButtons(Size strip);
    void arrangeProcesses(Size page);
    void arrangeProcessCase(Size page);
    layout::CaseNeeds caseNeeds() const;
    /// The smallest form depends on the page that is shown, the fonts of its lists and what is looked for.
    void fitMinimum();
    /// A person has moved a bar, or a list needs more room.
    void rearrangeCase();
    /// A grid with the line above it, which takes its height from the grid while it is open.
    static void placeList(FindLine& line, Grid& grid, Rect at);
    void placeFilters();
    void translateCaptions();
    void tabClicked(int index);
    /// Of the case view's grids the one with the keyboard looks active.
    void gridEntered(const Grid& active);

    ViewServices services_;
    FRView view_ = FRView::FRProcesses;
    bool userClick_ = false;
    FrmMenu menus_;
    std::optional<Pick> picked_;
    std::unique_ptr<ProcessesView> processesView_;
    std::unique_ptr<CaseView> caseView_;
    std::vector<Subscription> subscriptions_;
};

}  // namespace pellmark
