#pragma once

#include "controls/Form.h"
#include "controls/Menu.h"
#include "controls/grid/Grid.h"
#include "util/UserInterface.h"
#include "util/cVSGridOps.h"

namespace pellmark {

class CaseView;
class cFeatureCase;
class cProcess;
class cProcessSteps;

/// The pop-up menus of the grids. The form is never shown: it keeps the menus, opens the one of the grid that
/// was clicked, and hands each command to the list that owns the grid. Commands report their own failures.
class FrmMenu : public Form {
  public:
    FrmMenu(const UserInterface& person, cVSGridOps& gridOps);
    ~FrmMenu() override;

    /// Opens the menus of the list of all processes over its grid. The list must outlive this or be released.
    void serve(cProcess& processes);
    /// The same for the three grids of a feature case.
    void serve(CaseView& view, Grid& processCase);
    /// Before the lists go: no grid opens a menu from here.
    void release();

    Menu mnuProcess{"mnuProcess", "ProcessContext"};
    Menu mnuProcessStep{"mnuProcessStep", "ProcessStepContext"};
    Menu mnufetaureCaseContext{"mnufetaureCaseContext", "FeatureCaseContext"};
    // Not opened by any grid of this component; they keep the form's set of menus whole.
    Menu mnuDefaultStep{"mnuDefaultStep", "DefaultStepContext"};
    Menu mnuDefault{"mnuDefault", "DefaultContext"};
    Menu mnuPartType{"mnuPartType", "ParttypesContext"};
    Menu mnuFeatureType{"mnuFeatureType", "FeatureTypeContext"};

  private:
    void buildProcessMenu();
    void buildStepMenu();
    void buildOtherMenus();
    void prepareProcessMenu();
    void prepareStepMenu();
    void listen(Grid& grid, const char* operation, Menu& menu, void (FrmMenu::*prepare)());
    void popUpOver(Grid& grid, Menu& menu, Point at);
    void serveProcesses(cProcess& processes);
    /// Null where the view has no such grid.
    void formatColumns(Grid* grid);
    /// Opens the editor of the current process's materials, which no menu offers.
    void EditMaterials();

    UserInterface person_;
    cVSGridOps& gridOps_;
    cProcess* processes_ = nullptr;
    cFeatureCase* featureCase_ = nullptr;
    cProcessSteps* steps_ = nullptr;
    Grid* FGProcesses = nullptr;
    Grid* FGProcessCase = nullptr;
    Grid* FGProcessStep = nullptr;
    std::vector<Subscription> subscriptions_;
};

}  // namespace pellmark
