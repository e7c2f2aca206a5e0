#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>

#include "processes/FrmAddEditProcess.h"
#include "support/CaseHarness.h"

namespace pellmark::test {

/// The dialog for one process, over a small knowledge base.
class ProcessDialogFixture : public testing::Test, protected CaseHarness {
  protected:
    using Script = std::function<void(FrmAddEditProcess&)>;

    ProcessDialogFixture() {
        brass = base.addMaterial("Brass", metals);
        steel = base.addMaterial("Steel", metals);
        tin = base.addMaterial("Tin", metals);
        drill = base.addProcess("Drill", unit::kInch, "Depth < 3", "short holes");
        base.tables().findProcess(drill)->materials.insert(steel);
    }
    void expectDialog(Script script) {
        desktop.expectDialog("FrmAddEditProcess",
                             [script](Form& dialog) { script(dynamic_cast<FrmAddEditProcess&>(dialog)); });
    }
    void edit(Script script) {
        openProcesses();
        expectDialog(std::move(script));
        list().Editwizard();
    }
    void addNew(Script script) {
        expectDialog(std::move(script));
        list().AddNewWizard();
    }
    ProcessRecord stored(const std::string& id) { return base.tables().findProcess(id)->record; }
    /// The id of the process that the dialog added last.
    std::string added() { return base.tables().processes.back().record.Id; }

    std::string brass, steel, tin, drill;
};

}  // namespace pellmark::test
