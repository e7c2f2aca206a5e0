#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/GridFixture.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class GridRedrawTest : public GridFixture {};

TEST_F(GridRedrawTest, AChangeWithRedrawingOffIsOneChangeOfTheCurrentRow) {
    grid.setRows(11);
    grid.select(2, 0);
    int changes = 0;
    const auto changed = grid.rowChanged.subscribe([&] { ++changes; });
    {
        Grid::RedrawOff off(grid);
        grid.bind(std::make_shared<CountingRecords>(9));
        grid.setRowDataFromColumn(0);
        const Grid::RedrawOff inner(grid);
        grid.select(1, 0);
        grid.select(3, 0);
        EXPECT_EQ(changes, 0);
    }
    EXPECT_EQ(changes, 1);
}

TEST_F(GridRedrawTest, RemovingSixRowsWithRedrawingOffIsOneChangeOfTheCurrentRow) {
    grid.setRows(11);
    grid.select(6, 0);
    int changes = 0;
    const auto changed = grid.rowChanged.subscribe([&] { ++changes; });
    {
        Grid::RedrawOff off(grid);
        for (int row = 6; row > 0; --row)
            grid.removeRow(row);
    }
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(grid.row(), 1);
}

TEST_F(GridRedrawTest, LeavingAndComingBackWithRedrawingOffIsNoChangeOfTheCurrentRow) {
    grid.setRows(11);
    grid.select(2, 0);
    int changes = 0;
    const auto changed = grid.rowChanged.subscribe([&] { ++changes; });
    {
        Grid::RedrawOff off(grid);
        grid.select(5, 0);
        grid.select(2, 0);
    }
    EXPECT_EQ(changes, 0);
}

TEST_F(GridRedrawTest, AnotherRecordInTheSameRowIsAChangeOfTheCurrentRow) {
    grid.setRows(11);
    grid.setRowData(2, "one");
    grid.select(2, 0);
    int changes = 0;
    const auto changed = grid.rowChanged.subscribe([&] { ++changes; });
    {
        Grid::RedrawOff off(grid);
        grid.setRowData(2, "other");
    }
    EXPECT_EQ(changes, 1);
}

TEST_F(GridRedrawTest, WithRedrawingOffThePeerHearsOnce) {
    fill(3);
    std::vector<GridChange::What> heard;
    const auto subscription =
        grid.gridChanged.subscribe([&](const GridChange& change) { heard.push_back(change.what); });
    {
        Grid::RedrawOff off(grid);
        grid.setText(1, 1, "x");
        grid.select(2, 1);
        grid.showCell(2, 1);
        EXPECT_THAT(heard, IsEmpty());
    }
    EXPECT_THAT(heard, ElementsAre(GridChange::What::All, GridChange::What::Scroll));
}

TEST_F(GridRedrawTest, ARowThatHasGoneMeanwhileIsNotScrolledTo) {
    grid.setRows(11);
    std::vector<GridChange::What> heard;
    const auto changed =
        grid.gridChanged.subscribe([&](const GridChange& change) { heard.push_back(change.what); });
    {
        const Grid::RedrawOff off(grid);
        grid.showCell(10, 0);
        grid.removeRow(10);
    }
    EXPECT_THAT(heard, ElementsAre(GridChange::What::All));
}

}  // namespace
}  // namespace pellmark::test
