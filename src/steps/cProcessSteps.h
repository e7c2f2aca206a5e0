#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/Event.h"
#include "controls/grid/Grid.h"
#include "controls/grid/KeptPlace.h"
#include "steps/ProcessFiles.h"
#include "steps/StepEdits.h"
#include "steps/StepServices.h"
#include "util/GridLayout.h"
#include "util/ListArrangement.h"

namespace pellmark {

/// The list of the steps of the process that is selected in the process list, and the commands on them.
class cProcessSteps {
  public:
    /// `processes` is the grid of the process list, null where there is none; it must outlive this object.
    cProcessSteps(const StepServices& services, const Grid* processes);
    cProcessSteps(const cProcessSteps&) = delete;
    cProcessSteps& operator=(const cProcessSteps&) = delete;

    /// Keeps the grid, which must outlive the list, lays it out and fills it.
    void Init(Grid& grid);
    /// Lets a person find in the list, by this line above it, and sort it by its headings. After Init; the
    /// line must outlive the list.
    void offerFinding(FindLine& line);
    /// A person's wish to see what is stored now: selection and place stay as they are.
    void Refresh();
    /// Reads the steps of the selected process and the cutting cycles anew, and selects the step, or the
    /// first one when it is not listed.
    void RefreshList(const std::string& selectId);
    void SetProcessStepGui(const std::string& id) { RefreshList(id); }
    /// For whoever hears that another process has been selected, or that the process list was filled anew:
    /// reads the steps that belong there, and nothing else. The selected step stays selected.
    void FollowProcess();
    /// Shows what the knowledge base holds of a step now, in its row; a step that is gone loses its row.
    /// Nothing happens for a step that is not listed.
    void UpdateFromDb(const std::string& id);
    /// "" when there is no current row.
    std::string SelectedStepID() const;

    /// Deletes the selected steps for good, after asking.
    void Delete();
    /// Puts the selected rows on the clipboard, under their headings.
    void CopySelection();
    /// Opens the dialog that adds a step to the current process; does nothing without one.
    void AddNewWizard();
    /// Opens the host's step wizard on the current step and stores what the person changed there.
    void Editwizard();
    /// Adds the steps of a process file to the current process; does nothing without one.
    void OpenPrc();
    /// Saves the list as a process file or as a table.
    void Save();

    Grid& grid() const { return *grid_; }

    /// A step has been added to that process, values and all; the process list may want to show it anew.
    Event<const std::string&> processStepsStored;

  private:
    ProcessStepStore& store() const { return services_.knowledgeBase.stepStore(); }
    WindowHandle ownerWindow() const;
    std::string selectedProcess() const;
    void listen();
    void keyPressed(KeyPress& key);
    void rearrange();
    void fill(const std::string& selectId);
    void fillWith(const std::string& stepId);
    void offerCuttingCycles();
    void decorate();
    void selectStep(const std::string& id);
    std::vector<std::string> selectedIdsBottomUp() const;
    std::vector<std::string> allIds();
    /// From the top of the list.
    std::vector<std::string> namesOf(const std::vector<std::string>& idsBottomUp) const;
    void deleteSteps(const std::vector<std::string>& ids);
    void runWizard(const std::string& id);
    bool mayOverwrite();
    void tellImport(const ProcessFiles::Import& outcome, bool failed);
    void offerSelection(DragData& drag);

    StepServices services_;
    const Grid* processes_;
    Grid* grid_ = nullptr;
    std::optional<GridLayout> layout_;
    ProcessFiles files_;
    std::unique_ptr<StepEdits> edits_;
    std::unique_ptr<ListArrangement> arrangement_;
    std::string shownProcess_;
    std::vector<Subscription> subscriptions_;
};

}  // namespace pellmark
