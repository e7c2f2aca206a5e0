#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/Application.h"
#include "host/FrmMain.h"
#include "processes/FrmAddEditProcess.h"
#include "support/PortsHarness.h"

namespace pellmark::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;
using testing::StartsWith;

/// A feature case of two values with one process that matches exactly and one that matches in part, and the
/// modal calls that pick and edit them.
class ApplicationPicksTest : public testing::Test, protected PortsHarness {
  protected:
    ApplicationPicksTest() {
        hole = base.addFeatureType("Hole", 3, "", unit::kMetric);
        const std::string diameter = base.addKey(hole, "Diameter");
        const std::string depth = base.addKey(hole, "Depth");
        m6 = base.addValue(diameter, "M6");
        m8 = base.addValue(diameter, "M8");
        deep = base.addValue(depth, "Deep");
        exact = base.addProcess("Tap M6");
        partial = base.addProcess("Drill");
        caseM6 = base.addFeatureCase(hole, {m6, deep}, {exact});
        base.addFeatureCase(hole, {deep}, {partial});
        description.featureTypeId = hole;
        description.valueIds = {m6, deep};
    }

    /// The main form's script: looks or works, then closes by the given button.
    auto closing(Button FrmMain::*button, std::function<void(FrmMain&)> first = {}) {
        return [button, first](Form& form) {
            auto& main = static_cast<FrmMain&>(form);
            if (first) first(main);
            (main.*button).click();
        };
    }
    static std::vector<std::string> listed(FrmMain& main) {
        std::vector<std::string> names;
        const Grid& grid = main.VSFGProcessCaseResults;
        for (int row = 1; row < grid.rows(); ++row)
            names.push_back(grid.text(row, field::kName));
        return names;
    }

    std::string hole, m6, m8, deep, exact, partial, caseM6;
    CaseDescription description;
    Application app{platform()};
};

TEST_F(ApplicationPicksTest, OpenProcessShowsTheCaseOverItsOwnerAndAnswersThePick) {
    std::vector<std::string> names;
    desktop.expectDialog("FrmMain", closing(&FrmMain::CmdOK, [&](FrmMain& main) {
                             names = listed(main);
                             EXPECT_TRUE(main.CmdOK.visible());
                             EXPECT_EQ(main.CmdCancel.caption(), "Cancel");
                             EXPECT_EQ(main.TabCtrl.index(), 1);
                         }));
    EXPECT_EQ(app.OpenProcess(host, 9, description), exact);
    EXPECT_THAT(names, ElementsAre("Tap M6", "Drill"));
    EXPECT_THAT(desktop.windows(), ElementsAre("create FrmMain", "modal FrmMain 9", "destroy FrmMain"));
    EXPECT_THAT(trace.lines(), testing::IsEmpty());
}

TEST_F(ApplicationPicksTest, OpenProcessSelectsTheNamedProcess) {
    description.processGuid = partial;
    desktop.expectDialog("FrmMain", closing(&FrmMain::CmdOK));
    EXPECT_EQ(app.OpenProcess(host, 9, description), partial);
}

TEST_F(ApplicationPicksTest, ACancelledOpenProcessAnswersNothing) {
    desktop.expectDialog("FrmMain", closing(&FrmMain::CmdOK));
    app.OpenProcess(host, 9, description);
    desktop.expectDialog("FrmMain", closing(&FrmMain::CmdCancel));
    EXPECT_EQ(app.OpenProcess(host, 9, description), "");
}

TEST_F(ApplicationPicksTest, TheCloseBoxIsCancel) {
    desktop.expectDialog("FrmMain", [](Form& form) { form.close(); });
    EXPECT_EQ(app.OpenProcess(host, 9, description), "");
}

TEST_F(ApplicationPicksTest, OpenFeatureCaseAnswersTheExactCase) {
    desktop.expectDialog("FrmMain", closing(&FrmMain::CmdOK));
    EXPECT_EQ(app.OpenFeatureCase(host, 9, description), caseM6);
    EXPECT_THAT(base.calls(), Not(Contains(StartsWith("createFeatureCase"))));
}

TEST_F(ApplicationPicksTest, TheHostsFeatureTypeAndValuesAreKeptThoughItsFiltersLeaveThemOut) {
    base.addNvxFeatureType(5, "Slots");
    const std::string turned = base.addPartType("Turned");
    const std::string prismatic = base.addPartType("Prismatic");
    const std::string slot = base.addFeatureType("Slot", 5, prismatic, unit::kInch);
    const std::string wide = base.addValue(base.addKey(slot, "Width"), "wide");
    const std::string ofSlot = base.addFeatureCase(slot, {wide}, {exact});
    description = {};
    description.featureTypeId = slot;
    description.valueIds = {wide};
    description.unit = unit::kMetric;
    description.partTypeId = turned;
    desktop.expectDialog("FrmMain", closing(&FrmMain::CmdOK, [](FrmMain& main) {
                             EXPECT_EQ(main.CmbFTUnit.selected()->text, "Metric");
                             EXPECT_EQ(main.CmbFTPartType.selected()->text, "Turned");
                         }));
    EXPECT_EQ(app.OpenFeatureCase(host, 9, description), ofSlot);
}

TEST_F(ApplicationPicksTest, OpenFeatureCaseCreatesAMissingCaseWithOneValueEach) {
    description.valueIds = {m8, deep};
    desktop.expectDialog("FrmMain", closing(&FrmMain::CmdOK));
    const std::string created = app.OpenFeatureCase(host, 9, description);
    EXPECT_NE(created, "");
    EXPECT_THAT(base.callsOf("addValue"),
                ElementsAre("addValue " + m8 + " " + created, "addValue " + deep + " " + created));
}

TEST_F(ApplicationPicksTest, OpenFeatureCaseWithoutAFeatureTypeAnswersNothing) {
    desktop.expectDialog("FrmMain", closing(&FrmMain::CmdOK));
    EXPECT_EQ(app.OpenFeatureCase(host, 9, {}), "");
}

TEST_F(ApplicationPicksTest, ACancelledOpenFeatureCaseAnswersTheLastConfirmedOne) {
    desktop.expectDialog("FrmMain", closing(&FrmMain::CmdCancel));
    EXPECT_EQ(app.OpenFeatureCase(host, 9, description), "");
    desktop.expectDialog("FrmMain", closing(&FrmMain::CmdOK));
    EXPECT_EQ(app.OpenFeatureCase(host, 9, description), caseM6);
    desktop.expectDialog("FrmMain", closing(&FrmMain::CmdCancel));
    EXPECT_EQ(app.OpenFeatureCase(host, 9, description), caseM6);
}

TEST_F(ApplicationPicksTest, AConfirmedPickOfAProcessForgetsTheCaseThatWasPickedBefore) {
    for (const auto call : {&Application::OpenFeatureCase, &Application::OpenProcess}) {
        desktop.expectDialog("FrmMain", closing(&FrmMain::CmdOK));
        EXPECT_NE((app.*call)(host, 9, description), "");
    }
    desktop.expectDialog("FrmMain", closing(&FrmMain::CmdCancel));
    EXPECT_EQ(app.OpenFeatureCase(host, 9, description), "");
}

TEST_F(ApplicationPicksTest, ACancelledPickOfACaseDoesNotMakeTheNextOkOneOfACase) {
    description.valueIds = {m8, deep};
    desktop.expectDialog("FrmMain", closing(&FrmMain::CmdCancel));
    app.OpenFeatureCase(host, 9, description);
    desktop.expectDialog("FrmMain", closing(&FrmMain::CmdOK));
    app.OpenProcess(host, 9, description);
    EXPECT_THAT(base.calls(), Not(Contains(StartsWith("createFeatureCase"))));
    EXPECT_EQ(app.ReturnFeatureCaseGuid, "");
}

TEST_F(ApplicationPicksTest, EditFeatureCaseOffersExitAlone) {
    desktop.expectDialog("FrmMain", closing(&FrmMain::CmdCancel, [](FrmMain& main) {
                             EXPECT_FALSE(main.CmdOK.visible());
                             EXPECT_EQ(main.CmdCancel.caption(), "Exit");
                         }));
    app.EditFeatureCase(host, 9, description);
}

TEST_F(ApplicationPicksTest, APickAfterAViewOffersOkAndCancelAgain) {
    for (const auto call : {&Application::OpenProcess, &Application::OpenFeatureCase}) {
        app.ShowWindowProcessesView(host, "");
        desktop.expectDialog("FrmMain", closing(&FrmMain::CmdCancel, [](FrmMain& main) {
                                 EXPECT_TRUE(main.CmdOK.visible());
                                 EXPECT_EQ(main.CmdCancel.caption(), "Cancel");
                             }));
        (app.*call)(host, 9, description);
    }
}

TEST_F(ApplicationPicksTest, EditProcessOpensTheEditorAndLeavesNoMainForm) {
    description.processGuid = exact;
    desktop.expectDialog("FrmAddEditProcess", [](Form& form) {
        auto& dialog = static_cast<FrmAddEditProcess&>(form);
        EXPECT_EQ(dialog.TxtName.text(), "Tap M6");
        dialog.TxtName.setText("Tap M6 fine");
        dialog.CmdOk.click();
    });
    app.EditProcess(host, 9, description);
    EXPECT_EQ(base.processStore().process(exact).Name, "Tap M6 fine");
    EXPECT_THAT(desktop.windows(),
                ElementsAre("create FrmMain", "create FrmAddEditProcess", "modal FrmAddEditProcess 9",
                            "destroy FrmAddEditProcess", "destroy FrmMain"));
}

TEST_F(ApplicationPicksTest, EditProcessNamesItselfInTheTitle) {
    library.translations["Norvex - Process Tech Loftwise"] = "Prozess";
    desktop.expectDialog("FrmAddEditProcess", [](Form& form) { form.close(); });
    app.EditProcess(host, 9, description);
    desktop.expectDialog("FrmMain", closing(&FrmMain::CmdCancel, [](FrmMain& main) {
                             EXPECT_EQ(main.caption(), "Norvex - Process Manager");
                         }));
    app.EditFeatureCase(host, 9, description);
}

TEST_F(ApplicationPicksTest, TheCaseViewIsEmbeddedWithItsDescription) {
    description.unit = unit::kMetric;
    description.nvxFeatureType = 3;
    description.processGuid = partial;
    base.addNvxFeatureType(3, "Threaded hole");
    app.ShowWindowProcessCaseView(host, description);
    EXPECT_THAT(desktop.windows(), ElementsAre("create FrmMain", "embed FrmMain 7"));
    desktop.expectDialog("FrmMain", closing(&FrmMain::CmdCancel, [](FrmMain& main) {
                             EXPECT_EQ(main.CmbFTUnit.selected()->text, "Metric");
                             EXPECT_EQ(main.CmbFTNvxFeatureType.selected()->text, "Threaded hole");
                         }));
    app.EditFeatureCase(host, 9, description);
}

TEST_F(ApplicationPicksTest, ASecondCallThatNamesNoProcessAndNoStepKeepsTheSelection) {
    base.addStep(partial, "Centre", 1);
    const std::string step = base.addStep(partial, "Deep", 2);
    description.processGuid = partial;
    description.processStepGuid = step;
    app.ShowWindowProcessCaseView(host, description);
    description.processGuid = "";
    description.processStepGuid = "";
    app.ShowWindowProcessCaseView(host, description);
    const auto& main = static_cast<FrmMain&>(*desktop.loaded("FrmMain"));
    EXPECT_EQ(main.VSFGProcessCaseResults.rowData(main.VSFGProcessCaseResults.row()), partial);
    EXPECT_EQ(main.VSFGProcessStep.rowData(main.VSFGProcessStep.row()), step);
}

TEST_F(ApplicationPicksTest, APickThatNamesNoProcessProposesTheBestMatchWhateverTheEmbeddedViewHasSelected) {
    description.processGuid = partial;
    app.ShowWindowProcessCaseView(host, description);
    description.processGuid = "";
    desktop.expectDialog("FrmMain", closing(&FrmMain::CmdOK));
    EXPECT_EQ(app.OpenProcess(host, 9, description), exact);
}

TEST_F(ApplicationPicksTest, AModalCallLetsTheEmbeddedViewComeBackAsItWas) {
    description.processGuid = partial;
    app.ShowWindowProcessCaseView(host, description);
    desktop.expectDialog("FrmMain", closing(&FrmMain::CmdOK));
    app.OpenProcess(host, 9, {});
    EXPECT_THAT(desktop.windows(),
                ElementsAre("create FrmMain", "embed FrmMain 7", "destroy FrmMain", "create FrmMain",
                            "modal FrmMain 9", "destroy FrmMain", "create FrmMain", "embed FrmMain 7"));
    auto& main = static_cast<FrmMain&>(*desktop.loaded("FrmMain"));
    EXPECT_THAT(listed(main), ElementsAre("Tap M6", "Drill"));
    EXPECT_EQ(main.VSFGProcessCaseResults.text(main.VSFGProcessCaseResults.row(), field::kId), partial);
    EXPECT_FALSE(main.CmdOK.visible());
}

TEST_F(ApplicationPicksTest, AnEmbeddedProcessesViewComesBackToo) {
    app.ShowWindowProcessesView(host, partial);
    desktop.expectDialog("FrmAddEditProcess", [](Form& form) { form.close(); });
    app.EditProcess(host, 9, description);
    EXPECT_EQ(desktop.windows().back(), "embed FrmMain 7");
}

TEST_F(ApplicationPicksTest, ACallFromWithinAnOpenDialogIsRefusedAndTraced) {
    desktop.expectDialog("FrmMain", closing(&FrmMain::CmdOK, [&](FrmMain&) {
                             app.ShowWindowProcessesView(host, "");
                             EXPECT_EQ(app.OpenFeatureCase(host, 9, description), "");
                         }));
    EXPECT_EQ(app.OpenProcess(host, 9, description), exact);
    EXPECT_TRUE(trace.trapped("Application::ShowWindowProcessesView"));
}

TEST_F(ApplicationPicksTest, ACaseThatCannotBeCreatedIsToldAndAnswersNoEarlierPick) {
    desktop.expectDialog("FrmMain", closing(&FrmMain::CmdOK));
    ASSERT_EQ(app.OpenFeatureCase(host, 9, description), caseM6);
    description.valueIds = {m8, deep};
    base.throwOn("createFeatureCase");
    desktop.expectDialog("FrmMain", closing(&FrmMain::CmdOK, [&](FrmMain&) {
                             desktop.expectMessage("The knowledge base failed on purpose.");
                         }));
    EXPECT_EQ(app.OpenFeatureCase(host, 9, description), "");
    EXPECT_EQ(desktop.windows().back(), "destroy FrmMain");
    EXPECT_TRUE(trace.trapped("FrmMain::CmdOk_Click"));
}

TEST_F(ApplicationPicksTest, ACaseWhoseValuesFailedHalfWayIsCompletedByTheNextOk) {
    description.valueIds = {m8, deep};
    base.throwOn("addValue");
    const auto okThatFails = closing(
        &FrmMain::CmdOK, [&](FrmMain&) { desktop.expectMessage("The knowledge base failed on purpose."); });
    desktop.expectDialog("FrmMain", okThatFails);
    EXPECT_EQ(app.OpenFeatureCase(host, 9, description), "");
    base.stopThrowing();
    desktop.expectDialog("FrmMain", closing(&FrmMain::CmdOK));
    const std::string completed = app.OpenFeatureCase(host, 9, description);
    EXPECT_EQ(base.callsOf("createFeatureCase").size(), 1U);
    EXPECT_EQ(base.tables().findFeatureCase(completed)->values, (std::set<std::string>{m8, deep}));
}

TEST_F(ApplicationPicksTest, AnotherCaseThanTheHalfMadeOneIsMadeAnew) {
    description.valueIds = {m8, deep};
    base.throwOn("addValue");
    desktop.expectDialog("FrmMain", closing(&FrmMain::CmdOK, [&](FrmMain&) {
                             desktop.expectMessage("The knowledge base failed on purpose.");
                         }));
    app.OpenFeatureCase(host, 9, description);
    base.stopThrowing();
    description.valueIds = {m8};
    desktop.expectDialog("FrmMain", closing(&FrmMain::CmdOK));
    app.OpenFeatureCase(host, 9, description);
    EXPECT_EQ(base.callsOf("createFeatureCase").size(), 2U);
}

TEST_F(ApplicationPicksTest, WithoutTheRightToAddNoCaseIsMade) {
    description.valueIds = {m8, deep};
    base.allowed = {PermissionEdit};
    desktop.expectDialog(
        "FrmMain", closing(&FrmMain::CmdOK, [&](FrmMain&) {
            desktop.expectMessage("You do not have permission to add new objects to the database!");
        }));
    EXPECT_EQ(app.OpenFeatureCase(host, 9, description), "");
    EXPECT_THAT(base.calls(), Not(Contains(StartsWith("createFeatureCase"))));
}

TEST_F(ApplicationPicksTest, AChosenTypeWithoutValuesIsACaseForOkAndForANewProcess) {
    description.valueIds = {};
    std::string created;
    desktop.expectDialog("FrmMain", closing(&FrmMain::CmdOK));
    created = app.OpenFeatureCase(host, 9, description);
    EXPECT_NE(created, "");
    desktop.expectDialog("FrmAddEditProcess",
                         [](Form& form) { static_cast<FrmAddEditProcess&>(form).CmdOk.click(); });
    app.EditProcess(host, 9, description);
    EXPECT_EQ(base.tables().findFeatureCase(created)->processes.size(), 1U);
}

TEST_F(ApplicationPicksTest, TheEditorsOkChecksTheRightToEditOrToAdd) {
    base.allowed = {};
    const auto okThenCancel = [this](const char* message) {
        desktop.expectDialog("FrmAddEditProcess", [this, message](Form& form) {
            auto& dialog = static_cast<FrmAddEditProcess&>(form);
            desktop.expectMessage(message);
            dialog.CmdOk.click();
            EXPECT_TRUE(dialog.isShown());
            dialog.CmdCancel.click();
        });
    };
    okThenCancel("You do not have permission to add new objects to the database!");
    app.EditProcess(host, 9, description);
    description.processGuid = exact;
    okThenCancel("You do not have permission to edit objects in the database!");
    app.EditProcess(host, 9, description);
    EXPECT_THAT(base.callsOf("updateProcess"), testing::IsEmpty());
    EXPECT_THAT(base.callsOf("addProcess"), testing::IsEmpty());
}

TEST_F(ApplicationPicksTest, AViewSpeaksTheLanguageOfTheLastCall) {
    app.ShowWindowProcessCaseView(host, description);
    library.translations = {{"Filters", "Filter"},   {"Process Case", "Prozessfall"},
                            {"Name", "Bezeichnung"}, {"Any", "Alle"},
                            {"Exit", "Ende"},        {"Norvex - Process Manager", "Verwaltung"}};
    app.ShowWindowProcessCaseView(host, description);
    const auto& main = static_cast<FrmMain&>(*desktop.loaded("FrmMain"));
    EXPECT_EQ(main.caption(), "Verwaltung");
    EXPECT_EQ(main.FrameFilters.caption(), "Filter");
    EXPECT_EQ(main.SizerProcessCase.caption(), "Prozessfall");
    EXPECT_EQ(main.VSFGProcessCaseResults.heading(2), "Bezeichnung");
    EXPECT_EQ(main.CmbFTUnit.items().front().text, "Alle");
    EXPECT_EQ(main.CmdCancel.caption(), "Ende");
}

TEST_F(ApplicationPicksTest, AfterAModalCallTheViewHasItsTitleAgain) {
    library.translations["Norvex - Process Tech Loftwise"] = "Prozess";
    app.ShowWindowProcessCaseView(host, description);
    desktop.expectDialog("FrmAddEditProcess", [](Form& form) { form.close(); });
    app.EditProcess(host, 9, description);
    EXPECT_EQ(desktop.loaded("FrmMain")->caption(), "Norvex - Process Manager");
}

TEST_F(ApplicationPicksTest, ANewProcessIsAddedOnceThoughOkIsPressedTwiceOnASlowStore) {
    desktop.expectDialog("FrmAddEditProcess", [this](Form& form) {
        auto& dialog = static_cast<FrmAddEditProcess&>(form);
        base.tables().onCall = [&](const std::string&) { dialog.CmdOk.click(); };
        dialog.CmdOk.click();
        base.tables().onCall = nullptr;
    });
    app.EditProcess(host, 9, description);
    EXPECT_EQ(base.callsOf("addProcess").size(), 1U);
}

TEST_F(ApplicationPicksTest, AViewWhoseWindowWentWithTheHostsIsNotBroughtBack) {
    app.ShowWindowProcessCaseView(host, description);
    desktop.hostWindowsGone = true;
    desktop.expectDialog("FrmMain", closing(&FrmMain::CmdOK));
    EXPECT_EQ(app.OpenProcess(host, 9, description), exact);
    EXPECT_THAT(desktop.windows(),
                ElementsAre("create FrmMain", StartsWith("embed FrmMain"), "destroy FrmMain",
                            "create FrmMain", "modal FrmMain 9", "destroy FrmMain"));
}

}  // namespace
}  // namespace pellmark::test
