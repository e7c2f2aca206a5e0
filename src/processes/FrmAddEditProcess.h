#pragma once

#include <string>
#include <vector>

#include "featurecases/cFeatureCase.h"
#include "knowledge/KnowledgeBaseService.h"
#include "ports/HostInterfaces.h"
#include "processes/MemberLists.h"
#include "settings/cQDLExtSettings.h"
#include "util/Dialog.h"
#include "util/Rights.h"

namespace pellmark {

/// Creates a process, or changes one: name, unit, rule, description and materials. A new process is attached
/// to the current feature case where there is one. What a person has changed is discarded only after a
/// question, unless the setting ProcessMngrPromtToSaveDirtyProcess is 0. What somebody else has changed while
/// the dialog was open is shown and told at OK, before anything is stored.
class FrmAddEditProcess : public Dialog {
  public:
    /// An empty id opens the dialog for a new process. `featureCase` is null where there is no view of one.
    /// `atOk` checks the right to store when the person confirms; null where the opener has asked already.
    FrmAddEditProcess(const UserInterface& person, KnowledgeBaseService& knowledgeBase,
                      cQDLExtSettings& settings, HostApplication& host, cFeatureCase* featureCase,
                      std::string processId, Rights* atOk);

    /// Loads both lists from the knowledge base again and forgets moves that were not stored.
    void RefreshNonMembers();
    void CmbUnit_Click();
    void CmdBuildExpression_Click();
    void CmdOk_Click();

    /// The record is in the knowledge base; its materials may still be missing.
    Event<const ProcessRecord&> stored;
    /// Everything is stored, and the dialog closes. With the id of the process.
    Event<const std::string&> completed;

    Label LblName{*this, "LblName"};
    TextBox TxtName{*this, "TxtName"};
    Label LblUnit{*this, "LblUnit"};
    ComboBox CmbUnit{*this, "CmbUnit"};
    Label LblRule{*this, "LblRule"};
    TextBox TxtRule{*this, "TxtRule"};
    Button CmdBuildExpression{*this, "CmdBuildExpression"};
    Label LblDescription{*this, "LblDescription"};
    TextBox TxtDescription{*this, "TxtDescription"};
    MemberLists FrameMaterialClass;
    Button CmdOk{*this, "CmdOk"};
    Button CmdCancel{*this, "CmdCancel"};
    Button CmdHelp{*this, "CmdHelp"};

  protected:
    void Form_Load() override;
    void accept() override { CmdOk_Click(); }
    void cancel() override;

  private:
    void placeControls();
    void translate();
    void loadRecord();
    void showRecord();
    void readMaterials();
    bool inputIsAcceptable();
    bool isAllowed();
    std::vector<ListItem> storedMaterials() const;
    ProcessRecord typed() const;
    bool takeOverChanges();
    bool isChanged() const;
    bool mayDiscard() const;
    void store();
    void storeMaterials();

    KnowledgeBaseService& knowledgeBase_;
    cQDLExtSettings& settings_;
    HostApplication& host_;
    cFeatureCase* featureCase_;
    Rights* atOk_;
    std::string processId_;
    std::string featureCaseMarker_;
    bool editing_ = false;
    ProcessRecord record_;
    ProcessRecord unchanged_;  ///< what is stored, as far as the dialog knows
};

}  // namespace pellmark
