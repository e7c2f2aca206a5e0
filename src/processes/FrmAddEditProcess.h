#pragma once

#include <string>

#include "knowledge/Records.h"
#include "processes/MemberLists.h"
#include "processes/ProcessDialog.h"

namespace pellmark {

/// Creates a process, or changes one: name, unit, rule, description and materials. A new process is attached
/// to the current feature case where there is one.
class FrmAddEditProcess : public ProcessDialog {
  public:
    /// An empty id opens the dialog for a new process.
    FrmAddEditProcess(Component& component, std::string processId);

    /// Loads both lists from the knowledge base again and forgets moves that were not stored.
    void RefreshNonMembers();
    void CmbUnit_Click();
    void CmdBuildExpression_Click();
    void CmdOk_Click();

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

  private:
    void placeControls();
    void translate();
    void loadRecord();
    void showRecord();
    bool inputIsAcceptable();
    void store();
    void storeMaterials();

    std::string processId_;
    std::string featureCaseMarker_;
    bool editing_ = false;
    ProcessRecord record_;
};

}  // namespace pellmark
