// A person sorts the lists of both views, as far as that needs no window.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ListsFixture.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kShift0 = '0';

class SortListsTest : public ListsFixture {};

TEST_F(SortListsTest, AClickedHeadingSortsUpThenDownThenGoesBackToTheListsOwnOrder) {
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

TEST_F(SortListsTest, AnotherHeadingBeginsUpwards) {
    openTaps();
    sortBy(grid, field::kName);
    sortBy(grid, field::kName);
    sortBy(grid, field::kRule);
    EXPECT_EQ(grid.sortMark(), (SortMark{grid.colIndex(field::kRule), false}));
}

TEST_F(SortListsTest, TheWholeSelectionIsKeptWhenTheRowsMove) {
    openTaps();
    selectNamed(grid, "Tap M10");
    grid.setSelected(rowNamed(grid, "Ream"), true);
    sortBy(grid, field::kName);
    sortBy(grid, field::kName);
    EXPECT_EQ(grid.selectedRows(), 2);
    EXPECT_TRUE(grid.isSelected(rowNamed(grid, "Ream")));
    EXPECT_TRUE(grid.isSelected(rowNamed(grid, "Tap M10")));
    EXPECT_EQ(grid.text(grid.selectedRow(0), field::kName), "Tap M10") << "in the order of selecting";
}

TEST_F(SortListsTest, SortingAndFindingCombine) {
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

TEST_F(SortListsTest, CtrlShiftAndADigitSortByTheColumnThatStandsThere) {
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

TEST_F(SortListsTest, ACaseIsSearchedAndSortedWithoutAskingAgainAndKeepsItsMarks) {
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

TEST_F(SortListsTest, TheLimitCutsTheCasesOwnOrderHoweverItIsSorted) {
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

TEST_F(SortListsTest, StepsAreFoundByNameAndCycleAndSorted) {
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

}  // namespace
}  // namespace pellmark::test
