#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "processes/FrmAddExistingProcess.h"
#include "support/CaseHarness.h"
#include "util/FrmProgress.h"

namespace pellmark::test {
namespace {

constexpr const char* kQuestion = "Permanently delete selected item(s) from the database?";

/// What takes long shows how far it is, and can be ended.
class ManyProcessesTest : public testing::Test, protected CaseHarness {
  protected:
    void addProcesses(int count) {
        for (int i = 0; i < count; ++i)
            base.addProcess("Process " + std::to_string(i));
    }
    void expectProgress(const std::string& what, bool cancel) {
        desktop.expectDialog("FrmProgress", [what, cancel](Form& shown) {
            auto& progress = dynamic_cast<FrmProgress&>(shown);
            EXPECT_EQ(progress.LblWhat.caption(), what);
            if (cancel) progress.CmdCancel.click();
        });
    }
    void deleteAll() {
        openProcesses();
        list().grid().selectAll();
        desktop.expectMessage(kQuestion);
    }
    /// Opens the dialog, makes every candidate a member, and presses OK as often as it takes.
    void attachAll(int presses) {
        desktop.expectDialog("FrmAddExistingProcess", [this, presses](Form& shown) {
            auto& dialog = dynamic_cast<FrmAddExistingProcess&>(shown);
            dialog.FrameProcesses.CmdAddAllft.click();
            for (int press = 1; press <= presses; ++press) {
                expectProgress("The processes of the feature case are being stored", press < presses);
                dialog.CmdOk.click();
                EXPECT_EQ(dialog.isShown(), press < presses);
            }
        });
        list().EditExistingProcesseswizard();
    }
};

TEST_F(ManyProcessesTest, FewDeletionsShowNoProgress) {
    addProcesses(199);
    deleteAll();
    list().Delete();
    EXPECT_TRUE(base.tables().processes.empty());
    EXPECT_EQ(list().grid().dataRows(), 0);
}

TEST_F(ManyProcessesTest, ManyDeletionsShowHowFarTheyAre) {
    addProcesses(200);
    deleteAll();
    expectProgress("Processes are being removed", false);
    list().Delete();
    EXPECT_TRUE(base.tables().processes.empty());
    EXPECT_EQ(list().grid().dataRows(), 0);
    EXPECT_EQ(idle.yields, 10);
}

TEST_F(ManyProcessesTest, ManyDeletionsCanBeEndedAndTheListShowsWhatIsLeft) {
    addProcesses(200);
    deleteAll();
    expectProgress("Processes are being removed", true);
    list().Delete();
    EXPECT_EQ(base.tables().processes.size(), 200U) << "ended before the first";
    EXPECT_EQ(list().grid().dataRows(), 200);
    EXPECT_TRUE(trace.lines().empty());
}

TEST_F(ManyProcessesTest, ManyProcessesAreAttachedWithProgressAndWhoEndsItCanGoOn) {
    addProcesses(250);
    const std::string id = base.addFeatureCase(hole, {d8});
    openCase({d8});
    attachAll(2);
    EXPECT_EQ(base.tables().findFeatureCase(id)->processes.size(), 250U);
    EXPECT_TRUE(trace.lines().empty());
}

}  // namespace
}  // namespace pellmark::test
