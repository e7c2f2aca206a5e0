#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "controls/grid/ColumnTable.h"
#include "controls/grid/Grid.h"
#include "controls/grid/KeptPlace.h"
#include "featurecases/cFeatureCase.h"
#include "knowledge/KnowledgeBaseService.h"
#include "ports/HostInterfaces.h"
#include "processes/AllProcesses.h"
#include "settings/cQDLExtSettings.h"
#include "util/GridLayout.h"
#include "util/ListArrangement.h"
#include "util/Rights.h"
#include "util/UserInterface.h"
#include "util/cVSGridOps.h"

namespace pellmark {

/// The process list: fills one grid with every process of the knowledge base, or with those of the current
/// feature case where it belongs to a feature-case view, and carries the commands on its selected rows. What
/// it is handed must outlive it. Commands tell the person of their failures; a fill ends quietly.
class cProcess {
  public:
    /// `featureCase` is null for the list of all processes.
    cProcess(const UserInterface& person, KnowledgeBaseService& knowledgeBase, Rights& rights,
             cQDLExtSettings& settings, cVSGridOps& gridOps, Idle& idle, HostApplication& host,
             cFeatureCase* featureCase);
    ~cProcess();

    /// Keeps the grid, which must outlive the list, and lays it out.
    void Init(Grid& grid);
    /// Lets a person find in the list, by this line above it, and sort it by its headings. After Init; the
    /// line must outlive the list.
    void offerFinding(FindLine& line);
    /// A person's wish to see what is stored now: selection and place stay as they are.
    void Refresh();
    /// Refills the list and selects the process, or the first row when it is not listed.
    void RefreshList(const std::string& selectId);
    void RefreshListfeatureCase(const std::string& selectId);
    /// Names the columns as Init does, in the language of now, and selects the process where it is listed.
    /// Widths, order and visibility stay as the person left them.
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
    /// Puts the selected rows on the clipboard, under their headings.
    void CopySelection();
    /// Opens the dialog for a new process.
    void AddNewWizard();
    /// Opens the dialog on the current process; does nothing without one.
    void Editwizard();
    /// Opens the dialog on that process, or for a new one where the id is "", over the owner. The right to do
    /// so is checked when the person confirms.
    void editForHost(const std::string& id, WindowHandle owner);
    /// Lets the user choose which stored processes are attached to the current feature case.
    void EditExistingProcesseswizard();
    /// Opens the editor of the current process's materials; does nothing without a data row.
    void EditMaterialsWizard();

    Grid& grid() const { return *grid_; }
    /// The results behind the rows of a feature case, in their order, those beyond the limit included.
    const std::vector<pNode>& results() const { return results_; }

    /// The current process became another one, or its list was filled anew: once for each such event.
    Event<> currentChanged;

  private:
    class OneChange;

    WindowHandle ownerWindow() const;
    std::span<const ColumnSpec> columns() const;
    HeadingText headings() const;
    /// Columns as the person left them, but for the internal ones.
    void restoreColumns();
    void keyPressed(KeyPress& key);
    void fill(const std::string& selectId);
    void fillAll(const std::string& selectId);
    void fillFeatureCase(const std::string& selectId);
    void readFeatureCase();
    void forgetRead();
    void rearrange();
    /// Fills the list anew; selection and place stay as they are.
    void readAnew();
    void refreshWhereGone();
    /// Whether a listed process is still stored. Where it is not, the person is told, and the list read anew.
    bool isThere(const std::string& id);
    void selectProcess(const std::string& id);
    void selectLast();
    void offerSelection(DragData& drag);
    void openDialog(const std::string& id, WindowHandle owner, Rights* atOk);

    UserInterface person_;
    KnowledgeBaseService& knowledgeBase_;
    Rights& rights_;
    cQDLExtSettings& settings_;
    cVSGridOps& gridOps_;
    Idle& idle_;
    HostApplication& host_;
    cFeatureCase* featureCase_;
    Grid* grid_ = nullptr;
    std::unique_ptr<ListArrangement> arrangement_;
    AllProcesses all_;
    std::optional<GridLayout> layout_;
    std::vector<pNode> results_;
    std::shared_ptr<RecordSet> ofCase_;  ///< what is behind the rows of a feature case; null: to be read
    std::string fillFailure_;            ///< why the last fill failed, "" when it did not
    int heldBack_ = 0;
    std::shared_ptr<cProcess*> self_ = std::make_shared<cProcess*>(this);  ///< for what may find it gone
    std::vector<Subscription> subscriptions_;
};

}  // namespace pellmark
