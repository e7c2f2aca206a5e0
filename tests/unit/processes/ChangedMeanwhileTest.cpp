#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "processes/FrmAddExistingProcess.h"
#include "processes/FrmEditProcessMaterials.h"
#include "support/ProcessDialogFixture.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kTold =
    "Somebody else has changed this meanwhile. Their changes are shown beside yours now, and nothing has "
    "been stored yet. Check them, and choose OK again.";

/// Two people at the same time: what one stores while the other has the dialog open.
class ChangedMeanwhileTest : public ProcessDialogFixture {
  protected:
    ProcessRecord& other() { return base.tables().findProcess(drill)->record; }
    std::set<std::string>& materials() { return base.tables().findProcess(drill)->materials; }
};

TEST_F(ChangedMeanwhileTest, TheFieldsThatOnlyTheOtherHasChangedAreTakenOverAndToldBeforeAnythingIsStored) {
    edit([&](FrmAddEditProcess& dialog) {
        dialog.TxtRule.setText("Depth < 9");
        other().Name = "Drill deep";
        other().Unit = unit::kMetric;
        other().Description = "long holes";
        desktop.expectMessage(kTold);
        dialog.CmdOk.click();
        EXPECT_TRUE(dialog.isShown());
        EXPECT_THAT(changes(), IsEmpty());
        EXPECT_EQ(dialog.TxtName.text(), "Drill deep");
        EXPECT_EQ(dialog.CmbUnit.selected()->text, "Metric");
        EXPECT_EQ(dialog.TxtDescription.text(), "long holes");
        EXPECT_EQ(dialog.TxtRule.text(), "Depth < 9");
        dialog.CmdOk.click();
        EXPECT_FALSE(dialog.isShown());
    });
    EXPECT_EQ(stored(drill), (ProcessRecord{drill, "Drill deep", unit::kMetric, "long holes", "Depth < 9"}));
    EXPECT_EQ(desktop.messages().back().icon, MessageIcon::Information);
    EXPECT_THAT(trace.lines(), IsEmpty());
}

TEST_F(ChangedMeanwhileTest, WhereBothHaveChangedAFieldTheirsIsToldAndTheSecondOkDecides) {
    edit([&](FrmAddEditProcess& dialog) {
        dialog.TxtName.setText("mine");
        dialog.TxtDescription.setText("also mine");
        other().Name = "theirs";
        other().Description = "several\nlines";
        desktop.expectMessage(std::string(kTold) +
                              "\r\n\r\nYours stays where both have changed it. Theirs is:"
                              "\r\nName: theirs\r\nDescription: several lines");
        dialog.CmdOk.click();
        EXPECT_EQ(dialog.TxtName.text(), "mine");
        dialog.CmdOk.click();
    });
    EXPECT_EQ(stored(drill).Name, "mine");
    EXPECT_EQ(stored(drill).Description, "also mine");
}

TEST_F(ChangedMeanwhileTest, AChangeOfTheOtherAfterTheFirstTellingIsToldAgain) {
    edit([&](FrmAddEditProcess& dialog) {
        dialog.TxtRule.setText("Depth < 9");
        for (const char* name : {"second", "third"}) {
            other().Name = name;
            desktop.expectMessage(kTold);
            dialog.CmdOk.click();
            EXPECT_EQ(dialog.TxtName.text(), name);
        }
        dialog.CmdOk.click();
    });
    EXPECT_EQ(stored(drill).Name, "third");
}

TEST_F(ChangedMeanwhileTest, WhereBothHaveMadeTheSameChangeNothingIsTold) {
    edit([&](FrmAddEditProcess& dialog) {
        dialog.TxtName.setText("Drill deep");
        other().Name = "Drill deep";
        dialog.CmdOk.click();
        EXPECT_FALSE(dialog.isShown());
    });
    EXPECT_EQ(stored(drill).Name, "Drill deep");
}

TEST_F(ChangedMeanwhileTest, MaterialsThatTheOtherHasAddedOrRemovedStaySo) {
    edit([&](FrmAddEditProcess& dialog) {
        MemberLists& lists = dialog.FrameMaterialClass;
        lists.LV1.select(lists.LV1.indexOf(brass));
        lists.CmdAddft.click();
        materials() = {tin};
        desktop.expectMessage(kTold);
        dialog.CmdOk.click();
        EXPECT_THAT(shown(lists.LV2), ElementsAre("Brass", "Tin"));
        EXPECT_THAT(shown(lists.LV1), ElementsAre("Steel"));
        dialog.CmdOk.click();
    });
    EXPECT_THAT(materials(), testing::UnorderedElementsAre(brass, tin));
}

TEST_F(ChangedMeanwhileTest, WhatWasTakenOverIsNoChangeToBeDiscarded) {
    edit([&](FrmAddEditProcess& dialog) {
        other().Name = "Drill deep";
        materials() = {tin};
        desktop.expectMessage(kTold);
        dialog.CmdOk.click();
        dialog.CmdCancel.click();
        EXPECT_FALSE(dialog.isShown());
    });
    EXPECT_EQ(stored(drill).Name, "Drill deep");
}

TEST_F(ChangedMeanwhileTest, AnOkThatFailedHalfWayIsNotTakenForSomebodyElses) {
    edit([&](FrmAddEditProcess& dialog) {
        dialog.TxtName.setText("Drill deep");
        dialog.FrameMaterialClass.CmdAddAllft.click();
        base.throwOn("removeMaterial");
        dialog.FrameMaterialClass.LV2.select(dialog.FrameMaterialClass.LV2.indexOf(steel));
        dialog.FrameMaterialClass.CmdRevomeft.click();
        desktop.expectMessage("The knowledge base failed on purpose.");
        dialog.CmdOk.click();
        base.stopThrowing();
        dialog.TxtName.setText("Drill deeper");
        dialog.CmdOk.click();
        EXPECT_FALSE(dialog.isShown());
    });
    EXPECT_EQ(stored(drill).Name, "Drill deeper");
    EXPECT_THAT(materials(), testing::UnorderedElementsAre(brass, tin));
}

TEST_F(ChangedMeanwhileTest, ANewProcessWhoseAttachingFailedIsNotTakenForSomebodyElses) {
    base.addFeatureCase(hole, {d8});
    openCase({d8});
    addNew([&](FrmAddEditProcess& dialog) {
        base.throwOn("attach");
        desktop.expectMessage("The knowledge base failed on purpose.");
        dialog.CmdOk.click();
        base.stopThrowing();
        dialog.TxtName.setText("Ream");
        dialog.CmdOk.click();
        EXPECT_FALSE(dialog.isShown());
    });
    EXPECT_EQ(stored(added()).Name, "Ream");
}

TEST_F(ChangedMeanwhileTest, WhatCannotBeReadAtOkIsToldAndNothingIsStored) {
    edit([&](FrmAddEditProcess& dialog) {
        dialog.TxtName.setText("mine");
        base.throwOn("materialsOf");
        desktop.expectMessage("The knowledge base failed on purpose.");
        dialog.CmdOk.click();
        EXPECT_EQ(dialog.TxtName.text(), "mine");
        EXPECT_THAT(changes(), IsEmpty());
        base.stopThrowing();
        dialog.CmdOk.click();
    });
    EXPECT_EQ(stored(drill).Name, "mine");
}

TEST_F(ChangedMeanwhileTest, TheMaterialsDialogTakesTheChangesOfTheOtherOver) {
    openProcesses();
    desktop.expectDialog("FrmEditProcessMaterials", [&](Form& shownForm) {
        auto& dialog = dynamic_cast<FrmEditProcessMaterials&>(shownForm);
        MemberLists& lists = dialog.FrameMaterials;
        lists.CmdremoveAllft.click();
        materials() = {steel, tin};
        desktop.expectMessage(kTold);
        dialog.CmdOk.click();
        EXPECT_THAT(shown(lists.LV2), ElementsAre("Tin"));
        EXPECT_THAT(changes(), IsEmpty());
        dialog.CmdOk.click();
        EXPECT_FALSE(dialog.isShown());
    });
    list().EditMaterialsWizard();
    EXPECT_THAT(materials(), ElementsAre(tin));
}

/// Two people who set the members of one feature case.
class AttachedMeanwhileTest : public ProcessDialogFixture {
  protected:
    AttachedMeanwhileTest() {
        bore = base.addProcess("Bore", unit::kMetric);
        mill = base.addProcess("Mill", unit::kMetric);
        ream = base.addProcess("Ream", unit::kMetric);
        featureCase = base.addFeatureCase(hole, {d8}, {bore});
    }
    std::set<std::string>& attached() { return base.tables().findFeatureCase(featureCase)->processes; }
    void attach(const std::function<void(FrmAddExistingProcess&)>& script) {
        desktop.expectDialog("FrmAddExistingProcess", [script](Form& dialog) {
            script(dynamic_cast<FrmAddExistingProcess&>(dialog));
        });
        list().EditExistingProcesseswizard();
    }
    static void move(ListView& from, Button& button, const std::string& id) {
        from.select(from.indexOf(id));
        button.click();
    }

    std::string bore, mill, ream, featureCase;
};

TEST_F(AttachedMeanwhileTest, WhatTheOtherHasAttachedStaysAttached) {
    openCase({d8});
    attach([&](FrmAddExistingProcess& dialog) {
        MemberLists& lists = dialog.FrameProcesses;
        move(lists.LV1, lists.CmdAddft, ream);
        attached().insert(mill);
        desktop.expectMessage(kTold);
        dialog.CmdOk.click();
        EXPECT_THAT(changes(), IsEmpty());
        EXPECT_THAT(shown(lists.LV2), testing::UnorderedElementsAre("Bore", "Mill", "Ream"));
        dialog.CmdOk.click();
        EXPECT_FALSE(dialog.isShown());
    });
    EXPECT_THAT(attached(), testing::UnorderedElementsAre(bore, mill, ream));
    EXPECT_THAT(base.callsOf("attach"), ElementsAre("attach " + ream + " " + featureCase));
}

TEST_F(AttachedMeanwhileTest, WhatTheOtherHasDetachedStaysDetached) {
    attached().insert(mill);
    openCase({d8});
    attach([&](FrmAddExistingProcess& dialog) {
        MemberLists& lists = dialog.FrameProcesses;
        move(lists.LV2, lists.CmdRevomeft, mill);
        attached().erase(bore);
        desktop.expectMessage(kTold);
        dialog.CmdOk.click();
        EXPECT_THAT(shown(lists.LV2), IsEmpty());
        dialog.CmdOk.click();
    });
    EXPECT_THAT(attached(), IsEmpty());
    EXPECT_THAT(base.callsOf("attach"), IsEmpty());
}

TEST_F(AttachedMeanwhileTest, ACaseThatTheOtherHasMadeMeanwhileIsTheOneThatIsMeant) {
    openCase({d10});
    attach([&](FrmAddExistingProcess& dialog) {
        MemberLists& lists = dialog.FrameProcesses;
        move(lists.LV1, lists.CmdAddft, ream);
        featureCase = base.addFeatureCase(hole, {d10}, {mill});
        desktop.expectMessage(kTold);
        dialog.CmdOk.click();
        dialog.CmdOk.click();
    });
    EXPECT_THAT(base.callsOf("createFeatureCase"), IsEmpty());
    EXPECT_THAT(attached(), testing::UnorderedElementsAre(mill, ream));
}

TEST_F(AttachedMeanwhileTest, AnOkThatFailedHalfWayIsNotTakenForSomebodyElses) {
    openCase({d8});
    attach([&](FrmAddExistingProcess& dialog) {
        MemberLists& lists = dialog.FrameProcesses;
        move(lists.LV1, lists.CmdAddft, ream);
        base.throwOn("detach");
        desktop.expectMessage("The knowledge base failed on purpose.");
        dialog.CmdOk.click();
        base.stopThrowing();
        move(lists.LV1, lists.CmdAddft, mill);
        dialog.CmdOk.click();
        EXPECT_FALSE(dialog.isShown());
    });
    EXPECT_THAT(attached(), testing::UnorderedElementsAre(bore, mill, ream));
}

}  // namespace
}  // namespace pellmark::test
