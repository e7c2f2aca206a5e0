#pragma once

#include <functional>
#include <string>
#include <vector>

#include "controls/Controls.h"
#include "controls/Form.h"
#include "controls/grid/Grid.h"
#include "host/Application.h"
#include "host/FrmMenu.h"

namespace pellmark {

class Component;

/// A tab page whose controls the form lays out by rules of its own.
class ArrangedPage : public TabPage {
  public:
    ArrangedPage(TabStrip& strip, std::string name, std::function<void(Size)> arrange)
        : TabPage(strip, std::move(name)), arrange_(std::move(arrange)) {}
    void arrange(Size page) override { arrange_(page); }

  private:
    std::function<void(Size)> arrange_;
};

/// The one window of the component that the host sees: a tab per view over the grids of that view. It owns
/// no data; every view switch makes the controllers anew and binds them to the grids.
class FrmMain : public Form {
  public:
    explicit FrmMain(Component& component);
    ~FrmMain() override;

    /// Builds a view and shows its tab.
    void SetView(FRView view);
    /// The same for a click on a tab, which has moved already.
    void SetViewByUserClick(FRView view);
    FRView view() const { return view_; }

    /// Set by OpenFeatureCase just before the modal show; read and cleared by OK.
    bool FeatureCasePick = false;

    void CmdOk_Click();
    void CmdCancel_Click();
    void CmdHelp_Click();

    void arrange(Size client) override;

    /// The pop-up menus of the grids.
    FrmMenu& menus() { return menus_; }

    TabStrip TabCtrl{*this, "TabCtrl"};
    ArrangedPage TabProcesses{TabCtrl, "TabProcesses", [this](Size page) { arrangeProcesses(page); }};
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
    Frame FrameProcessCaseResults{SizerProcessCase, "FrameProcessCaseResults", "Processes"};
    Grid VSFGProcessCaseResults{FrameProcessCaseResults, "VSFGProcessCaseResults"};
    Frame FrameProcessStep{SizerProcessCase, "FrameProcessStep", "Process Steps"};
    Grid VSFGProcessStep{FrameProcessStep, "VSFGProcessStep"};

    Frame FrameButtons{*this, "FrameButtons"};
    Button CmdOK{FrameButtons, "CmdOK", "OK"};
    Button CmdCancel{FrameButtons, "CmdCancel", "Cancel"};
    Button CmdHelp{FrameButtons, "CmdHelp", "Help"};

  protected:
    void Form_Load() override;
    void Form_QueryUnload() override;

  private:
    void buildProcessesView();
    void buildProcessCaseView();
    std::string pickedFeatureCase();
    void arrangeProcesses(Size page);
    void arrangeProcessCase(Size page);
    void placeFilters();
    void translateCaptions();
    void tabClicked(int index);
    void layOutSteps();
    void caseChanged();
    void gridEntered(Grid& active, Grid& other);

    Component& component_;
    FRView view_ = FRView::FRProcesses;
    bool userClick_ = false;
    FrmMenu menus_;
    Subscription caseChanged_;
    std::vector<Subscription> subscriptions_;
};

}  // namespace pellmark
