#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "controls/grid/Grid.h"
#include "featurecases/cFeatureCase.h"
#include "knowledge/KnowledgeBaseService.h"
#include "ports/FileSystem.h"
#include "processes/MemberLists.h"
#include "util/Dialog.h"

namespace pellmark {

/// Sets which of the stored processes are attached to the current feature case. The members are those that
/// the process list shows, and whatever else is attached to the very case: a process that is not listed
/// because of its unit or the limit must not be detached by an OK of somebody who never saw it. The
/// candidates are all others of the feature case's unit. What somebody else has attached or detached while
/// the dialog was open is shown and told at OK, before anything is stored.
class FrmAddExistingProcess : public Dialog {
  public:
    /// Candidates of every unit, and no feature case is created.
    static constexpr const char* kNoUnit = "-1";

    /// `listed` is the process list's grid. `featureCaseUnit` is the feature case's unit code as text, or
    /// kNoUnit. All of them must outlive the dialog.
    FrmAddExistingProcess(const UserInterface& person, Idle& idle, KnowledgeBaseService& knowledgeBase,
                          cFeatureCase& featureCase, const Grid& listed, std::string featureCaseUnit);

    /// Loads both lists again and forgets moves that were not stored.
    void RefreshNonMembers();
    void CmdOk_Click();

    /// Everything is stored, and the dialog closes.
    Event<> completed;

    MemberLists FrameProcesses;
    Button CmdOk{*this, "CmdOk"};
    Button CmdCancel{*this, "CmdCancel"};
    Button CmdHelp{*this, "CmdHelp"};

  protected:
    void Form_Load() override;
    void accept() override { CmdOk_Click(); }

  private:
    /// The feature case through which each initial member is attached, by its lower-case id.
    using Members = std::map<std::string, std::string>;

    void readLists();
    std::vector<pNode> attachedToCase();
    std::vector<ListItem> membersOf(const std::vector<pNode>& attached, Members& members) const;
    bool takeOverChanges();
    std::vector<ListItem> processesOfUnit() const;
    bool isChanged() const;
    std::vector<std::string> newMembers() const;
    bool store(const std::string& featureCaseId);
    void attach(const std::string& id, const std::string& featureCaseId);
    void detach(const std::string& id, const std::string& featureCaseId);
    void tellWhatStays(const std::string& featureCaseId);

    Idle& idle_;
    KnowledgeBaseService& knowledgeBase_;
    cFeatureCase& featureCase_;
    const Grid& listed_;
    std::string unit_;
    Members initialMembers_;
    std::set<std::string> attached_;  ///< to the very case, as far as the dialog knows; in lower case
};

}  // namespace pellmark
