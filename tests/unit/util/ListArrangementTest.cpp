#include "util/ListArrangement.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "knowledge/MemoryRecordSet.h"
#include "support/ActingIdle.h"
#include "support/PortsHarness.h"

namespace pellmark::test {
namespace {

using testing::HasSubstr;

/// A list whose owner arranges it in memory.
class ListArrangementTest : public testing::Test, protected ServicesHarness {
  protected:
    ListArrangementTest() {
        grid.setHeadings("Name|Size");
        grid.setColKey(0, "_Name");
        grid.setColKey(1, "_Size");
    }
    void fill(int count) {
        auto records = std::make_shared<MemoryRecordSet>(std::vector<std::string>{"_Name", "_Size"});
        for (int i = 0; i < count; ++i)
            records->addRow({"n" + std::to_string(i), std::to_string(count - i)});
        all = records;
        show();
    }
    void show() { grid.bind(arrangement.arranged(all)); }
    void type(const std::string& text) { line.TxtFind.setText(text); }

    Grid grid{form, "VSFG"};
    FindLine line{form, "Find"};
    ActingIdle slow;
    ListArrangement arrangement{person, slow, grid, line};
    std::shared_ptr<RecordSet> all;
    Subscription shown = arrangement.changed.subscribe([this] { show(); });
};

TEST_F(ListArrangementTest, AShortListIsArrangedWithoutShowingHowFarItIs) {
    fill(100);
    arrangement.find();
    type("n9");
    EXPECT_EQ(grid.dataRows(), 11);
    EXPECT_EQ(line.LblFound.caption(), "11 of 100");
    EXPECT_EQ(slow.yields, 0);
}

TEST_F(ListArrangementTest, ALongWalkShowsHowFarItIs) {
    fill(10000);
    arrangement.find();
    std::vector<std::string> seen;
    slow.act = [&] { seen.push_back(line.LblFound.caption()); };
    type("n9");
    EXPECT_THAT(seen, testing::ElementsAre("20 %", "40 %", "61 %", "81 %"));
    EXPECT_EQ(line.LblFound.caption(), "1111 of 10000");
}

TEST_F(ListArrangementTest, WhatIsTypedDuringAWalkCounts) {
    fill(10000);
    arrangement.find();
    slow.act = [&] {
        if (slow.yields == 2) type("n99");
    };
    type("n9");
    EXPECT_EQ(grid.dataRows(), 111);
    EXPECT_EQ(line.LblFound.caption(), "111 of 10000");
}

TEST_F(ListArrangementTest, RecordsThatTheirOwnerLetsGoDuringAWalkAreWalkedToTheEnd) {
    fill(10000);
    arrangement.find();
    slow.act = [&] { all.reset(); };
    type("n9");
    EXPECT_EQ(grid.dataRows(), 1111);
}

TEST_F(ListArrangementTest, EscapeDuringAWalkShowsTheWholeList) {
    fill(10000);
    arrangement.find();
    slow.act = [&] {
        if (slow.yields == 1) arrangement.leave();
    };
    type("n9");
    EXPECT_EQ(grid.dataRows(), 10000);
    EXPECT_EQ(slow.yields, 1);
    EXPECT_FALSE(line.isOpen());
    EXPECT_TRUE(arrangement.isPlain());
}

TEST_F(ListArrangementTest, AWalkThatFailsLeavesTheNextOneFree) {
    fill(10000);
    arrangement.find();
    slow.act = [&] { throw Error(errors::kKnowledgeBase, "test", "The window broke."); };
    type("n9");
    EXPECT_TRUE(trace.trapped("ListArrangement::changed"));
    slow.act = nullptr;
    type("n99");
    EXPECT_EQ(grid.dataRows(), 111);
}

TEST_F(ListArrangementTest, UpToAHundredThousandRowsAreSortedHere) {
    fill(100'000);
    arrangement.sortBy(1);
    EXPECT_EQ(grid.text(1, 1), "1");
    EXPECT_EQ(grid.text(100'000, 1), "100000");
}

TEST_F(ListArrangementTest, OfALongerListThePersonIsToldAndItKeepsItsOrder) {
    fill(100'001);
    desktop.expectMessage(
        "The list is too long to be sorted by this program, and the knowledge base does not "
        "sort it.");
    arrangement.sortBy(1);
    EXPECT_EQ(grid.text(1, 0), "n0");
    EXPECT_EQ(grid.sortMark(), SortMark{});
    EXPECT_TRUE(arrangement.isPlain());
}

TEST_F(ListArrangementTest, AHeadingWithoutAFieldBehindItSortsNothing) {
    fill(3);
    grid.setColKey(1, "_Other");
    arrangement.sortBy(1);
    EXPECT_EQ(grid.sortMark(), SortMark{});
    grid.setColKey(1, "");
    arrangement.sortBy(1);
    EXPECT_TRUE(arrangement.isPlain());
}

TEST_F(ListArrangementTest, AnAnswerThatEndsEarlySaysSo) {
    fill(3);
    arrangement.find();
    type("n");
    arrangement.tellFound(1000, 50000, true);
    EXPECT_EQ(line.LblFound.caption(), "1000+ of 50000");
}

TEST_F(ListArrangementTest, ALineThatIsOpenedAgainKeepsWhatStandsThereSelected) {
    fill(3);
    arrangement.find();
    type("n1");
    int selections = 0;
    const auto counted = line.TxtFind.selectionRequested.subscribe([&] { ++selections; });
    arrangement.find();
    EXPECT_EQ(line.text(), "n1");
    EXPECT_EQ(selections, 1);
    EXPECT_EQ(grid.dataRows(), 1);
}

TEST_F(ListArrangementTest, ACommandThatListsByItselfDropsTheText) {
    fill(3);
    arrangement.find();
    EXPECT_FALSE(arrangement.drop());
    arrangement.find();
    type("n1");
    EXPECT_TRUE(arrangement.drop());
    EXPECT_FALSE(line.isOpen());
    EXPECT_EQ(grid.dataRows(), 1) << "nobody has listed anew yet";
}

TEST_F(ListArrangementTest, TheFirstColumnGoesByWhatAPersonSeesOfItsValues) {
    grid.setColComboList(0, "#n0;zinc|#n1;alloy|#n2;brass");
    fill(3);
    arrangement.sortBy(0);
    EXPECT_EQ(grid.displayText(1, 0), "alloy");
    EXPECT_EQ(grid.displayText(2, 0), "brass");
    EXPECT_EQ(grid.displayText(3, 0), "zinc");
}

TEST_F(ListArrangementTest, EscapeIsTheFormsAgainOnceAListIsBuiltAnew) {
    fill(3);
    arrangement.find();
    arrangement.sortBy(1);
    EXPECT_TRUE(grid.takesEscape());
    const ListArrangement again(person, slow, grid, line);
    EXPECT_FALSE(grid.takesEscape());
    EXPECT_FALSE(line.isOpen());
    EXPECT_EQ(grid.sortMark(), SortMark{});
}

}  // namespace
}  // namespace pellmark::test
