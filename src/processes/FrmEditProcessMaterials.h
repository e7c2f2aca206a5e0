#pragma once

#include <string>

#include "processes/MemberLists.h"
#include "processes/ProcessDialog.h"

namespace pellmark {

/// Edits which materials belong to one process, and nothing else of it.
class FrmEditProcessMaterials : public ProcessDialog {
  public:
    FrmEditProcessMaterials(Component& component, std::string processId);

    /// Loads both lists from the knowledge base again and forgets moves that were not stored.
    void RefreshNonMembers();
    void CmdOk_Click();

    MemberLists FrameMaterials;
    Button CmdOk{*this, "CmdOk"};
    Button CmdCancel{*this, "CmdCancel"};
    Button CmdHelp{*this, "CmdHelp"};

  protected:
    void Form_Load() override;
    void accept() override { CmdOk_Click(); }

  private:
    std::string processId_;
};

}  // namespace pellmark
