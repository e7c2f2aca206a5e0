#include "controls/grid/DelimitedExport.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "knowledge/MemoryRecordSet.h"
#include "support/FormHarness.h"

namespace pellmark::test {
namespace {

class DelimitedExportTest : public testing::Test, protected FormHarness {
  protected:
    DelimitedExportTest() {
        grid.setHeadings("Id|Name|Unit");
        const char* keys[] = {"_Id", "_Name", "_Unit"};
        for (int col = 0; col < 3; ++col)
            grid.setColKey(col, keys[col]);
        fill({"a", "b"});
    }
    void fill(const std::vector<std::string>& names) {
        auto records = std::make_shared<MemoryRecordSet>(std::vector<std::string>{"_Id", "_Name", "_Unit"});
        for (const std::string& name : names)
            records->addRow({"id-" + name, name, names.front() == name ? "70" : "71"});
        grid.bind(records);
    }
    std::string exported(char separator, bool withFixed = true, bool escapeFormulas = false) {
        std::string text;
        writeDelimited(grid, {separator, withFixed, escapeFormulas},
                       [&](std::string_view piece, int) { text += piece; });
        return text;
    }
    /// One cell that holds this text, as the file has it where formulas are escaped.
    std::string escaped(const std::string& cell) {
        grid.setHeadings("Name");
        grid.setRows(2);
        grid.setText(1, 0, cell);
        const std::string line = exported(';', false, true);
        return line.substr(0, line.size() - 2);
    }

    Grid grid{form, "VSFG"};
};

TEST_F(DelimitedExportTest, ShownTextsAreWrittenHiddenColumnsIncluded) {
    grid.setColComboList(2, "#70;Inch|#71;Metric");
    grid.setColHidden(0, true);
    EXPECT_EQ(exported(','), "Id,Name,Unit\r\nid-a,a,Inch\r\nid-b,b,Metric\r\n");
    EXPECT_EQ(exported('\t', false), "id-a\ta\tInch\r\nid-b\tb\tMetric\r\n");
}

TEST_F(DelimitedExportTest, FixedColumnsAreLeftOutWithTheHeadings) {
    grid.setFixedCols(1);
    EXPECT_EQ(exported(',', false), "a,70\r\nb,71\r\n");
    EXPECT_EQ(exported(','), "Id,Name,Unit\r\nid-a,a,70\r\nid-b,b,71\r\n");
}

TEST_F(DelimitedExportTest, OnlyWhatNeedsItIsQuoted) {
    grid.setText(1, 1, "a,\"b\"");
    grid.setText(2, 1, "two\nlines");
    EXPECT_EQ(exported(',', false), "id-a,\"a,\"\"b\"\"\",70\r\nid-b,\"two\nlines\",71\r\n");
    EXPECT_EQ(exported('\t', false), "id-a\t\"a,\"\"b\"\"\"\t70\r\nid-b\t\"two\nlines\"\t71\r\n");
    grid.setText(1, 1, "a\tb");
    grid.setText(2, 1, "\r");
    EXPECT_EQ(exported('\t', false), "id-a\t\"a\tb\"\t70\r\nid-b\t\"\r\"\t71\r\n");
    EXPECT_EQ(exported(',', false), "id-a,a\tb,70\r\nid-b,\"\r\",71\r\n");
}

TEST_F(DelimitedExportTest, HeadingsAreQuotedToo) {
    grid.setText(0, 1, "Name, long");
    EXPECT_TRUE(exported(',').starts_with("Id,\"Name, long\",Unit\r\n"));
}

TEST_F(DelimitedExportTest, ALargeTextComesInPiecesOfWholeRows) {
    fill(std::vector<std::string>(10'000, "x"));
    std::string text;
    std::vector<int> done;
    writeDelimited(grid, {}, [&](std::string_view piece, int rowsDone) {
        EXPECT_TRUE(piece.ends_with("\r\n"));
        EXPECT_LT(piece.size(), 70'000U);
        text += piece;
        done.push_back(rowsDone);
    });
    EXPECT_EQ(text, exported(','));
    ASSERT_GE(done.size(), 2U);
    EXPECT_TRUE(std::is_sorted(done.begin(), done.end()));
    EXPECT_GT(done.front(), 1);
    EXPECT_EQ(done.back(), grid.rows());
}

TEST_F(DelimitedExportTest, FormulasAreLeftAsTheyAreUnlessAsked) {
    fill({"=1+1"});
    EXPECT_EQ(exported(',', false), "id-=1+1,=1+1,70\r\n");
    EXPECT_EQ(exported(',', false, true), "id-=1+1,'=1+1,70\r\n");
}

TEST_F(DelimitedExportTest, WhatASpreadsheetWouldRunGetsAnApostrophe) {
    for (const char* formula : {"=1", "+1+1", "-1-1", "@SUM(A1)", "-", "+", "-M8"})
        EXPECT_EQ(escaped(formula), std::string("'") + formula);
    EXPECT_EQ(escaped("\t=1"), "'\t=1");
    EXPECT_EQ(escaped("=\"a\";1"), "\"'=\"\"a\"\";1\"");
}

TEST_F(DelimitedExportTest, SignedNumbersAndOtherTextsGetNone) {
    for (const char* plain : {"", "-1", "+0.5", "-10,25", "8", "M8", "a=b", "'x"})
        EXPECT_EQ(escaped(plain), plain);
}

}  // namespace
}  // namespace pellmark::test
