// A person finds in the lists of both views, as far as that needs no window.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ListsFixture.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class FindInListsTest : public ListsFixture {};

// --- finding -----------------------------------------------------------------------------------------------

TEST_F(FindInListsTest, CtrlFOpensALineThatNarrowsTheListWhileOneTypes) {
    openTaps();
    EXPECT_FALSE(line.isOpen());
    EXPECT_TRUE(press(grid, 'F', true));
    EXPECT_TRUE(line.isOpen());
    EXPECT_EQ(main.focused(), &line.TxtFind);
    EXPECT_EQ(line.LblFind.caption(), "Find:");
    EXPECT_EQ(line.CmdCloseFind.caption(), "Close");
    line.TxtFind.setText("t");
    EXPECT_THAT(names(grid), ElementsAre("Drill 8", "Ream", "Tap M10", "Tap M3", "Tap M30"))
        << "every one of them is metric";
    line.TxtFind.setText("tap m3");
    EXPECT_THAT(names(grid), ElementsAre("Tap M3", "Tap M30"));
    EXPECT_EQ(line.LblFound.caption(), "2 of 5");
    line.TxtFind.setText("");
    EXPECT_EQ(grid.dataRows(), 5);
    EXPECT_EQ(line.LblFound.caption(), "");
}

TEST_F(FindInListsTest, TheShownColumnsAreSearchedByWhatIsSeen) {
    openTaps();
    base.addProcess("Inches", unit::kInch);
    list().RefreshList("");
    press(grid, 'F', true);
    line.TxtFind.setText("metr");
    EXPECT_EQ(grid.dataRows(), 5);
    line.TxtFind.setText("inch");
    EXPECT_THAT(names(grid), ElementsAre("Inches"));
    grid.setColHidden(grid.colIndex(field::kName), true);
    grid.setColHidden(grid.colIndex(field::kUnit), true);
    line.TxtFind.setText("inc");
    EXPECT_THAT(names(grid), IsEmpty());
    line.TxtFind.setText("{");
    EXPECT_THAT(names(grid), IsEmpty()) << "identifiers are hidden";
}

TEST_F(FindInListsTest, EscapeLeavesTheLineWithTheCurrentRowKeptInTheWholeList) {
    openTaps();
    press(grid, 'F', true);
    EXPECT_TRUE(grid.takesEscape());
    line.TxtFind.setText("m3");
    selectNamed(grid, "Tap M30");
    EXPECT_TRUE(pressIn(line, KeyPress::kEscape));
    EXPECT_FALSE(line.isOpen());
    EXPECT_FALSE(grid.takesEscape());
    EXPECT_EQ(grid.dataRows(), 5);
    EXPECT_EQ(current(grid), "Tap M30");
    EXPECT_EQ(main.focused(), &grid);
    EXPECT_FALSE(press(grid, KeyPress::kEscape)) << "without a line Escape is not the list's";
}

TEST_F(FindInListsTest, EscapeInTheListAndTheButtonLeaveTheLineToo) {
    openTaps();
    press(grid, 'F', true);
    line.TxtFind.setText("m3");
    EXPECT_TRUE(press(grid, KeyPress::kEscape));
    EXPECT_EQ(grid.dataRows(), 5);
    press(grid, 'F', true);
    EXPECT_EQ(line.text(), "");
    line.TxtFind.setText("m3");
    line.CmdCloseFind.click();
    EXPECT_FALSE(line.isOpen());
    EXPECT_EQ(grid.dataRows(), 5);
}

TEST_F(FindInListsTest, WhereNothingWasFoundTheRowFromBeforeComesBack) {
    openTaps();
    selectNamed(grid, "Ream");
    press(grid, 'F', true);
    line.TxtFind.setText("nowhere");
    EXPECT_EQ(grid.row(), -1);
    EXPECT_EQ(line.LblFound.caption(), "0 of 5");
    pressIn(line, KeyPress::kEscape);
    EXPECT_EQ(current(grid), "Ream");
}

TEST_F(FindInListsTest, TheCurrentRowStaysCurrentWhileItIsFoundAndTheFirstOneIsOtherwise) {
    openTaps();
    selectNamed(grid, "Tap M30");
    press(grid, 'F', true);
    line.TxtFind.setText("tap");
    EXPECT_EQ(current(grid), "Tap M30");
    line.TxtFind.setText("m10");
    EXPECT_EQ(current(grid), "Tap M10");
}

TEST_F(FindInListsTest, DownUpAndEnterGoFromTheLineToTheList) {
    openTaps();
    for (const int key : {KeyPress::kDown, KeyPress::kUp, KeyPress::kEnter}) {
        press(grid, 'F', true);
        EXPECT_EQ(main.focused(), &line.TxtFind);
        EXPECT_TRUE(pressIn(line, key));
        EXPECT_EQ(main.focused(), &grid);
    }
    EXPECT_TRUE(line.isOpen());
}

TEST_F(FindInListsTest, OrphansStayRedInANarrowedList) {
    openTaps();
    base.addFeatureCase(hole, {d8}, {ids["Tap M3"]});
    list().RefreshList("");
    press(grid, 'F', true);
    line.TxtFind.setText("m3");
    EXPECT_EQ(colorOf(grid, ids["Tap M30"]), kRed);
    EXPECT_EQ(colorOf(grid, ids["Tap M3"]), kBlack);
}

TEST_F(FindInListsTest, ANarrowedListStaysNarrowedAfterARefresh) {
    openTaps();
    press(grid, 'F', true);
    line.TxtFind.setText("m3");
    base.addProcess("Another M3");
    list().RefreshList("");
    EXPECT_THAT(names(grid), ElementsAre("Another M3", "Tap M3", "Tap M30"));
    EXPECT_EQ(line.LblFound.caption(), "3 of 6");
}

TEST_F(FindInListsTest, AnotherViewBeginsWithTheWholeList) {
    openTaps();
    press(grid, 'F', true);
    line.TxtFind.setText("m3");
    sortBy(grid, field::kName);
    openProcesses();
    EXPECT_FALSE(line.isOpen());
    EXPECT_EQ(grid.dataRows(), 5);
    EXPECT_EQ(grid.sortMark(), SortMark{});
}

TEST_F(FindInListsTest, WithoutTheHostsMemberTheListIsSearchedAndSortedHere) {
    base.tables().findsProcesses = false;
    openTaps();
    press(grid, 'F', true);
    line.TxtFind.setText("m3");
    EXPECT_THAT(names(grid), ElementsAre("Tap M3", "Tap M30"));
    EXPECT_EQ(line.LblFound.caption(), "2 of 5");
    line.TxtFind.setText("tap");
    sortBy(grid, field::kName);
    EXPECT_THAT(names(grid), ElementsAre("Tap M3", "Tap M10", "Tap M30"));
    EXPECT_EQ(base.callsOf("processes").size(), 1U) << "the list is not read anew for every key";
    EXPECT_EQ(grid.findRow(ids["Tap M10"]), 2);
    base.processStore().deleteProcess(ids["Tap M10"]);
    press(grid, KeyPress::kF5);
    EXPECT_THAT(names(grid), ElementsAre("Tap M3", "Tap M30"));
}

TEST_F(FindInListsTest, AFailingStoreIsToldAndTheListStaysUsable) {
    openTaps();
    press(grid, 'F', true);
    base.throwOn("findProcesses");
    desktop.expectMessage("The knowledge base failed on purpose.");
    line.TxtFind.setText("m3");
    EXPECT_TRUE(trace.trapped("cProcess::rearrange"));
    base.stopThrowing();
    line.TxtFind.setText("m30");
    EXPECT_THAT(names(grid), ElementsAre("Tap M30"));
}

// --- the processes of a case -------------------------------------------------------------------------------

TEST_F(FindInListsTest, TheMembersOfACaseAreChosenFromTheWholeList) {
    const std::string tap = base.addProcess("Tap");
    const std::string drill = base.addProcess("Drill");
    base.addFeatureCase(hole, {d8, m8}, {tap, drill});
    openCase({d8, m8});
    press(results, 'F', true);
    resultsLine.TxtFind.setText("tap");
    desktop.expectDialog("FrmAddExistingProcess", [&](Form& dialog) {
        EXPECT_EQ(results.dataRows(), 2);
        dialog.close();
    });
    list().EditExistingProcesseswizard();
    EXPECT_FALSE(resultsLine.isOpen());
}

TEST_F(FindInListsTest, MembersAreNotChosenFromAListThatARefreshCouldNotRead) {
    base.addFeatureCase(hole, {d8, m8}, {base.addProcess("Tap")});
    openCase({d8, m8});
    base.throwOn("processesOfValues");
    desktop.expectMessage("The knowledge base failed on purpose.");
    press(results, KeyPress::kF5);
    base.stopThrowing();
    desktop.expectMessage("The knowledge base failed on purpose.");
    list().EditExistingProcesseswizard();
    EXPECT_THAT(changes(), IsEmpty());
    EXPECT_THAT(trace.lines().back(), testing::HasSubstr(" from Pellmark.cProcess: "));
}

// --- what is stored meanwhile ------------------------------------------------------------------------------

TEST_F(FindInListsTest, AProcessThatWasStoredIsFoundByItsNewNameWithoutTheOptionalMember) {
    base.tables().findsProcesses = false;
    openTaps();
    press(grid, 'F', true);
    line.TxtFind.setText("tap");
    ProcessRecord renamed = base.processStore().process(ids["Ream"]);
    renamed.Name = "Polish";
    base.processStore().updateProcess(renamed);
    list().UpdateFromDb(renamed);
    line.TxtFind.setText("polish");
    EXPECT_THAT(names(grid), ElementsAre("Polish"));
}

TEST_F(FindInListsTest, TheMeaningOfColoursStandsAtTheNames) {
    const std::string exact = base.addProcess("exact");
    const std::string partial = base.addProcess("partial");
    const std::string orphan = base.addProcess("orphan");
    base.addFeatureCase(hole, {d8, m8}, {exact});
    base.addFeatureCase(hole, {d8}, {partial});
    openCase({d8, m8});
    EXPECT_EQ(results.notes(results.findRow(exact)), "matches the feature case exactly");
    EXPECT_EQ(results.notes(results.findRow(partial)), "matches the feature case in part");
    openProcesses();
    EXPECT_EQ(grid.notes(grid.findRow(orphan)), "attached to no feature case");
    EXPECT_EQ(grid.notes(grid.findRow(exact)), "");
}

TEST_F(FindInListsTest, AStepMadeWhileAnotherNameIsLookedForIsShown) {
    const std::string process = base.addProcess("p");
    base.addStep(process, "M10", 1, 602);
    base.addFeatureCase(hole, {d8, m8}, {process});
    openCase({d8, m8});
    Grid& steps = main.VSFGProcessStep;
    press(steps, 'F', true);
    main.FindProcessStep.TxtFind.setText("nothing");
    EXPECT_EQ(steps.dataRows(), 0);
    press(steps, KeyPress::kF5);
    EXPECT_EQ(steps.dataRows(), 0);
    pressIn(main.FindProcessStep, KeyPress::kEscape);
    EXPECT_THAT(names(steps), ElementsAre("M10"));
}

TEST_F(FindInListsTest, AnOpenLineTakesItsHeightFromTheList) {
    openProcesses();
    main.TabProcesses.arrange({9000, 6000});
    const Rect before = grid.bounds();
    press(grid, 'F', true);
    main.TabProcesses.arrange({9000, 6000});
    EXPECT_EQ(line.bounds().height, FindLine::kHeight);
    EXPECT_EQ(line.bounds().top, before.top);
    EXPECT_EQ(grid.bounds().top, before.top + FindLine::kHeight);
    EXPECT_EQ(grid.bounds().bottom(), before.bottom());
    EXPECT_LE(line.LblFound.bounds().right(), line.bounds().width);
    main.TabProcesses.arrange({2000, 300});
    EXPECT_GE(grid.bounds().height, 0);
}

}  // namespace
}  // namespace pellmark::test
