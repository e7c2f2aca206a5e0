#pragma once

#include "controls/Form.h"
#include "controls/Menu.h"
#include "controls/grid/Grid.h"

namespace pellmark {

class Component;

/// The pop-up menus of the grids. The form is never shown: it keeps the menus, opens the one of the grid that
/// was clicked, and hands each command to the list that owns the grid. Commands report their own failures.
class FrmMenu : public Form {
  public:
    explicit FrmMenu(Component& component);
    ~FrmMenu() override;

    /// The grids of the current view by their roles, null for a role that the view lacks. They must outlive
    /// the form or be replaced before they go.
    void setGrids(Grid* processes, Grid* processCase, Grid* processStep);

    /// Opens the editor of the current process's materials.
    void EditMaterials();

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

    Component& component_;
    Grid* FGProcesses = nullptr;
    Grid* FGProcessCase = nullptr;
    Grid* FGProcessStep = nullptr;
    std::vector<Subscription> subscriptions_;
};

}  // namespace pellmark
