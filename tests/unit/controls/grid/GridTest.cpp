#include "controls/grid/Grid.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "base/Error.h"
#include "base/Text.h"
#include "knowledge/MemoryRecordSet.h"
#include "support/FormHarness.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Answers any number of records without holding one, and counts what was read.
class CountingRecords : public RecordSet {
  public:
    explicit CountingRecords(std::size_t count) : count_(count) {}
    const std::vector<std::string>& fields() const override { return fields_; }
    std::size_t count() override { return count_; }
    std::string text(std::size_t record, std::size_t field) override {
        ++cellsRead;
        return field == 0 ? idOf(record).text() : "name " + std::to_string(record);
    }
    std::optional<std::vector<Guid>> keys() override {
        ++keyBlocks;
        std::vector<Guid> keys;
        for (std::size_t i = 0; i < count_; ++i)
            keys.push_back(idOf(i));
        return keys;
    }
    static Guid idOf(std::size_t record) {
        Guid guid;
        for (std::size_t i = 0; i < 4; ++i)
            guid.bytes[i] = static_cast<std::uint8_t>(record >> (8 * i));
        return guid;
    }

    int cellsRead = 0;
    int keyBlocks = 0;

  private:
    std::vector<std::string> fields_{"_Id", "_Name"};
    std::size_t count_;
};

class GridTest : public testing::Test, protected FormHarness {
  protected:
    GridTest() {
        grid.setHeadings("Id|Name|Unit");
        grid.setColKey(0, "_Id");
        grid.setColKey(1, "_Name");
        grid.setColKey(2, "_Unit");
    }

    /// Binds rows "a", "b", ... with units and with their letter as row data.
    void fill(int rows) {
        auto records = std::make_shared<MemoryRecordSet>(std::vector<std::string>{"_Id", "_Name", "_Unit"});
        for (int i = 0; i < rows; ++i) {
            const std::string name(1, static_cast<char>('a' + i));
            records->addRow({"id-" + name, name, i % 2 == 0 ? "70" : "71"});
        }
        grid.bind(records);
        grid.setRowDataFromColumn(0);
    }

    std::vector<std::string> names() {
        std::vector<std::string> all;
        for (int row = grid.fixedRows(); row < grid.rows(); ++row)
            all.push_back(grid.text(row, "_name"));
        return all;
    }

    std::vector<int> selection() {
        std::vector<int> rows;
        for (int i = 0; i < grid.selectedRows(); ++i)
            rows.push_back(grid.selectedRow(i));
        return rows;
    }

    Grid grid{form, "VSFG"};
};

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

TEST_F(GridTest, ATextIsFoundInTheFirstRowThatHoldsItWhateverItsCase) {
    grid.setHeadings("Id|Name");
    grid.setRows(4);
    grid.setText(2, 1, "Ream");
    grid.setText(3, 1, "REAM");
    EXPECT_EQ(grid.findText("reaM", 1), 2);
    EXPECT_EQ(grid.findText("Name", 1), -1) << "a heading is no row";
    EXPECT_EQ(grid.findText("Ream", 0), -1);
    EXPECT_EQ(grid.findText("Ream", 2), -1) << "there is no such column";
}

TEST_F(GridTest, SelectionKeepsItsOrder) {
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

TEST_F(GridTest, ASelectedBlockLeavesTheHeadingsOut) {
    fill(3);
    grid.selectBlock(0, 0, 2, 2);
    EXPECT_THAT(selection(), ElementsAre(1, 2));
    EXPECT_EQ(grid.row(), 1);
    grid.clearSelection();
    EXPECT_THAT(selection(), IsEmpty());
}

TEST_F(GridTest, ABlockJoinsTheSelectionAndLeavesRemovedRowsOut) {
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

TEST_F(GridTest, SelectingOnlyABlockKeepsTheOrderOfWhatStays) {
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

TEST_F(GridTest, SelectingAMillionRowsIsOneChangeOfOneRun) {
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

TEST_F(GridTest, AChangeWithRedrawingOffIsOneChangeOfTheCurrentRow) {
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

TEST_F(GridTest, RemovingSixRowsWithRedrawingOffIsOneChangeOfTheCurrentRow) {
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

TEST_F(GridTest, LeavingAndComingBackWithRedrawingOffIsNoChangeOfTheCurrentRow) {
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

TEST_F(GridTest, AnotherRecordInTheSameRowIsAChangeOfTheCurrentRow) {
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

TEST_F(GridTest, SelectingABlockOfAnEmptyGridSelectsNothing) {
    grid.selectBlock(1, 0, 0, 2);
    EXPECT_THAT(selection(), IsEmpty());
    EXPECT_EQ(grid.row(), -1);
}

TEST_F(GridTest, RowChangeIsHeardOncePerChange) {
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

TEST_F(GridTest, WithRedrawingOffThePeerHearsOnce) {
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

TEST_F(GridTest, ARowThatHasGoneMeanwhileIsNotScrolledTo) {
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

class GridEditTest : public GridTest {
  protected:
    GridEditTest() {
        fill(2);
        grid.setColEditable(1, true);
    }
};

TEST_F(GridEditTest, AnEditIsAppliedInTwoSteps) {
    std::vector<std::string> log;
    const auto after =
        grid.afterEdit.subscribe([&](int row, int col) { log.push_back(grid.text(row, col)); });
    ASSERT_TRUE(grid.beginEdit(1, 1));
    EXPECT_EQ(grid.text(1, 1), "a");
    EXPECT_TRUE(grid.commitEdit("edited"));
    EXPECT_THAT(log, ElementsAre("edited"));
    EXPECT_FALSE(grid.isEditing());
}

TEST_F(GridEditTest, AHandlerMayRefuseTheBeginning) {
    const auto veto = grid.beforeEdit.subscribe([](CellEdit& edit) { edit.cancel = true; });
    EXPECT_FALSE(grid.beginEdit(1, 1));
    EXPECT_FALSE(grid.isEditing());
}

TEST_F(GridEditTest, AHandlerMayRefuseTheValueAndTheEditGoesOn) {
    const auto veto = grid.validateEdit.subscribe([](CellEdit& edit) { edit.cancel = edit.text.empty(); });
    ASSERT_TRUE(grid.beginEdit(1, 1));
    EXPECT_FALSE(grid.commitEdit(""));
    EXPECT_TRUE(grid.isEditing());
    EXPECT_TRUE(grid.commitEdit("fine"));
    EXPECT_EQ(grid.text(1, 1), "fine");
}

TEST_F(GridEditTest, AnUnchangedValueTellsNobody) {
    int heard = 0;
    const auto after = grid.afterEdit.subscribe([&](int, int) { ++heard; });
    ASSERT_TRUE(grid.beginEdit(1, 1));
    EXPECT_TRUE(grid.commitEdit("a"));
    EXPECT_EQ(heard, 0);
}

TEST_F(GridEditTest, HeadingsAndLockedColumnsAreNotEdited) {
    EXPECT_FALSE(grid.beginEdit(0, 1));
    EXPECT_FALSE(grid.beginEdit(1, 0));
    EXPECT_FALSE(grid.beginEdit(9, 1));
}

}  // namespace
}  // namespace pellmark::test
