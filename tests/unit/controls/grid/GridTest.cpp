#include "controls/grid/Grid.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "base/Error.h"
#include "base/Text.h"
#include "knowledge/MemoryRecordSet.h"
#include "support/GridFixture.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;

class GridTest : public GridFixture {};

TEST_F(GridTest, HeadingsMakeTheFirstRowAndTheColumns) {
    EXPECT_EQ(grid.cols(), 3);
    EXPECT_EQ(grid.rows(), 1);
    EXPECT_FALSE(grid.hasData());
    EXPECT_EQ(grid.text(0, 1), "Name");
    EXPECT_EQ(grid.row(), -1);
}

TEST_F(GridTest, ColumnKeysAreFoundWithoutCase) {
    EXPECT_EQ(grid.colIndex("_ID"), 0);
    EXPECT_EQ(grid.colIndex("_unit"), 2);
    EXPECT_EQ(grid.colIndex("_Rule"), -1);
    EXPECT_EQ(grid.colIndex(""), -1);
}

TEST_F(GridTest, ABoundGridReadsNothingUntilSomebodyLooks) {
    auto records = std::make_shared<CountingRecords>(1'000'000);
    grid.bind(records);
    EXPECT_EQ(grid.rows(), 1'000'001);
    EXPECT_EQ(records->cellsRead, 0);
    EXPECT_EQ(grid.text(500'001, 1), "name 500000");
    EXPECT_EQ(records->cellsRead, 1);
}

TEST_F(GridTest, RowDataComesInOneBlockAndFindsItsRow) {
    auto records = std::make_shared<CountingRecords>(100'000);
    grid.bind(records);
    grid.setRowDataFromColumn(0);
    EXPECT_EQ(grid.findRow(CountingRecords::idOf(99'999)), 100'000);
    EXPECT_EQ(grid.findRow(lowerAscii(CountingRecords::idOf(7).text())), 8);
    EXPECT_EQ(grid.findRow(CountingRecords::idOf(100'000)), -1);
    EXPECT_EQ(records->keyBlocks, 1);
    EXPECT_EQ(records->cellsRead, 0);
}

TEST_F(GridTest, WhatIsBoundAnewHasNoneOfTheRowDataFromBefore) {
    grid.bind(std::make_shared<CountingRecords>(3));
    grid.setRowDataFromColumn(0);
    grid.bind(std::make_shared<CountingRecords>(3));
    EXPECT_EQ(grid.rowData(1), "");
    EXPECT_EQ(grid.findRow(CountingRecords::idOf(0)), -1);
}

TEST_F(GridTest, TextsThatAreNoGuidsServeAsRowDataToo) {
    fill(3);
    EXPECT_EQ(grid.rowData(2), "id-b");
    EXPECT_EQ(grid.findRow("ID-C"), 3);
    EXPECT_EQ(grid.findRow(""), -1);
    grid.setRowData(1, "other");
    EXPECT_EQ(grid.findRow("id-a"), -1);
    EXPECT_EQ(grid.findRow("other"), 1);
}

TEST_F(GridTest, OfTwoRowsWithOneIdTheFirstLeftIsFound) {
    const std::string id = Guid::random().text();
    auto records = std::make_shared<MemoryRecordSet>(std::vector<std::string>{"_Id"});
    for (int i = 0; i < 2; ++i)
        records->addRow({id});
    grid.bind(records);
    grid.setRowDataFromColumn(0);
    EXPECT_EQ(grid.findRow(id), 1);
    grid.removeRow(1);
    EXPECT_EQ(grid.findRow(id), 1);
    grid.removeRow(1);
    EXPECT_EQ(grid.findRow(id), -1);
}

TEST_F(GridTest, ADisplayListShowsTextsAndKeepsValues) {
    fill(2);
    grid.setColComboList(2, "#70;Inch|#71;Metric");
    EXPECT_EQ(grid.text(2, 2), "71");
    EXPECT_EQ(grid.displayText(2, 2), "Metric");
    grid.setText(2, 2, "99");
    EXPECT_EQ(grid.displayText(2, 2), "99");
    grid.setRowComboList(1, 2, "#70;Zoll");
    EXPECT_EQ(grid.displayText(1, 2), "Zoll");
    EXPECT_EQ(grid.displayText(0, 2), "Unit");
}

TEST_F(GridTest, WrittenCellsHideTheRecordSetUntilTheNextBind) {
    fill(2);
    grid.setText(1, "_Name", "written");
    EXPECT_EQ(grid.text(1, 1), "written");
    fill(2);
    EXPECT_EQ(grid.text(1, 1), "a");
}

TEST_F(GridTest, RemovingARowMovesNothingThatBelongsToTheOthers) {
    fill(5);
    grid.setForeColor(4, 1, kRed);
    grid.setText(5, 1, "last");
    grid.removeRow(2);
    EXPECT_THAT(names(), ElementsAre("a", "c", "d", "last"));
    EXPECT_EQ(grid.style(3, 1).fore, kRed);
    EXPECT_EQ(grid.findRow("id-d"), 3);
    EXPECT_EQ(grid.findRow("id-b"), -1);
}

TEST_F(GridTest, AddedRowsStandLastAndLiveLikeTheOthers) {
    fill(1);
    grid.removeRow(1);
    const int row = grid.addRow();
    grid.setText(row, "_Name", "new");
    grid.setRowData(row, "id-new");
    EXPECT_THAT(names(), ElementsAre("new"));
    EXPECT_EQ(grid.findRow("id-new"), 1);
    EXPECT_EQ(grid.rowData(row), "id-new");
}

TEST_F(GridTest, SettingTheNumberOfRowsCutsOrGrowsTheEnd) {
    fill(5);
    grid.setRows(3);
    EXPECT_THAT(names(), ElementsAre("a", "b"));
    grid.setRows(4);
    EXPECT_THAT(names(), ElementsAre("a", "b", ""));
    grid.setRows(0);
    EXPECT_EQ(grid.rows(), 1);
}

TEST_F(GridTest, TheColourOfAColumnLeavesItalicsAndPicturesAlone) {
    grid.setRows(11);
    grid.setItalic(2, 1, true);
    grid.setForeColor(2, 1, kRed);
    grid.setBackColor(3, 1, kGreen);
    grid.setColumnForeColor(1, kBlack);
    EXPECT_TRUE(grid.style(2, 1).italic);
    EXPECT_EQ(grid.style(2, 1).fore, kBlack);
    EXPECT_EQ(grid.style(3, 1).back, kGreen);
    EXPECT_EQ(grid.style(10, 1).fore, kBlack);
    EXPECT_FALSE(grid.style(10, 1).italic);
    EXPECT_EQ(grid.style(2, 0).fore, std::nullopt);
}

TEST_F(GridTest, EveryOrderOfSixColumnsCanBeRestored) {
    grid.setHeadings("A|B|C|D|E|F");
    std::vector<int> order{0, 1, 2, 3, 4, 5};
    int orders = 0;
    do {
        std::vector<Grid::ColPosition> wanted;
        for (int col = 0; col < 6; ++col) {
            const auto place = std::find(order.begin(), order.end(), col) - order.begin();
            wanted.push_back({col, static_cast<int>(place)});
        }
        int changes = 0;
        const auto changed = grid.gridChanged.subscribe([&](const GridChange&) { ++changes; });
        grid.setColPositions(wanted);
        ASSERT_EQ(grid.displayOrder(), order);
        ASSERT_LE(changes, 1);
        ++orders;
    } while (std::next_permutation(order.begin(), order.end()));
    EXPECT_EQ(orders, 720);
}

TEST_F(GridTest, AColumnColourForgetsTheColoursOfItsCells) {
    fill(2);
    grid.setForeColor(1, 1, kRed);
    grid.setItalic(2, 1, true);
    grid.setColumnForeColor(1, kBlack);
    EXPECT_EQ(grid.style(1, 1).fore, kBlack);
    EXPECT_TRUE(grid.style(2, 1).italic);
    EXPECT_EQ(grid.style(1, 0).fore, std::nullopt);
}

TEST_F(GridTest, StylesOfOneCellAddUp) {
    fill(1);
    grid.setForeColor(1, 1, kGreen);
    grid.setBackColor(1, 1, 0xFFFFFF);
    grid.setItalic(1, 1, true);
    grid.setPicture(1, 1, 3);
    grid.setNote(1, 1, "why");
    const CellStyle style = grid.style(1, 1);
    EXPECT_EQ(style, (CellStyle{kGreen, 0xFFFFFFU, true, 3, "why"}));
}

TEST_F(GridTest, TheNotesOfARowStandTogetherAndGoWithTheColoursOfTheColumn) {
    fill(2);
    EXPECT_EQ(grid.notes(1), "");
    grid.setNote(1, 0, "first");
    grid.setNote(1, 1, "second");
    EXPECT_EQ(grid.notes(1), "first, second");
    EXPECT_EQ(grid.notes(2), "");
    EXPECT_EQ(grid.notes(0), "");
    grid.setColumnForeColor(0, kBlack);
    EXPECT_EQ(grid.notes(1), "second");
}

TEST_F(GridTest, ColumnsMoveOnTheScreenAndKeepTheirIndex) {
    grid.setColPosition(0, 2);
    EXPECT_THAT(grid.displayOrder(), ElementsAre(1, 2, 0));
    EXPECT_EQ(grid.colPosition(0), 2);
    EXPECT_EQ(grid.colKey(0), "_Id");
    grid.setColPosition(1, 99);
    EXPECT_THAT(grid.displayOrder(), ElementsAre(2, 0, 1));
    EXPECT_THROW(grid.setColWidth(3, 100), Error);
}

TEST_F(GridTest, WidthsAreChosenByAPersonAndNotByCode) {
    grid.setColWidth(1, 700);
    EXPECT_FALSE(grid.widthsChosen());
    bool chosenWhenHeard = false;
    const auto heard = grid.colResized.subscribe([&](int) { chosenWhenHeard = grid.widthsChosen(); });
    grid.userResizedColumn(1, 800);
    EXPECT_TRUE(grid.widthsChosen());
    EXPECT_TRUE(chosenWhenHeard);
}

TEST_F(GridTest, AWidthThatTheWindowDrewIsTakenOverWithoutAnEcho) {
    int changes = 0;
    const auto heard = grid.gridChanged.subscribe([&](const GridChange&) { ++changes; });
    grid.userTookWidth(1, 5000);
    EXPECT_EQ(grid.colWidth(1), 5000);
    EXPECT_TRUE(grid.widthsChosen());
    EXPECT_EQ(changes, 0);
    grid.userTookWidth(1, -1);
    EXPECT_EQ(grid.colWidth(1), 0);
}

TEST_F(GridTest, AnotherFontIsToldOnce) {
    std::vector<GridChange::What> changes;
    const auto heard =
        grid.gridChanged.subscribe([&](const GridChange& change) { changes.push_back(change.what); });
    const Font font{"Arial", 9.75, true, false, false, false};
    grid.setFont(font);
    grid.setFont(font);
    EXPECT_EQ(grid.font(), font);
    EXPECT_THAT(changes, ElementsAre(GridChange::What::Font));
}

TEST_F(GridTest, AColumnThatIsGivenItsChoicesIsDrawnAnew) {
    std::vector<GridChange::What> changes;
    const auto heard =
        grid.gridChanged.subscribe([&](const GridChange& change) { changes.push_back(change.what); });
    grid.setColComboList(1, "#70;Inch|#71;Metric");
    EXPECT_THAT(changes, ElementsAre(GridChange::What::Cells));
}

TEST_F(GridTest, OnlyWhatAPersonDoesToColumnsRaisesTheirEvents) {
    int heard = 0;
    const auto resized = grid.colResized.subscribe([&](int) { ++heard; });
    const auto moved = grid.colMoved.subscribe([&](int) { ++heard; });
    grid.setColWidth(1, 500);
    grid.setColPosition(1, 0);
    EXPECT_EQ(heard, 0);
    grid.userResizedColumn(1, 700);
    grid.userMovedColumn(1, 2);
    EXPECT_EQ(heard, 2);
    EXPECT_EQ(grid.colWidth(1), 700);
}

}  // namespace
}  // namespace pellmark::test
