#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/GridFixture.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class GridSelectionTest : public GridFixture {};

TEST_F(GridSelectionTest, SelectionKeepsItsOrder) {
    fill(7);
    grid.setSelected(2, true);
    grid.setSelected(7, true);
    grid.setSelected(5, true);
    EXPECT_THAT(selection(), ElementsAre(2, 7, 5));
    grid.setSelected(7, false);
    EXPECT_THAT(selection(), ElementsAre(2, 5));
    grid.removeRow(2);
    EXPECT_THAT(selection(), ElementsAre(4));
    grid.select(1, 0);
    EXPECT_THAT(selection(), ElementsAre(1));
}

TEST_F(GridSelectionTest, ASelectedBlockLeavesTheHeadingsOut) {
    fill(3);
    grid.selectBlock(0, 0, 2, 2);
    EXPECT_THAT(selection(), ElementsAre(1, 2));
    EXPECT_EQ(grid.row(), 1);
    grid.clearSelection();
    EXPECT_THAT(selection(), IsEmpty());
}

TEST_F(GridSelectionTest, ABlockJoinsTheSelectionAndLeavesRemovedRowsOut) {
    grid.setRows(11);
    grid.removeRow(4);
    grid.setSelected(7, true);
    grid.setSelected(8, 2, true);
    EXPECT_THAT(selection(), ElementsAre(7, 2, 3, 4, 5, 6, 8));
    grid.setSelected(3, 6, false);
    EXPECT_THAT(selection(), ElementsAre(7, 2, 8));
    std::vector<std::pair<int, int>> runs;
    grid.eachSelectedRun([&](int first, int last) { runs.emplace_back(first, last); });
    EXPECT_THAT(runs, ElementsAre(std::pair(2, 2), std::pair(7, 8)));
}

TEST_F(GridSelectionTest, SelectingOnlyABlockKeepsTheOrderOfWhatStays) {
    grid.setRows(11);
    for (const int row : {9, 5, 3})
        grid.setSelected(row, true);
    grid.selectOnly(3, 6);
    EXPECT_THAT(selection(), ElementsAre(5, 3, 4, 6));
    grid.selectOnly(10, 10);
    EXPECT_THAT(selection(), ElementsAre(10));
    grid.selectOnly(20, 30);
    EXPECT_THAT(selection(), IsEmpty());
}

TEST_F(GridSelectionTest, SelectingOnlyABlockLeavesNoneOfItsNeighboursSelected) {
    fill(6);
    grid.selectAll();
    grid.selectOnly(3, 4);
    EXPECT_THAT(selection(), ElementsAre(3, 4));
}

TEST_F(GridSelectionTest, SelectingAMillionRowsIsOneChangeOfOneRun) {
    grid.bind(std::make_shared<CountingRecords>(1000000));
    int changes = 0;
    const auto changed = grid.gridChanged.subscribe([&](const GridChange&) { ++changes; });
    grid.selectAll();
    int runs = 0;
    grid.eachSelectedRun([&](int, int) { ++runs; });
    EXPECT_EQ(grid.selectedRows(), 1000000);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(runs, 1);
}

TEST_F(GridSelectionTest, SelectingABlockOfAnEmptyGridSelectsNothing) {
    grid.selectBlock(1, 0, 0, 2);
    EXPECT_THAT(selection(), IsEmpty());
    EXPECT_EQ(grid.row(), -1);
}

TEST_F(GridSelectionTest, RowChangeIsHeardOncePerChange) {
    fill(3);
    int heard = 0;
    const auto subscription = grid.rowChanged.subscribe([&] { ++heard; });
    grid.select(2, 0);
    grid.select(2, 1);
    EXPECT_EQ(heard, 1);
    grid.removeRow(1);
    EXPECT_EQ(heard, 1);
    EXPECT_EQ(grid.row(), 1);
    grid.removeRow(1);
    EXPECT_EQ(heard, 2);
    EXPECT_EQ(grid.text(grid.row(), "_Name"), "c");
}

}  // namespace
}  // namespace pellmark::test
