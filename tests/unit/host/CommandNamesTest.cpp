// Whoever reads a log finds each command by its name. A command that comes while another one is at work is
// refused and traced, so every name can be seen without a failure of its own.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "processes/FrmAddEditProcess.h"
#include "processes/FrmAddExistingProcess.h"
#include "processes/FrmEditProcessMaterials.h"
#include "steps/FrmAddEditProcessTechStep.h"
#include "support/CaseHarness.h"
#include "util/FrmFormatColumns.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;

class CommandNamesTest : public testing::Test, protected CaseHarness {
  protected:
    CommandNamesTest() {
        process = base.addProcess("Drill");
        base.addCuttingCycle(602, "Drilling", 6);
        base.addStep(process, "Centre", 1, 602);
        base.addFeatureCase(hole, {d8}, {process});
        main.load();
        openCase({d8});
    }
    /// Runs it while another command is at work.
    void expectRefused(const char* name, const std::function<void()>& command) {
        const Operations::Command earlier(operations, "an earlier command");
        trace.clear();
        command();
        EXPECT_THAT(trace.lines(),
                    ElementsAre(std::string(name) + ": refused: an earlier command has not ended yet"));
    }
    void expectRefused(const char* name, Button& button) {
        expectRefused(name, [&button] { button.click(); });
    }

    std::string process;
};

TEST_F(CommandNamesTest, OfTheProcessList) {
    const std::pair<const char*, void (cProcess::*)()> commands[] = {
        {"cProcess::Refresh", &cProcess::Refresh},
        {"cProcess::Delete", &cProcess::Delete},
        {"cProcess::DeleteFromFeatureCase", &cProcess::DeleteFromFeatureCase},
        {"cProcess::CopySelection", &cProcess::CopySelection},
        {"cProcess::AddNewWizard", &cProcess::AddNewWizard},
        {"cProcess::Editwizard", &cProcess::Editwizard},
        {"cProcess::EditExistingProcesseswizard", &cProcess::EditExistingProcesseswizard},
        {"cProcess::EditMaterialsWizard", &cProcess::EditMaterialsWizard}};
    for (const auto& [name, command] : commands)
        expectRefused(name, [this, run = command] { (list().*run)(); });
}

TEST_F(CommandNamesTest, OfTheStepList) {
    const std::pair<const char*, void (cProcessSteps::*)()> commands[] = {
        {"cProcessSteps::Refresh", &cProcessSteps::Refresh},
        {"cProcessSteps::Delete", &cProcessSteps::Delete},
        {"cProcessSteps::CopySelection", &cProcessSteps::CopySelection},
        {"cProcessSteps::AddNewWizard", &cProcessSteps::AddNewWizard},
        {"cProcessSteps::Editwizard", &cProcessSteps::Editwizard},
        {"cProcessSteps::OpenPrc", &cProcessSteps::OpenPrc},
        {"cProcessSteps::Save", &cProcessSteps::Save}};
    for (const auto& [name, command] : commands)
        expectRefused(name, [this, run = command] { (main.caseView()->steps.*run)(); });
}

TEST_F(CommandNamesTest, OfGridsAndTheLinesAboveThem) {
    Grid& grid = main.VSFGProcessCaseResults;
    expectRefused("cVSGridOps::SaveGrid", [&] { services.gridOps.SaveGrid(grid, 9); });
    expectRefused("cVSGridOps::PrintGrid", [&] { services.gridOps.PrintGrid(grid, "Processes"); });
    expectRefused("cVSGridOps::FormatColumns", [&] { services.gridOps.FormatColumns(grid, main); });
    FindLine& line = main.FindProcessCaseResults;
    line.open();
    expectRefused("ListArrangement::changed", [&] { line.TxtFind.setText("dr"); });
}

TEST_F(CommandNamesTest, OfTheMainForm) {
    expectRefused("FrmMain::TabCtrl_Click", [this] { main.TabCtrl.click(0); });
    expectRefused("FrmMain::CmdHelp_Click", main.CmdHelp);
    expectRefused("FrmMain::CmdOk_Click", main.CmdOK);
    EXPECT_TRUE(main.isLoaded());
}

TEST_F(CommandNamesTest, OfTheProcessDialogs) {
    FrmAddEditProcess edit(person, base, services.settings, *host, &view(), process, nullptr);
    edit.load();
    expectRefused("FrmAddEditProcess::CmdOk_Click", edit.CmdOk);
    expectRefused("FrmAddEditProcess::CmdCancel_Click", edit.CmdCancel);
    expectRefused("FrmAddEditProcess::CmdBuildExpression_Click", edit.CmdBuildExpression);
    expectRefused("FrmAddEditProcess::RefreshNonMembers", edit.FrameMaterialClass.Cmdrefresh);
    expectRefused("Dialog::CmdHelp_Click", edit.CmdHelp);

    FrmAddExistingProcess members(person, idle, base, view(), main.VSFGProcessCaseResults, "71");
    members.load();
    expectRefused("FrmAddExistingProcess::CmdOk_Click", members.CmdOk);
    expectRefused("FrmAddExistingProcess::RefreshNonMembers", members.FrameProcesses.Cmdrefresh);

    FrmEditProcessMaterials materials(person, base, process);
    materials.load();
    expectRefused("FrmEditProcessMaterials::CmdOk_Click", materials.CmdOk);
    expectRefused("FrmEditProcessMaterials::RefreshNonMembers", materials.FrameMaterials.Cmdrefresh);
}

TEST_F(CommandNamesTest, OfTheOtherDialogs) {
    FrmFormatColumns columns(person, main.VSFGProcessCaseResults);
    columns.load();
    expectRefused("FrmFormatColumns::CmdApply_Click", columns.CmdApply);
    expectRefused("FrmFormatColumns::CmdOk_Click", columns.CmdOK);
    EXPECT_TRUE(columns.isLoaded());

    frmAddEditProcessTechStep step(services.forViews().steps, process);
    step.load();
    expectRefused("frmAddEditProcessTechStep::CmdOk_Click", step.CmdOk);
}

}  // namespace
}  // namespace pellmark::test
