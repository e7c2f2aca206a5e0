#pragma once

#include <memory>
#include <string>
#include <vector>

#include "controls/grid/Grid.h"
#include "knowledge/Records.h"

namespace pellmark {

class Component;

/// The process list: fills one grid with every process of the knowledge base, or with those of the current
/// feature case when a feature-case view exists, and carries the commands on its selected rows.
class cProcess {
  public:
    explicit cProcess(Component& component);
    ~cProcess();

    /// Keeps the grid, which must outlive the list, and lays it out for the current mode.
    void Init(Grid& grid);
    /// Refills the list in the current mode and selects the process, or the first row when it is not listed.
    void RefreshList(const std::string& selectId);
    void RefreshListfeatureCase(const std::string& selectId);
    /// Lays the grid out as Init does and selects the process where it is listed.
    void SetProcessGui(const std::string& id);
    /// Names of processes attached to no feature case in red, all others in black.
    void SetOrphanColor();
    /// Shows what the knowledge base holds of the record's process now, in its row or in a new one.
    void UpdateFromDb(const ProcessRecord& record);
    /// "" when there is no data row.
    std::string SelectedProcessID() const;

    /// Deletes the selected processes for good, after asking.
    void Delete();
    /// Detaches the selected processes from the feature cases through which they are listed, after asking.
    void DeleteFromFeatureCase();
    /// Opens the dialog for a new process.
    void AddNewWizard();
    /// Opens the dialog on the current process; does nothing without one.
    void Editwizard();
    /// Lets the user choose which stored processes are attached to the current feature case.
    void EditExistingProcesseswizard();
    /// Opens the editor of the current process's materials; does nothing without a data row.
    void EditMaterialsWizard();

    Grid& grid() const { return *grid_; }

  private:
    WindowHandle ownerWindow() const;
    void layOut();
    void hideInternalColumns();
    void fillAll(const std::string& selectId);
    void fillFeatureCase(const std::string& selectId);
    std::vector<pNode> listedResults();
    void selectProcess(const std::string& id);
    void offerSelection(DragData& drag);
    template <class Remove>
    void removeSelected(Remove&& remove);

    Component& component_;
    Grid* grid_ = nullptr;
    std::vector<Subscription> subscriptions_;
};

}  // namespace pellmark
