#pragma once

#include <cstdint>
#include <string>

#include "controls/Controls.h"
#include "steps/StepServices.h"
#include "util/Dialog.h"

namespace pellmark {

/// Adds a technology step to a process: a cutting cycle is chosen, the host's editor opens on its technology,
/// and what the person accepts there is stored.
class frmAddEditProcessTechStep : public Dialog {
  public:
    frmAddEditProcessTechStep(const StepServices& services, std::string processId);

    void CmdOk_Click();
    void CmbProcessType_Change();

    /// The step that has been added, "" while there is none. It stays where a value could not be stored.
    const std::string& StoredStepId() const { return stepId_; }
    /// A step of that process has been stored with its values.
    Event<const std::string&> processStored;

    Frame FrameTechnology{*this, "FrameTechnology", "Technology"};
    Label Lblcycle{FrameTechnology, "Lblcycle", "Cutting Cycle"};
    ComboBox CmbProcessType{FrameTechnology, "CmbProcessType"};
    Button CmdOk{*this, "CmdOk", "OK"};
    Button CmdCancel{*this, "CmdCancel", "Cancel"};
    Button CmdHelp{*this, "CmdHelp", "Help"};

  protected:
    void Form_Load() override;
    void accept() override { CmdOk_Click(); }

  private:
    void loadCuttingCycles();
    void store(TechnologyObject& technology);
    void storeStep(TechnologyObject& technology);

    StepServices services_;
    std::string processId_;
    std::int16_t cuttingCycleId_ = 0;
    std::string stepId_;
};

}  // namespace pellmark
