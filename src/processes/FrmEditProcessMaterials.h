#pragma once

#include <string>

#include "knowledge/KnowledgeBaseService.h"
#include "processes/MemberLists.h"
#include "util/Dialog.h"

namespace pellmark {

/// Edits which materials belong to one process, and nothing else of it. What somebody else has changed of
/// them while the dialog was open is shown and told at OK, before anything is stored.
class FrmEditProcessMaterials : public Dialog {
  public:
    FrmEditProcessMaterials(const UserInterface& person, KnowledgeBaseService& knowledgeBase,
                            std::string processId);

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
    void nameProcess();
    void readLists();
    bool takeOverChanges();

    KnowledgeBaseService& knowledgeBase_;
    std::string processId_;
};

}  // namespace pellmark
