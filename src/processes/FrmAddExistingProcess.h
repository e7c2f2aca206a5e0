#pragma once

#include <set>
#include <string>

#include "processes/MemberLists.h"
#include "processes/ProcessDialog.h"

namespace pellmark {

/// Sets which of the stored processes are attached to the current feature case. The members are those that
/// the process list shows; the candidates are all others of the feature case's unit.
class FrmAddExistingProcess : public ProcessDialog {
  public:
    /// Candidates of every unit, and no feature case is created.
    static constexpr const char* kNoUnit = "-1";

    /// `featureCaseUnit` is the feature case's unit code as text, or kNoUnit. `currentProcessId` stays
    /// selected in the process list.
    FrmAddExistingProcess(Component& component, std::string featureCaseUnit, std::string currentProcessId);

    /// Loads both lists again and forgets moves that were not stored.
    void RefreshNonMembers();
    void CmdOk_Click();

    MemberLists FrameProcesses;
    Button CmdOk{*this, "CmdOk"};
    Button CmdCancel{*this, "CmdCancel"};
    Button CmdHelp{*this, "CmdHelp"};

  protected:
    void Form_Load() override;
    void accept() override { CmdOk_Click(); }

  private:
    std::vector<ListItem> listedMembers() const;
    std::vector<ListItem> processesOfUnit() const;
    std::string featureCaseId();
    void attachNewMembers(const std::string& featureCaseId);
    void detachCandidates(const std::string& featureCaseId);

    std::string unit_;
    std::string currentProcessId_;
    std::set<std::string> initialMembers_;  ///< lower-case ids
};

}  // namespace pellmark
