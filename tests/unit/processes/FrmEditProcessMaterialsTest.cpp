#include "processes/FrmEditProcessMaterials.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/CaseHarness.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Script = std::function<void(FrmEditProcessMaterials&)>;

class FrmEditProcessMaterialsTest : public testing::Test, protected CaseHarness {
  protected:
    FrmEditProcessMaterialsTest() {
        brass = base.addMaterial("Brass", metals);
        steel = base.addMaterial("Steel", metals);
        tin = base.addMaterial("Tin", metals);
        drill = base.addProcess("Drill");
        materials() = {steel};
    }
    std::set<std::string>& materials() { return base.tables().findProcess(drill)->materials; }
    void expectDialog(Script script) {
        desktop.expectDialog("FrmEditProcessMaterials", [script](Form& dialog) {
            script(dynamic_cast<FrmEditProcessMaterials&>(dialog));
        });
    }
    void run(Script script) {
        openProcesses();
        expectDialog(std::move(script));
        list().EditMaterialsWizard();
    }

    std::string brass, steel, tin, drill;
};

TEST_F(FrmEditProcessMaterialsTest, ShowsWhatTheProcessLacksAndWhatItHas) {
    run([&](FrmEditProcessMaterials& dialog) {
        EXPECT_THAT(shown(dialog.FrameMaterials.LV1), ElementsAre("Brass", "Tin"));
        EXPECT_THAT(shown(dialog.FrameMaterials.LV2), ElementsAre("Steel"));
        EXPECT_EQ(dialog.FrameMaterials.LV1.columnHeaders().at(0).text, "Nonmembers");
        EXPECT_EQ(dialog.FrameMaterials.LV2.columnHeaders().at(0).text, "Members");
        EXPECT_GT(dialog.FrameMaterials.LV1.columnHeaders().at(0).width, 2000);
        dialog.CmdCancel.click();
    });
    EXPECT_THAT(changes(), IsEmpty());
    EXPECT_THAT(trace.lines(), IsEmpty());
}

TEST_F(FrmEditProcessMaterialsTest, TheTitleSaysWhoseMaterialsTheyAre) {
    run([&](FrmEditProcessMaterials& dialog) {
        EXPECT_EQ(dialog.caption(), "Process Materials - Drill");
        dialog.CmdCancel.click();
    });
}

TEST_F(FrmEditProcessMaterialsTest, HelpOpensItsContextOverTheDialog) {
    run([&](FrmEditProcessMaterials& dialog) {
        dialog.CmdHelp.click();
        ASSERT_EQ(help.opened.size(), 1U);
        EXPECT_EQ(help.opened[0].topic, "5000");
        EXPECT_EQ(help.opened[0].owner, dialog.handle());
        dialog.CmdCancel.click();
    });
}

TEST_F(FrmEditProcessMaterialsTest, AProcessWithoutMaterialsOpensWithAllOfThemAsNonmembers) {
    materials() = {};
    run([&](FrmEditProcessMaterials& dialog) {
        EXPECT_THAT(shown(dialog.FrameMaterials.LV1), ElementsAre("Brass", "Steel", "Tin"));
        EXPECT_THAT(shown(dialog.FrameMaterials.LV2), IsEmpty());
        dialog.CmdCancel.click();
    });
}

TEST_F(FrmEditProcessMaterialsTest, OkWithoutMovingSendsEveryItemNonmembersFirstAndLeavesTheSet) {
    run([](FrmEditProcessMaterials& dialog) { dialog.CmdOk.click(); });
    EXPECT_THAT(changes(),
                ElementsAre("removeMaterial " + drill + " " + brass, "removeMaterial " + drill + " " + tin,
                            "addMaterial " + drill + " " + steel));
    EXPECT_THAT(materials(), ElementsAre(steel));
}

TEST_F(FrmEditProcessMaterialsTest, MovedMaterialsAreStored) {
    run([](FrmEditProcessMaterials& dialog) {
        dialog.FrameMaterials.CmdremoveAllft.click();
        dialog.FrameMaterials.LV1.select(0);
        dialog.FrameMaterials.CmdAddft.click();
        dialog.CmdOk.click();
    });
    EXPECT_THAT(materials(), ElementsAre(brass));
}

TEST_F(FrmEditProcessMaterialsTest, RefreshThrowsUnsavedMovesAway) {
    run([](FrmEditProcessMaterials& dialog) {
        dialog.FrameMaterials.CmdAddAllft.click();
        dialog.FrameMaterials.Cmdrefresh.click();
        EXPECT_THAT(shown(dialog.FrameMaterials.LV2), ElementsAre("Steel"));
        dialog.CmdCancel.click();
    });
}

TEST_F(FrmEditProcessMaterialsTest, AnEmptyListOpensNothing) {
    base.tables().processes.clear();
    openProcesses();
    list().EditMaterialsWizard();
    EXPECT_THAT(desktop.windows(), IsEmpty());
}

TEST_F(FrmEditProcessMaterialsTest, WithoutTheRightNothingOpens) {
    base.allowed = {PermissionAdd, PermissionDelete};
    openProcesses();
    desktop.expectMessage("You do not have permission to edit objects in the database!");
    list().EditMaterialsWizard();
    EXPECT_THAT(desktop.windows(), IsEmpty());
}

TEST_F(FrmEditProcessMaterialsTest, AFailureHalfWayIsToldAndWhatWasSentStaysSent) {
    run([&](FrmEditProcessMaterials& dialog) {
        dialog.FrameMaterials.CmdAddAllft.click();
        dialog.FrameMaterials.LV2.select(dialog.FrameMaterials.LV2.indexOf(steel));
        dialog.FrameMaterials.CmdRevomeft.click();
        base.throwOn("addMaterial", errors::kPermissionDenied, "The material list is locked.");
        desktop.expectMessage("The material list is locked.");
        dialog.CmdOk.click();
        EXPECT_TRUE(dialog.isShown());
        dialog.CmdCancel.click();
    });
    EXPECT_THAT(materials(), IsEmpty());
    EXPECT_EQ(desktop.messages().back().icon, MessageIcon::Critical);
    EXPECT_TRUE(trace.trapped("FrmEditProcessMaterials::CmdOk_Click"));
}

TEST_F(FrmEditProcessMaterialsTest, MaterialsThatCannotBeReadOpenNoDialogButSayWhy) {
    openProcesses();
    base.throwOn("materials");
    desktop.expectMessage("The knowledge base failed on purpose.");
    list().EditMaterialsWizard();
    EXPECT_THAT(desktop.windows(), testing::Not(testing::Contains("create FrmEditProcessMaterials")));
}

TEST_F(FrmEditProcessMaterialsTest, ARefreshThatFailsLeavesTheListsAsTheyAre) {
    run([&](FrmEditProcessMaterials& dialog) {
        base.throwOn("materials");
        desktop.expectMessage("The knowledge base failed on purpose.");
        dialog.FrameMaterials.Cmdrefresh.click();
        EXPECT_THAT(shown(dialog.FrameMaterials.LV1), ElementsAre("Brass", "Tin"));
        dialog.CmdCancel.click();
    });
}

}  // namespace
}  // namespace pellmark::test
