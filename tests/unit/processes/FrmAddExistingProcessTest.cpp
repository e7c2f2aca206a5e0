#include "processes/FrmAddExistingProcess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/CaseHarness.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Script = std::function<void(FrmAddExistingProcess&)>;

class FrmAddExistingProcessTest : public testing::Test, protected CaseHarness {
  protected:
    FrmAddExistingProcessTest() {
        bore = base.addProcess("Bore", unit::kMetric);
        drill = base.addProcess("Drill", unit::kMetric);
        ream = base.addProcess("Ream", unit::kMetric);
        tap = base.addProcess("Tap", unit::kInch);
        featureCase = base.addFeatureCase(hole, {d8}, {drill});
    }
    void expectDialog(Script script) {
        desktop.expectDialog("FrmAddExistingProcess", [script](Form& dialog) {
            script(dynamic_cast<FrmAddExistingProcess&>(dialog));
        });
    }
    void run(Script script) {
        expectDialog(std::move(script));
        list().EditExistingProcesseswizard();
    }
    std::set<std::string> attached() { return base.tables().findFeatureCase(featureCase)->processes; }

    std::string bore, drill, ream, tap, featureCase;
};

TEST_F(FrmAddExistingProcessTest, OffersTheProcessesOfTheCasesUnitThatAreNotListed) {
    openCase({d8});
    run([&](FrmAddExistingProcess& dialog) {
        EXPECT_THAT(shown(dialog.FrameProcesses.LV1), ElementsAre("Bore", "Ream"));
        EXPECT_THAT(shown(dialog.FrameProcesses.LV2), ElementsAre("Drill"));
        EXPECT_EQ(dialog.FrameProcesses.LV2.item(0).key, drill);
        EXPECT_EQ(dialog.FrameProcesses.caption(), "Processes");
        dialog.CmdCancel.click();
    });
    EXPECT_THAT(changes(), IsEmpty());
    EXPECT_THAT(trace.lines(), IsEmpty());
}

TEST_F(FrmAddExistingProcessTest, HelpOpensItsContextOverTheDialog) {
    openCase({d8});
    run([&](FrmAddExistingProcess& dialog) {
        dialog.CmdHelp.click();
        ASSERT_EQ(help.opened.size(), 1U);
        EXPECT_EQ(help.opened[0].topic, "5000");
        EXPECT_EQ(help.opened[0].owner, dialog.handle());
        dialog.CmdCancel.click();
    });
}

TEST_F(FrmAddExistingProcessTest, ACaseOfNoUnitOffersTheProcessesOfBoth) {
    openCase({d8}, unit::kNone);
    run([&](FrmAddExistingProcess& dialog) {
        EXPECT_THAT(shown(dialog.FrameProcesses.LV1), ElementsAre("Bore", "Ream", "Tap"));
        dialog.CmdCancel.click();
    });
}

TEST_F(FrmAddExistingProcessTest, HeadingsAreLookedUp) {
    library.translations = {{"Nonmembers", "Fremde"},
                            {"Members", "Mitglieder"},
                            {"Processes", "Prozesse"},
                            {"Process Members", "Prozesse des Falls"}};
    openCase({d8});
    run([&](FrmAddExistingProcess& dialog) {
        EXPECT_EQ(dialog.caption(), "Prozesse des Falls");
        EXPECT_EQ(dialog.FrameProcesses.caption(), "Prozesse");
        EXPECT_EQ(dialog.FrameProcesses.LV1.columnHeaders().at(0).text, "Fremde");
        EXPECT_EQ(dialog.FrameProcesses.LV2.columnHeaders().at(0).text, "Mitglieder");
        dialog.CmdCancel.click();
    });
}

TEST_F(FrmAddExistingProcessTest, OkWithoutChangesAttachesNothingAndDetachesEveryCandidate) {
    openCase({d8});
    run([](FrmAddExistingProcess& dialog) { dialog.CmdOk.click(); });
    EXPECT_THAT(changes(),
                ElementsAre("detach " + featureCase + " " + bore, "detach " + featureCase + " " + ream));
    EXPECT_THAT(attached(), ElementsAre(drill));
}

TEST_F(FrmAddExistingProcessTest, NewMembersAreAttachedBeforeCandidatesAreDetached) {
    openCase({d8});
    run([](FrmAddExistingProcess& dialog) {
        dialog.FrameProcesses.LV1.select(1);
        dialog.FrameProcesses.CmdAddft.click();
        dialog.CmdOk.click();
    });
    EXPECT_THAT(changes(),
                ElementsAre("attach " + ream + " " + featureCase, "detach " + featureCase + " " + bore));
    EXPECT_EQ(list().grid().dataRows(), 2);
    EXPECT_EQ(list().SelectedProcessID(), drill) << "the process that was current stays selected";
}

TEST_F(FrmAddExistingProcessTest, AMemberMovedOutIsDetached) {
    openCase({d8});
    run([](FrmAddExistingProcess& dialog) {
        dialog.FrameProcesses.CmdremoveAllft.click();
        dialog.CmdOk.click();
    });
    EXPECT_THAT(attached(), IsEmpty());
    EXPECT_THAT(base.callsOf("attach"), IsEmpty());
    EXPECT_EQ(list().grid().dataRows(), 0);
}

TEST_F(FrmAddExistingProcessTest, AMemberMovedOutAndBackStaysAttachedAndIsNotSent) {
    openCase({d8});
    run([&](FrmAddExistingProcess& dialog) {
        dialog.FrameProcesses.CmdremoveAllft.click();
        const int index = dialog.FrameProcesses.LV1.indexOf(drill);
        dialog.FrameProcesses.LV1.select(index);
        dialog.FrameProcesses.CmdAddft.click();
        dialog.CmdOk.click();
    });
    EXPECT_THAT(base.callsOf("attach"), IsEmpty());
    EXPECT_THAT(attached(), ElementsAre(drill));
}

TEST_F(FrmAddExistingProcessTest, ACaseThatDoesNotExistYetIsCreatedOnOk) {
    openCase({d10, m8});
    run([](FrmAddExistingProcess& dialog) {
        dialog.FrameProcesses.LV1.select(0);
        dialog.FrameProcesses.CmdAddft.click();
        dialog.CmdOk.click();
    });
    const std::string created = base.tables().featureCases.back().id.text();
    auto made = changes();
    ASSERT_GE(made.size(), 4U);
    made.resize(4);
    EXPECT_THAT(made, ElementsAre("createFeatureCase " + hole, "addValue " + d10 + " " + created,
                                  "addValue " + m8 + " " + created, "attach " + bore + " " + created));
    EXPECT_EQ(list().SelectedProcessID(), bore);
}

TEST_F(FrmAddExistingProcessTest, CancelCreatesNoCase) {
    openCase({d10});
    run([](FrmAddExistingProcess& dialog) {
        dialog.FrameProcesses.CmdAddAllft.click();
        dialog.CmdCancel.click();
    });
    EXPECT_THAT(changes(), IsEmpty());
}

TEST_F(FrmAddExistingProcessTest, ACaseOfNoUnitThatExistsTakesNewMembers) {
    openCase({d8}, unit::kNone);
    run([](FrmAddExistingProcess& dialog) {
        dialog.FrameProcesses.CmdAddAllft.click();
        dialog.CmdOk.click();
    });
    EXPECT_THAT(base.callsOf("createFeatureCase"), IsEmpty());
    EXPECT_THAT(attached(), ElementsAre(bore, drill, ream, tap));
}

TEST_F(FrmAddExistingProcessTest, ACaseOfNoUnitIsNotCreatedAndTheUserIsToldWhatToDo) {
    openCase({d10}, unit::kNone);
    run([&](FrmAddExistingProcess& dialog) {
        dialog.FrameProcesses.CmdAddAllft.click();
        desktop.expectMessage("The feature case is not stored yet. Choose its unit first.");
        dialog.CmdOk.click();
        EXPECT_TRUE(dialog.isShown());
        dialog.CmdCancel.click();
    });
    EXPECT_THAT(changes(), IsEmpty());
    EXPECT_THAT(trace.lines().back(), testing::HasSubstr(" from Pellmark.FrmAddExistingProcess: "));
}

TEST_F(FrmAddExistingProcessTest, WithoutAFeatureTypeTheUserIsToldAndNothingOpens) {
    library.translations["No feature type is currently selected"] = "Kein Merkmalstyp";
    services.texts.setTitle("Verwaltung");
    mainForm().SetView(FRView::FRProcesscase);
    desktop.expectMessage("Kein Merkmalstyp");
    list().EditExistingProcesseswizard();
    EXPECT_EQ(desktop.messages().back().icon, MessageIcon::Critical);
    EXPECT_EQ(desktop.messages().back().title, "Norvex - Process Manager");
    EXPECT_THAT(desktop.windows(), IsEmpty());
}

TEST_F(FrmAddExistingProcessTest, AChosenTypeWithoutValuesOpensNothingEither) {
    openCase({});
    desktop.expectMessage("No feature type is currently selected");
    list().EditExistingProcesseswizard();
    EXPECT_THAT(desktop.windows(), IsEmpty());
}

TEST_F(FrmAddExistingProcessTest, InTheProcessesViewNothingOpens) {
    openProcesses();
    list().EditExistingProcesseswizard();
    EXPECT_THAT(desktop.windows(), IsEmpty());
}

TEST_F(FrmAddExistingProcessTest, TheRightIsAskedForBeforeAnythingElse) {
    base.allowed = {PermissionAdd, PermissionDelete};
    mainForm().SetView(FRView::FRProcesscase);
    desktop.expectMessage("You do not have permission to edit objects in the database!");
    list().EditExistingProcesseswizard();
    EXPECT_EQ(desktop.messages().size(), 1U);
}

TEST_F(FrmAddExistingProcessTest, AnAttachThatFailsHalfWayIsToldAndWhatWasDoneStaysDone) {
    openCase({d8});
    run([&](FrmAddExistingProcess& dialog) {
        dialog.FrameProcesses.CmdAddAllft.click();
        std::erase_if(base.tables().processes, [&](const auto& each) { return each.record.Id == ream; });
        desktop.expectMessage("The process " + ream + " does not exist.");
        dialog.CmdOk.click();
        EXPECT_TRUE(dialog.isShown());
        dialog.FrameProcesses.Cmdrefresh.click();
        dialog.CmdCancel.click();
    });
    EXPECT_THAT(attached(), ElementsAre(bore, drill));
    EXPECT_TRUE(trace.trapped("FrmAddExistingProcess::CmdOk_Click"));
}

TEST_F(FrmAddExistingProcessTest, ASecondOkDoesNotAttachAgainWhatIsAttached) {
    openCase({d8});
    base.throwOn("detach");
    run([&](FrmAddExistingProcess& dialog) {
        dialog.FrameProcesses.LV1.select(0);
        dialog.FrameProcesses.CmdAddft.click();
        desktop.expectMessage("The knowledge base failed on purpose.");
        dialog.CmdOk.click();
        base.stopThrowing();
        dialog.CmdOk.click();
    });
    EXPECT_EQ(base.callsOf("attach").size(), 1U);
}

TEST_F(FrmAddExistingProcessTest, ARefusedDetachIsTracedAndTheOthersAreHandled) {
    openCase({d8});
    base.refuse(bore);
    run([](FrmAddExistingProcess& dialog) { dialog.CmdOk.click(); });
    EXPECT_EQ(base.callsOf("detach").size(), 2U);
    EXPECT_TRUE(trace.trapped("FrmAddExistingProcess::CmdOk_Click"));
    EXPECT_THAT(desktop.messages(), IsEmpty());
}

TEST_F(FrmAddExistingProcessTest, CandidatesThatCannotBeReadOpenNoDialogButSayWhy) {
    openCase({d8});
    base.throwOn("processes");
    desktop.expectMessage("The knowledge base failed on purpose.");
    list().EditExistingProcesseswizard();
    EXPECT_THAT(desktop.windows(), IsEmpty());
    EXPECT_THAT(changes(), IsEmpty());
}

TEST_F(FrmAddExistingProcessTest, AListThatCouldNotBeFilledOpensNoDialogButSaysWhy) {
    base.throwOn("processesOfValues");
    openCase({d8});
    base.stopThrowing();
    desktop.expectMessage("The knowledge base failed on purpose.");
    list().EditExistingProcesseswizard();
    EXPECT_THAT(desktop.windows(), IsEmpty());
    EXPECT_THAT(changes(), IsEmpty());
}

TEST_F(FrmAddExistingProcessTest, RefreshShowsWhatTheStoreHoldsNow) {
    openCase({d8});
    run([&](FrmAddExistingProcess& dialog) {
        dialog.FrameProcesses.CmdAddAllft.click();
        base.addProcess("Mill", unit::kMetric);
        dialog.FrameProcesses.Cmdrefresh.click();
        EXPECT_THAT(shown(dialog.FrameProcesses.LV1), ElementsAre("Bore", "Mill", "Ream"));
        EXPECT_THAT(shown(dialog.FrameProcesses.LV2), ElementsAre("Drill"));
        dialog.CmdCancel.click();
    });
}

TEST_F(FrmAddExistingProcessTest, AMemberThatARefreshBroughtIsNotAttachedAgain) {
    openCase({d8});
    run([&](FrmAddExistingProcess& dialog) {
        base.processStore().attach(ream, featureCase);  // by somebody else
        dialog.FrameProcesses.Cmdrefresh.click();
        EXPECT_THAT(shown(dialog.FrameProcesses.LV2), ElementsAre("Drill", "Ream"));
        base.forgetCalls();
        dialog.CmdOk.click();
    });
    EXPECT_THAT(changes(), ElementsAre("detach " + featureCase + " " + bore));
}

TEST_F(FrmAddExistingProcessTest, WhatIsAttachedButNotListedIsAMemberAndStaysAttached) {
    base.processStore().attach(ream, featureCase);
    base.processStore().attach(tap, featureCase);  // of the other unit
    set("MaxProcessReturnNum", "1");
    openCase({d8});
    ASSERT_EQ(main.VSFGProcessCaseResults.dataRows(), 1);
    run([&](FrmAddExistingProcess& dialog) {
        EXPECT_THAT(shown(dialog.FrameProcesses.LV2), ElementsAre("Drill", "Ream", "Tap"));
        dialog.CmdOk.click();
    });
    EXPECT_EQ(attached(), (std::set<std::string>{drill, ream, tap}));
    EXPECT_THAT(base.callsOf("attach"), IsEmpty());
}

TEST_F(FrmAddExistingProcessTest, AProcessOfAnotherCaseThatIsNotListedIsNoMember) {
    base.addFeatureCase(hole, {d8, m8}, {ream});
    set("MaxProcessReturnNum", "1");
    openCase({d8});
    run([&](FrmAddExistingProcess& dialog) {
        EXPECT_THAT(shown(dialog.FrameProcesses.LV2), ElementsAre("Drill"));
        EXPECT_THAT(shown(dialog.FrameProcesses.LV1), ElementsAre("Bore", "Ream"));
        dialog.CmdCancel.click();
    });
}

TEST_F(FrmAddExistingProcessTest, WithAStyleThatListsNothingOkDetachesNobody) {
    set("ProcessListStyle", "7");
    openCase({d8});
    run([](FrmAddExistingProcess& dialog) { dialog.CmdOk.click(); });
    EXPECT_EQ(attached(), (std::set<std::string>{drill}));
}

TEST_F(FrmAddExistingProcessTest, AProcessListedThroughAnotherCaseStaysThereAndOkSaysSo) {
    const std::string wide = base.addFeatureCase(hole, {d8, m8}, {ream});
    openCase({d8});
    run([&](FrmAddExistingProcess& dialog) {
        EXPECT_THAT(shown(dialog.FrameProcesses.LV2), ElementsAre("Drill", "Ream"));
        dialog.FrameProcesses.CmdremoveAllft.click();
        desktop.expectMessage("These processes belong to another feature case and stay in the list:\r\nReam");
        dialog.CmdOk.click();
    });
    EXPECT_THAT(attached(), IsEmpty());
    EXPECT_EQ(base.tables().findFeatureCase(wide)->processes, (std::set<std::string>{ream}));
}

TEST_F(FrmAddExistingProcessTest, MovingOutOfACaseThatIsNotStoredIsToldAndTheDialogStays) {
    base.addFeatureCase(hole, {d8, m8}, {ream});
    openCase({m8}, unit::kNone);
    run([&](FrmAddExistingProcess& dialog) {
        dialog.FrameProcesses.CmdremoveAllft.click();
        desktop.expectMessage("The feature case is not stored yet. Choose its unit first.");
        dialog.CmdOk.click();
        EXPECT_TRUE(dialog.isShown());
        dialog.CmdCancel.click();
    });
}

TEST_F(FrmAddExistingProcessTest, OkPressedTwiceWhileTheStoreIsSlowIsCarriedOutOnce) {
    openCase({d8});
    run([&](FrmAddExistingProcess& dialog) {
        dialog.FrameProcesses.CmdAddAllft.click();
        base.tables().onCall = [&](const std::string&) { dialog.CmdOk.click(); };
        dialog.CmdOk.click();
        base.tables().onCall = nullptr;
    });
    EXPECT_EQ(base.callsOf("attach").size(), 2U);
}

TEST_F(FrmAddExistingProcessTest, AListThatCouldBeFilledAgainOpensTheDialog) {
    base.throwOn("processesOfValues");
    openCase({d8});
    base.stopThrowing();
    list().RefreshList("");
    run([](FrmAddExistingProcess& dialog) { dialog.CmdCancel.click(); });
}

}  // namespace
}  // namespace pellmark::test
