#include "host/FrmMain.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "featurecases/cFeatureCase.h"
#include "processes/cProcess.h"
#include "support/PortsHarness.h"

namespace pellmark::test {
namespace {

class FrmMainTest : public testing::Test, protected ServicesHarness {
  protected:
    FrmMain main{services.forViews()};
};

TEST_F(FrmMainTest, LoadingCaptionsTheTabs) {
    library.translations["Processes"] = "Prozesse";
    main.load();
    EXPECT_EQ(main.TabProcesses.caption(), "Prozesse");
    EXPECT_EQ(main.SizerProcessCase.caption(), "Process Case");
}

TEST_F(FrmMainTest, EveryCaptionIsLookedUpUnderItsEnglishText) {
    const std::pair<const Control*, const char*> captions[] = {
        {&main.TabProcesses, "Processes"},
        {&main.SizerProcessCase, "Process Case"},
        {&main.FrameFilters, "Filters"},
        {&main.SplitFilters, "Bar below the filters"},
        {&main.SplitSteps, "Bar between processes and steps"},
        {&main.SplitStepsBeside, "Bar between processes and steps"},
        {&main.FrameFeatureTypeFilters, "Feature Case Filters"},
        {&main.LblUnit, "Unit"},
        {&main.LblpartType, "Part Type"},
        {&main.LblNvxFeatureType, "Norvex Feature Type"},
        {&main.FrameProcessFilters, "Process Filters"},
        {&main.Label2, "Unit"},
        {&main.LblPartMaterial, "Part Material Class"},
        {&main.FrameProcessCase, "Feature Case"},
        {&main.FrameProcessCaseResults, "Processes"},
        {&main.FrameProcessStep, "Process Steps"},
        {&main.CmdOK, "OK"},
        {&main.CmdHelp, "Help"}};
    for (const auto& [control, english] : captions)
        library.translations[english] = std::string("t ") + english;
    main.load();
    for (const auto& [control, english] : captions)
        EXPECT_EQ(control->caption(), std::string("t ") + english) << control->name();
}

TEST_F(FrmMainTest, TheProcessesOfACaseHaveTheFocusAtFirst) {
    main.SetView(FRView::FRProcesscase);
    EXPECT_EQ(main.focused(), &main.VSFGProcessCaseResults);
}

TEST_F(FrmMainTest, TheListOfAllProcessesHasTheFocusAtFirst) {
    main.SetView(FRView::FRProcesses);
    EXPECT_EQ(main.focused(), &main.VSFGAllProcesses);
    main.SetView(FRView::FRProcesscase);
    main.TabCtrl.click(0);
    EXPECT_EQ(main.focused(), &main.VSFGAllProcesses);
}

TEST_F(FrmMainTest, AHostsSwitchMovesTheTabsAndBuildsTheView) {
    main.SetView(FRView::FRProcesscase);
    EXPECT_EQ(main.TabCtrl.index(), 1);
    EXPECT_NE(main.caseView(), nullptr);
    EXPECT_EQ(&main.processes()->grid(), &main.VSFGProcessCaseResults);
    main.SetView(FRView::FRProcesses);
    EXPECT_EQ(main.TabCtrl.index(), 0);
    EXPECT_EQ(main.caseView(), nullptr);
    EXPECT_EQ(&main.processes()->grid(), &main.VSFGAllProcesses);
}

TEST_F(FrmMainTest, AClickOnATabRebuildsTheViewWithoutMovingTheTabAgain) {
    base.addProcess("a");
    main.SetView(FRView::FRProcesscase);
    int moves = 0;
    const auto moved = main.TabCtrl.indexChanged.subscribe([&] { ++moves; });
    main.TabCtrl.click(0);
    EXPECT_EQ(moves, 1);
    EXPECT_EQ(main.VSFGAllProcesses.rows(), 2);
    EXPECT_EQ(main.view(), FRView::FRProcesses);
    main.SetView(FRView::FRProcesscase);
    EXPECT_EQ(main.TabCtrl.index(), 1) << "the next switch is the host's again";
}

TEST_F(FrmMainTest, AnotherTabIndexChangesNothing) {
    main.SetView(FRView::FRProcesses);
    const cProcess* const list = main.processes();
    base.forgetCalls();
    for (const int index : {-1, 2, 7})
        main.TabCtrl.clicked.raise(index);
    EXPECT_EQ(main.view(), FRView::FRProcesses);
    EXPECT_EQ(main.processes(), list);
    EXPECT_THAT(base.calls(), testing::IsEmpty());
    EXPECT_THAT(trace.lines(), testing::IsEmpty());
}

TEST_F(FrmMainTest, OkReadsAndClearsThatACaseIsPicked) {
    main.SetView(FRView::FRProcesscase);
    main.load();
    main.FeatureCasePick = true;
    main.CmdOK.click();
    EXPECT_FALSE(main.FeatureCasePick);
    EXPECT_EQ(main.picked()->featureCaseId, "") << "no feature type is chosen";
    main.load();
    main.FeatureCasePick = true;
    main.CmdCancel.click();
    EXPECT_TRUE(main.FeatureCasePick) << "only OK reads it";
}

TEST_F(FrmMainTest, TheStepGridStandsReadyWithItsColumns) {
    main.SetView(FRView::FRProcesscase);
    std::vector<std::string> shown;
    for (int col = 0; col < main.VSFGProcessStep.cols(); ++col) {
        if (!main.VSFGProcessStep.colHidden(col)) shown.push_back(main.VSFGProcessStep.heading(col));
    }
    EXPECT_THAT(shown, testing::ElementsAre("", "Name", "Cutting Cycle"));
    EXPECT_EQ(main.VSFGProcessStep.colKey(0), "FixedRow");
}

TEST_F(FrmMainTest, OkWithoutASelectionAnswersAnEmptyProcess) {
    main.SetView(FRView::FRProcesses);
    main.load();
    main.CmdOK.click();
    ASSERT_TRUE(main.picked());
    EXPECT_EQ(main.picked()->processId, "");
    EXPECT_EQ(main.picked()->featureCaseId, "");
    EXPECT_FALSE(main.isLoaded());
}

TEST_F(FrmMainTest, CancelUnloadsAndWritesNothing) {
    main.load();
    main.CmdCancel.click();
    EXPECT_FALSE(main.picked());
    EXPECT_FALSE(main.isLoaded());
}

TEST_F(FrmMainTest, HelpOpensItsContextOverTheForm) {
    services.take(host);
    main.load();
    ASSERT_EQ(main.helpButton(), &main.CmdHelp);
    main.CmdHelp.click();
    ASSERT_EQ(help.opened.size(), 1U);
    EXPECT_EQ(help.opened[0].topic, "5000");
    EXPECT_EQ(help.opened[0].owner, main.handle());
}

TEST_F(FrmMainTest, TheEnteredGridLooksActiveAndTheOtherDoesNot) {
    main.VSFGProcessStep.entered.raise();
    EXPECT_TRUE(main.VSFGProcessStep.activeLook());
    EXPECT_FALSE(main.VSFGProcessCaseResults.activeLook());
    main.VSFGProcessCaseResults.entered.raise();
    EXPECT_TRUE(main.VSFGProcessCaseResults.activeLook());
    EXPECT_FALSE(main.VSFGProcessStep.activeLook());
}

TEST_F(FrmMainTest, OfTheThreeGridsOfACaseOneLooksActive) {
    const auto active = [this] {
        return std::vector{main.VSFGProcessCase.activeLook(), main.VSFGProcessCaseResults.activeLook(),
                           main.VSFGProcessStep.activeLook()};
    };
    main.VSFGProcessCaseResults.entered.raise();
    EXPECT_THAT(active(), testing::ElementsAre(false, true, false));
    main.VSFGProcessCase.entered.raise();
    EXPECT_THAT(active(), testing::ElementsAre(true, false, false));
    main.VSFGProcessStep.entered.raise();
    EXPECT_THAT(active(), testing::ElementsAre(false, false, true));
}

}  // namespace
}  // namespace pellmark::test
