// A person finds, sorts and refreshes in the lists of both views, as far as that needs no window.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/CaseHarness.h"

namespace pellmark::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr int kShift0 = '0';

class FindInListsTest : public testing::Test, protected CaseHarness {
  protected:
    static std::vector<std::string> names(const Grid& of) {
        std::vector<std::string> all;
        for (int row = 1; row < of.rows(); ++row)
            all.push_back(of.text(row, field::kName));
        return all;
    }
    static std::string current(const Grid& of) { return of.text(of.row(), field::kName); }
    static bool press(Grid& of, int keyCode, bool control = false, bool shift = false) {
        KeyPress key{keyCode, shift, control};
        of.keyPressed.raise(key);
        return key.handled;
    }
    static bool pressIn(FindLine& of, int keyCode) {
        KeyPress key{keyCode};
        of.TxtFind.keyPressed.raise(key);
        return key.handled;
    }
    static void sortBy(Grid& of, const char* key) { of.headingClicked.raise(of.colIndex(key)); }
    static void selectNamed(Grid& of, const std::string& name) {
        of.select(of.findText(name, of.colIndex(field::kName)), 1);
    }
    std::optional<Color> colorOf(const Grid& of, const std::string& id) {
        return of.style(of.findRow(id), of.colIndex(field::kName)).fore;
    }
    void openTaps() {
        for (const char* name : {"Tap M10", "Tap M3", "Drill 8", "Ream", "Tap M30"})
            ids[name] = base.addProcess(name, unit::kMetric, "r", "d");
        openProcesses();
    }

    std::map<std::string, std::string> ids;
    Grid& grid = main.VSFGAllProcesses;
    FindLine& line = main.FindAllProcesses;
    Grid& results = main.VSFGProcessCaseResults;
    FindLine& resultsLine = main.FindProcessCaseResults;
};

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

// --- sorting -----------------------------------------------------------------------------------------------

TEST_F(FindInListsTest, AClickedHeadingSortsUpThenDownThenGoesBackToTheListsOwnOrder) {
    openTaps();
    selectNamed(grid, "Tap M10");
    const int name = grid.colIndex(field::kName);
    sortBy(grid, field::kName);
    EXPECT_THAT(names(grid), ElementsAre("Drill 8", "Ream", "Tap M3", "Tap M10", "Tap M30"));
    EXPECT_EQ(grid.sortMark(), (SortMark{name, false}));
    EXPECT_EQ(current(grid), "Tap M10");
    sortBy(grid, field::kName);
    EXPECT_THAT(names(grid), ElementsAre("Tap M30", "Tap M10", "Tap M3", "Ream", "Drill 8"));
    EXPECT_EQ(grid.sortMark(), (SortMark{name, true}));
    sortBy(grid, field::kName);
    EXPECT_THAT(names(grid), ElementsAre("Drill 8", "Ream", "Tap M10", "Tap M3", "Tap M30"));
    EXPECT_EQ(grid.sortMark(), SortMark{});
    EXPECT_EQ(current(grid), "Tap M10");
}

TEST_F(FindInListsTest, AnotherHeadingBeginsUpwards) {
    openTaps();
    sortBy(grid, field::kName);
    sortBy(grid, field::kName);
    sortBy(grid, field::kRule);
    EXPECT_EQ(grid.sortMark(), (SortMark{grid.colIndex(field::kRule), false}));
}

TEST_F(FindInListsTest, TheWholeSelectionIsKeptWhenTheRowsMove) {
    openTaps();
    selectNamed(grid, "Tap M10");
    grid.setSelected(grid.findText("Ream", 1), true);
    sortBy(grid, field::kName);
    sortBy(grid, field::kName);
    EXPECT_EQ(grid.selectedRows(), 2);
    EXPECT_TRUE(grid.isSelected(grid.findText("Ream", 1)));
    EXPECT_TRUE(grid.isSelected(grid.findText("Tap M10", 1)));
    EXPECT_EQ(grid.text(grid.selectedRow(0), field::kName), "Tap M10") << "in the order of selecting";
}

TEST_F(FindInListsTest, SortingAndFindingCombine) {
    openTaps();
    sortBy(grid, field::kName);
    sortBy(grid, field::kName);
    press(grid, 'F', true);
    line.TxtFind.setText("m3");
    EXPECT_THAT(names(grid), ElementsAre("Tap M30", "Tap M3"));
    pressIn(line, KeyPress::kEscape);
    EXPECT_EQ(names(grid).front(), "Tap M30");
    EXPECT_TRUE(grid.sortMark().descending);
}

TEST_F(FindInListsTest, CtrlShiftAndADigitSortByTheColumnThatStandsThere) {
    openTaps();
    EXPECT_TRUE(press(grid, '1', true, true));
    EXPECT_EQ(grid.sortMark().col, grid.colIndex(field::kName)) << "the id is hidden";
    EXPECT_TRUE(press(grid, '3', true, true));
    EXPECT_EQ(grid.sortMark().col, grid.colIndex(field::kRule));
    grid.setColPosition(grid.colIndex(field::kDescription), 0);
    EXPECT_TRUE(press(grid, '1', true, true));
    EXPECT_EQ(grid.sortMark().col, grid.colIndex(field::kDescription));
    EXPECT_TRUE(press(grid, '9', true, true)) << "there is no ninth column";
    EXPECT_EQ(grid.sortMark().col, grid.colIndex(field::kDescription));
    EXPECT_TRUE(press(grid, kShift0, true, true));
    EXPECT_EQ(grid.sortMark(), SortMark{});
    EXPECT_FALSE(press(grid, '1', true)) << "without Shift it is somebody else's";
}

// --- the processes of a case -------------------------------------------------------------------------------

TEST_F(FindInListsTest, ACaseIsSearchedAndSortedWithoutAskingAgainAndKeepsItsMarks) {
    const std::string exact = base.addProcess("Tap M10");
    const std::string partial = base.addProcess("Tap M3");
    const std::string other = base.addProcess("Drill");
    base.addFeatureCase(hole, {d8, m8}, {exact});
    base.addFeatureCase(hole, {d8}, {partial, other});
    openCase({d8, m8});
    ASSERT_THAT(names(results), ElementsAre("Tap M10", "Drill", "Tap M3"));
    sortBy(results, field::kName);
    EXPECT_THAT(names(results), ElementsAre("Drill", "Tap M3", "Tap M10"));
    EXPECT_EQ(colorOf(results, exact), kGreen);
    EXPECT_TRUE(results.style(results.findRow(partial), results.colIndex(field::kName)).italic);
    press(results, 'F', true);
    resultsLine.TxtFind.setText("tap");
    EXPECT_THAT(names(results), ElementsAre("Tap M3", "Tap M10"));
    EXPECT_EQ(resultsLine.LblFound.caption(), "2 of 3");
    EXPECT_THAT(base.callsOf("processesOfValues"), IsEmpty());
    sortBy(results, field::kName);
    sortBy(results, field::kName);
    pressIn(resultsLine, KeyPress::kEscape);
    EXPECT_THAT(names(results), ElementsAre("Tap M10", "Drill", "Tap M3")) << "exact matches first";
}

TEST_F(FindInListsTest, TheLimitCutsTheCasesOwnOrderHoweverItIsSorted) {
    std::vector<std::string> partial;
    for (const char* name : {"c", "b", "a"})
        partial.push_back(base.addProcess(name));
    base.addFeatureCase(hole, {d8, m8}, {base.addProcess("z")});
    base.addFeatureCase(hole, {d8}, partial);
    set("MaxProcessReturnNum", "2");
    openCase({d8, m8});
    ASSERT_THAT(names(results), ElementsAre("z", "a"));
    sortBy(results, field::kName);
    EXPECT_THAT(names(results), ElementsAre("a", "z"));
    press(results, 'F', true);
    resultsLine.TxtFind.setText("b");
    EXPECT_THAT(names(results), IsEmpty());
    EXPECT_EQ(resultsLine.LblFound.caption(), "0 of 2");
}

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

TEST_F(FindInListsTest, ADeletedProcessDoesNotComeBackWithTheNextLetter) {
    const std::string tap = base.addProcess("Tap M3");
    base.addFeatureCase(hole, {d8, m8}, {tap, base.addProcess("Tap M4")});
    openCase({d8, m8});
    press(results, 'F', true);
    resultsLine.TxtFind.setText("tap");
    results.select(results.findRow(tap), 1);
    desktop.expectMessage("Permanently delete selected item(s) from the database?");
    press(results, KeyPress::kDelete);
    resultsLine.TxtFind.setText("ta");
    EXPECT_THAT(names(results), ElementsAre("Tap M4"));
}

TEST_F(FindInListsTest, StepsAreFoundByNameAndCycleAndSorted) {
    const std::string process = base.addProcess("p");
    base.addCuttingCycle(602, "Drilling", 6);
    base.addCuttingCycle(402, "Tapping", 4);
    base.addStep(process, "M10", 1, 402);
    base.addStep(process, "Pilot 10", 2, 602);
    base.addStep(process, "M3", 3, 402);
    base.addFeatureCase(hole, {d8, m8}, {process});
    openCase({d8, m8});
    Grid& steps = main.VSFGProcessStep;
    FindLine& stepLine = main.FindProcessStep;
    sortBy(steps, field::kName);
    EXPECT_THAT(names(steps), ElementsAre("M3", "M10", "Pilot 10"));
    press(steps, 'F', true);
    stepLine.TxtFind.setText("tapp");
    EXPECT_THAT(names(steps), ElementsAre("M3", "M10"));
    EXPECT_EQ(stepLine.LblFound.caption(), "2 of 3");
    EXPECT_NE(steps.style(1, 4).back, std::nullopt) << "rows keep the colour of their technology";
    pressIn(stepLine, KeyPress::kEscape);
    sortBy(steps, field::kName);
    sortBy(steps, field::kName);
    EXPECT_THAT(names(steps), ElementsAre("M10", "Pilot 10", "M3"));
}

// --- refreshing and other keys -----------------------------------------------------------------------------

TEST_F(FindInListsTest, F5ShowsWhatIsStoredNowAndKeepsTheSelection) {
    openTaps();
    selectNamed(grid, "Tap M3");
    grid.setSelected(grid.findText("Ream", 1), true);
    base.addProcess("A new one");
    EXPECT_TRUE(press(grid, KeyPress::kF5));
    EXPECT_EQ(names(grid).front(), "A new one");
    EXPECT_EQ(current(grid), "Tap M3");
    EXPECT_EQ(grid.selectedRows(), 2);
    EXPECT_TRUE(grid.isSelected(grid.findText("Ream", 1)));
}

TEST_F(FindInListsTest, F5InTheLineRefreshesTheList) {
    openTaps();
    press(grid, 'F', true);
    line.TxtFind.setText("tap");
    base.addProcess("Tap M1");
    EXPECT_TRUE(pressIn(line, KeyPress::kF5));
    EXPECT_EQ(grid.dataRows(), 4);
}

TEST_F(FindInListsTest, ARefreshThatFailsIsTold) {
    openTaps();
    base.throwOn("processes");
    desktop.expectMessage("The knowledge base failed on purpose.");
    press(grid, KeyPress::kF5);
    EXPECT_TRUE(trace.trapped("cProcess::Refresh"));
}

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

TEST_F(FindInListsTest, AListThatMeetsARowThatIsGoneIsReadAnew) {
    openTaps();
    base.processStore().deleteProcess(ids["Tap M3"]);
    const int row = grid.findRow(ids["Tap M3"]);
    grid.setText(row, field::kId, "");  // as a store answers for a row that has gone meanwhile
    grid.select(row, 1);
    EXPECT_THAT(names(grid), Not(Contains("Tap M3")));
    EXPECT_THAT(trace.lines(),
                Contains("cProcess::rowChanged: A listed process is gone: the list is read anew."));
    EXPECT_THAT(desktop.messages(), IsEmpty());
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

TEST_F(FindInListsTest, EnterAndF2EditTheCurrentProcess) {
    openTaps();
    for (const int key : {KeyPress::kEnter, KeyPress::kF2}) {
        desktop.expectDialog("FrmAddEditProcess", [](Form& dialog) { dialog.close(); });
        EXPECT_TRUE(press(grid, key));
    }
}

TEST_F(FindInListsTest, InsertMakesANewProcessWhereThereIsACaseForIt) {
    openTaps();
    EXPECT_FALSE(press(grid, KeyPress::kInsert));
    openCase({d8});
    desktop.expectDialog("FrmAddEditProcess", [](Form& dialog) { dialog.close(); });
    EXPECT_TRUE(press(results, KeyPress::kInsert));
}

TEST_F(FindInListsTest, CtrlCCopiesTheSelectedRows) {
    openTaps();
    selectNamed(grid, "Tap M3");
    EXPECT_TRUE(press(grid, 'C', true));
    ASSERT_EQ(clipboard.puts.size(), 1U);
    EXPECT_THAT(clipboard.puts.front().content.text, HasSubstr("Tap M3"));
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
