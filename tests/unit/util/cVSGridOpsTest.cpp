#include "util/cVSGridOps.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/Error.h"
#include "controls/grid/SelectionText.h"
#include "knowledge/MemoryRecordSet.h"
#include "support/PortsHarness.h"
#include "util/FrmFormatColumns.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CVSGridOpsTest : public testing::Test, protected ServicesHarness {
  protected:
    CVSGridOpsTest() {
        grid.setHeadings("Name|Id|Note");
        const char* keys[] = {"_Name", "_id", "_Note"};
        for (int col = 0; col < 3; ++col)
            grid.setColKey(col, keys[col]);
        auto records = std::make_shared<MemoryRecordSet>(std::vector<std::string>{"_Id", "_Name", "_Note"});
        for (const char* name : {"a", "b", "c"})
            records->addRow({std::string("id-") + name, name, "n,ote"});
        grid.bind(records);
    }
    std::string save() { return ops.SaveSelectionAsDelimitedFile(grid, "C:\\out.csv", ","); }

    Grid grid{form, "VSFG"};
    cVSGridOps& ops = services.gridOps;
};

TEST_F(CVSGridOpsTest, RowDataIsTakenFromTheIdentifierColumnWhateverItsCase) {
    ops.SetRowDataToIds(grid);
    EXPECT_EQ(grid.rowData(1), "id-a");
    EXPECT_EQ(grid.rowData(3), "id-c");
}

TEST_F(CVSGridOpsTest, WithoutAnIdentifierColumnRowsKeepTheirData) {
    grid.setRowData(1, "kept");
    grid.setColKey(1, "_KeyId");
    ops.SetRowDataToIds(grid);
    EXPECT_EQ(grid.rowData(1), "kept");
    EXPECT_EQ(grid.rowData(2), "");
}

TEST_F(CVSGridOpsTest, SelectedIdsComeInSelectionOrderWithMinusOneForNone) {
    ops.SetRowDataToIds(grid);
    grid.setRowData(2, "");
    for (const int row : {3, 2, 1})
        grid.setSelected(row, true);
    EXPECT_THAT(ops.SelectedIds(grid), ElementsAre("id-c", "-1", "id-a"));
    grid.clearSelection();
    EXPECT_THAT(ops.SelectedIds(grid), IsEmpty());
}

TEST_F(CVSGridOpsTest, SelectedIdIsThatOfTheCurrentRow) {
    ops.SetRowDataToIds(grid);
    EXPECT_EQ(ops.SelectedId(grid), "");
    grid.select(2, 0);
    EXPECT_EQ(ops.SelectedId(grid), "id-b");
}

TEST_F(CVSGridOpsTest, SelectAllTakesEveryDataRow) {
    grid.setFixedCols(1);
    grid.setSelected(3, true);
    ops.SelectAll(grid);
    EXPECT_EQ(grid.selectedRows(), 3);
    EXPECT_FALSE(grid.isSelected(0));
    EXPECT_EQ(grid.selectedRow(0), 1) << "the block is selected anew, from its first row";
    EXPECT_EQ(grid.row(), 1);
    EXPECT_EQ(grid.col(), 1);
}

TEST_F(CVSGridOpsTest, OfAnEmptyGridNothingIsSelected) {
    grid.bind(nullptr);
    ops.SelectAll(grid);
    EXPECT_EQ(grid.selectedRows(), 0);
    EXPECT_EQ(grid.row(), -1);
    ops.InverseSelection(grid);
    EXPECT_EQ(grid.selectedRows(), 0);
}

TEST_F(CVSGridOpsTest, TheTemporaryFolderIsTheSystems) {
    EXPECT_EQ(ops.GetTempFolderPath(), files.temporary);
    files.temporary.clear();
    EXPECT_EQ(ops.GetTempFolderPath(), "");
}

TEST_F(CVSGridOpsTest, SelectedRowsAreWrittenUnquotedUnderTheirHeadings) {
    grid.setSelected(3, true);
    grid.setSelected(1, true);
    const std::string text = save();
    EXPECT_EQ(text, "Name,Id,Note\r\nc,id-c,n,ote\r\na,id-a,n,ote\r\n\r\n");
    EXPECT_EQ(files.contents("C:\\out.csv"), text);
}

TEST_F(CVSGridOpsTest, IdentifiersAndPicturesAreLeftOut) {
    grid.setText(1, 1, "{00000000-0000-0000-0000-000000000001}");
    grid.setPicture(1, 0, 2);
    grid.setSelected(1, true);
    EXPECT_EQ(save(), "Note\r\nn,ote\r\n\r\n");
}

TEST_F(CVSGridOpsTest, ALeftOutLastColumnLeavesItsSeparatorBehind) {
    grid.setText(1, 2, "{id}");
    grid.setSelected(1, true);
    EXPECT_EQ(save(), "Name,Id,\r\na,id-a,\r\n\r\n");
}

TEST_F(CVSGridOpsTest, TheHeadingLineFollowsTheFirstSelectedRow) {
    grid.setText(2, 1, "{id}");
    for (const int row : {1, 2})
        grid.setSelected(row, true);
    EXPECT_EQ(save(), "Name,Id,Note\r\na,id-a,n,ote\r\nb,n,ote\r\n\r\n");
}

TEST_F(CVSGridOpsTest, StoredTextsOfAllColumnsAreWrittenInTheListsOwnOrder) {
    grid.setText(1, 2, "71");
    grid.setColComboList(2, "#70;Inch|#71;Metric");
    grid.setColHidden(1, true);
    grid.setColPosition(2, 0);
    grid.setSelected(1, true);
    EXPECT_EQ(save(), "Name,Id,Note\r\na,id-a,71\r\n\r\n");
}

TEST_F(CVSGridOpsTest, OnlyATextThatBeginsWithABraceIsAnIdentifier) {
    grid.setText(1, 0, "a{b}");
    grid.setText(1, 2, " {c}");
    grid.setSelected(1, true);
    EXPECT_EQ(save(), "Name,Id,Note\r\na{b},id-a, {c}\r\n\r\n");
}

TEST_F(CVSGridOpsTest, TheSeparatorIsTheCallers) {
    grid.setSelected(1, true);
    EXPECT_EQ(ops.SelectionAsDelimitedText(grid, "\t"), "Name\tId\tNote\r\na\tid-a\tn,ote\r\n\r\n");
}

/// Records that cannot be read any more.
class FailingRecords : public MemoryRecordSet {
  public:
    FailingRecords() : MemoryRecordSet({"_Id", "_Name"}) { addRow({"id", "name"}); }
    std::string text(std::size_t, std::size_t) override { fail(); }
    void appendText(std::size_t, std::size_t, std::string&) override { fail(); }

  private:
    [[noreturn]] static void fail() {
        throw Error(errors::kNotFound, "FailingRecords", "The record is gone.");
    }
};

TEST_F(CVSGridOpsTest, WhatTheGridFailsReachesTheCallerAndWritesNothing) {
    grid.bind(std::make_shared<FailingRecords>());
    grid.setSelected(1, true);
    EXPECT_THROW(save(), Error);
    EXPECT_FALSE(files.has("C:\\out.csv"));
    EXPECT_THROW(ops.SetRowDataToIds(grid), Error);
    EXPECT_TRUE(trace.lines().empty()) << "it is the caller's to trace";
}

TEST_F(CVSGridOpsTest, AnEmptySelectionWritesTwoLineBreaks) {
    EXPECT_EQ(save(), "\r\n\r\n");
}

TEST_F(CVSGridOpsTest, AnExistingFileIsReplaced) {
    files.makeFile("C:\\out.csv", std::string(1000, 'x'));
    save();
    EXPECT_EQ(files.contents("C:\\out.csv"), "\r\n\r\n");
}

TEST_F(CVSGridOpsTest, AFileThatCannotBeWrittenIsTracedAndTheTextIsThereAllTheSame) {
    files.breakDown(true);
    EXPECT_EQ(save(), "\r\n\r\n");
    EXPECT_TRUE(trace.trapped("cFileIO::WriteFile"));
}

TEST_F(CVSGridOpsTest, FormatColumnsOpensTheChooserForTheGridOverItsOwner) {
    form.load();
    desktop.expectDialog("FrmFormatColumns", [](Form& dialog) {
        auto& chooser = static_cast<FrmFormatColumns&>(dialog);
        ASSERT_EQ(chooser.List.count(), 2);
        chooser.List.setSelected(1, false);
        chooser.CmdOK.click();
    });
    ops.FormatColumns(grid, form);
    EXPECT_TRUE(grid.colHidden(2));
    EXPECT_THAT(desktop.windows(),
                testing::Contains("modal FrmFormatColumns " + std::to_string(form.handle())));
}

TEST_F(CVSGridOpsTest, ALayoutIsCopiedToTheColumnsOfTheSameKeys) {
    grid.setColWidth(0, 1111);
    grid.setColHidden(1, true);
    grid.setColPosition(2, 0);
    Grid target(form, "VSFGOther");
    target.setHeadings("Rule|Note|Id|Name|");
    const char* keys[] = {"_Rule", "_note", "_Id", "_NAME", ""};
    for (int col = 0; col < target.cols(); ++col)
        target.setColKey(col, keys[col]);
    target.setColWidth(4, 4444);
    target.setColHidden(3, true);
    int changes = 0;
    const auto heard = target.gridChanged.subscribe([&](const GridChange&) { ++changes; });
    ops.SetGrids(grid, target);
    EXPECT_THAT(target.displayOrder(), ElementsAre(1, 3, 2, 0, 4));
    EXPECT_EQ(target.colWidth(3), 1111);
    EXPECT_FALSE(target.colHidden(3));
    EXPECT_TRUE(target.colHidden(2));
    EXPECT_EQ(target.colWidth(4), 4444) << "no key, no counterpart";
    EXPECT_EQ(target.colWidth(0), GridColumn::kDefaultWidth) << "nor is a key that the source lacks one";
    EXPECT_EQ(changes, 1);
    EXPECT_FALSE(target.widthsChosen());
    grid.userResizedColumn(0, 1234);
    ops.SetGrids(grid, target);
    EXPECT_TRUE(target.widthsChosen());
}

TEST_F(CVSGridOpsTest, TheSelectionIsCopiedAsTextAndAsATable) {
    form.load();
    grid.setColHidden(1, true);
    grid.select(2, 0);
    ops.CopySelection(grid);
    ASSERT_EQ(clipboard.puts.size(), 1U);
    EXPECT_EQ(clipboard.puts[0].content.text, "Name\tNote\r\nb\tn,ote\r\n");
    EXPECT_EQ(clipboard.puts[0].content.htmlFragment, selectionAsHtmlTable(grid));
    EXPECT_EQ(clipboard.puts[0].owner, form.handle());
}

TEST_F(CVSGridOpsTest, WithoutASelectionTheClipboardIsLeftAlone) {
    ops.CopySelection(grid);
    EXPECT_THAT(clipboard.puts, IsEmpty());
}

TEST_F(CVSGridOpsTest, AClipboardThatAnotherProgramKeepsIsTold) {
    clipboard.isOpenElsewhere = true;
    grid.select(2, 0);
    desktop.expectMessage("The clipboard is in use by another program. Please try again.");
    ops.CopySelection(grid);
    EXPECT_EQ(desktop.messages().back().icon, MessageIcon::Critical);
}

TEST_F(CVSGridOpsTest, ARunIsContiguousInWhateverOrderItWasSelected) {
    EXPECT_TRUE(ops.ContiguousSelection(grid));
    grid.setSelected(3, true);
    EXPECT_TRUE(ops.ContiguousSelection(grid));
    grid.setSelected(1, true);
    EXPECT_FALSE(ops.ContiguousSelection(grid));
    grid.setSelected(2, true);
    EXPECT_TRUE(ops.ContiguousSelection(grid));
    grid.select(1, 0);
    grid.setSelected(2, true);
    EXPECT_TRUE(ops.ContiguousSelection(grid));
}

TEST_F(CVSGridOpsTest, InvertingSelectsTheOtherRowsAlone) {
    const auto inverted = [this] {
        ops.InverseSelection(grid);
        std::vector<int> rows;
        for (int row = 0; row < grid.rows(); ++row) {
            if (grid.isSelected(row)) rows.push_back(row);
        }
        return rows;
    };
    EXPECT_THAT(inverted(), ElementsAre(1, 2, 3));
    EXPECT_THAT(inverted(), IsEmpty());
    grid.setSelected(2, true);
    EXPECT_THAT(inverted(), ElementsAre(1, 3));
    EXPECT_THAT(inverted(), ElementsAre(2));
    grid.setSelected(1, true);
    EXPECT_THAT(inverted(), ElementsAre(3));
}

TEST_F(CVSGridOpsTest, TheStatusBarNamesTheCurrentRowAndHowManyThereAre) {
    StatusBar bar(2);
    grid.select(2, 0);
    ops.SetStatusBarText(grid, bar);
    EXPECT_EQ(bar.panel(1), "Row 2 of 3");
    EXPECT_EQ(bar.panel(0), "");
    library.translations = {{"Row", "Zeile"}, {"of", "von"}};
    ops.SetStatusBarText(grid, bar);
    EXPECT_EQ(bar.panel(1), "Zeile 2 von 3");
}

TEST_F(CVSGridOpsTest, TheStatusBarOfAListWithoutRowsIsCleared) {
    StatusBar bar(2);
    bar.setPanel(1, "Row 2 of 3");
    grid.bind(nullptr);
    ops.SetStatusBarText(grid, bar);
    EXPECT_EQ(bar.panel(1), "");
}

TEST_F(CVSGridOpsTest, WithoutACurrentRowTheStatusBarCountsFromNone) {
    StatusBar bar(2);
    ops.SetStatusBarText(grid, bar);
    EXPECT_EQ(bar.panel(1), "Row 0 of 3");
    StatusBar narrow(1);
    ops.SetStatusBarText(grid, narrow);
    EXPECT_EQ(narrow.panel(0), "");
}

}  // namespace
}  // namespace pellmark::test
