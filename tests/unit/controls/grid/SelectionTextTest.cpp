#include "controls/grid/SelectionText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "knowledge/MemoryRecordSet.h"
#include "support/FormHarness.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class SelectionTextTest : public testing::Test, protected FormHarness {
  protected:
    SelectionTextTest() {
        grid.setHeadings("Id|Name|Unit");
        const char* keys[] = {"_Id", "_Name", "_Unit"};
        for (int col = 0; col < 3; ++col)
            grid.setColKey(col, keys[col]);
        grid.setColComboList(2, "#70;Inch|#71;Metric");
        auto records = std::make_shared<MemoryRecordSet>(std::vector<std::string>{"_Id", "_Name", "_Unit"});
        for (const char* name : {"Drill", "Ream", "Tap"})
            records->addRow({std::string("{") + name + "}", name, "71"});
        grid.bind(records);
        grid.setColHidden(0, true);
    }
    /// The text of one cell in the first row, as the table holds it.
    std::string cell(const std::string& text) {
        grid.setText(1, 1, text);
        grid.select(1, 1);
        const std::string html = selectionAsHtmlTable(grid);
        const std::size_t begin = html.find("<td");
        return html.substr(begin, html.find("</td>") - begin);
    }

    Grid grid{form, "VSFG"};
};

constexpr const char* kText = "<td style='mso-number-format:\"\\@\"'>";

TEST_F(SelectionTextTest, ShownColumnsAreThoseOfTheScreenInItsOrder) {
    grid.setColPosition(2, 0);
    EXPECT_THAT(shownColumns(grid), ElementsAre(2, 1));
    grid.setColWidth(1, 0);
    EXPECT_THAT(shownColumns(grid), ElementsAre(2));
}

TEST_F(SelectionTextTest, RowsStandUnderTheHeadingsInTheOrderOfTheScreenWithShownTexts) {
    grid.setSelected(3, true);
    grid.setSelected(1, true);
    EXPECT_EQ(selectionAsTabbedText(grid), "Name\tUnit\r\nDrill\tMetric\r\nTap\tMetric\r\n");
}

TEST_F(SelectionTextTest, CellsThatWouldBreakTheLineAreQuoted) {
    grid.setText(1, 1, "a\tb");
    grid.setText(2, 1, "say \"x\"\r\ny");
    grid.setText(3, 1, "a,b;c");
    grid.selectAll();
    EXPECT_EQ(selectionAsTabbedText(grid),
              "Name\tUnit\r\n\"a\tb\"\tMetric\r\n\"say \"\"x\"\"\r\ny\"\tMetric\r\na,b;c\tMetric\r\n");
}

TEST_F(SelectionTextTest, NothingSelectedIsNothing) {
    EXPECT_EQ(selectionAsTabbedText(grid), "");
    EXPECT_EQ(selectionAsHtmlTable(grid), "");
}

TEST_F(SelectionTextTest, TheTableHasARowOfHeadingsAndOnePerSelectedRow) {
    grid.setText(1, 1, "8");
    grid.setSelected(1, true);
    grid.setSelected(2, true);
    EXPECT_EQ(selectionAsHtmlTable(grid),
              "<table style=\"white-space:pre-wrap\">\r\n"
              "<tr><th style='mso-number-format:\"\\@\"'>Name</th><th "
              "style='mso-number-format:\"\\@\"'>Unit</th></tr>\r\n"
              "<tr><td>8</td><td style='mso-number-format:\"\\@\"'>Metric</td></tr>\r\n"
              "<tr><td style='mso-number-format:\"\\@\"'>Ream</td><td "
              "style='mso-number-format:\"\\@\"'>Metric</td></tr>\r\n"
              "</table>");
}

TEST_F(SelectionTextTest, WhatMeansSomethingInHtmlIsEscaped) {
    EXPECT_EQ(cell("a<b>&\"c\""), std::string(kText) + "a&lt;b&gt;&amp;&quot;c&quot;");
}

TEST_F(SelectionTextTest, LineBreaksOfEveryKindStayInTheirCell) {
    const std::string line = "<br style=\"mso-data-placement:same-cell\">";
    EXPECT_EQ(cell("a\r\nb\nc\rd"), kText + ("a" + line + "b" + line + "c" + line + "d"));
}

TEST_F(SelectionTextTest, PlainNumbersStayNumbers) {
    for (const char* number : {"0", "8", "-8", "0.5", "10,25", "-0.125", "123456789012345"})
        EXPECT_EQ(cell(number), std::string("<td>") + number);
}

TEST_F(SelectionTextTest, WhatASpreadsheetWouldReadOtherwiseIsText) {
    for (const char* text : {"", "-", "007", "00.5", "3/8", "1-2", "=D/2", "+5", "1e5", "M8", "1.2.3", "1.",
                             ".5", "2.50", "1234567890123456", "1 000", "--1"}) {
        EXPECT_EQ(cell(text), std::string(kText) + text);
    }
}

}  // namespace
}  // namespace pellmark::test
