#include "controls/grid/GridPages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "knowledge/MemoryRecordSet.h"
#include "support/FormHarness.h"
#include "support/RecordingPrinter.h"

namespace pellmark::test {
namespace {

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::Le;
using testing::Not;

class GridPagesTest : public testing::Test, protected FormHarness {
  protected:
    GridPagesTest() {
        grid.setHeadings("Id|Name|Unit");
        const char* keys[] = {"_Id", "_Name", "_Unit"};
        for (int col = 0; col < 3; ++col)
            grid.setColKey(col, keys[col]);
        grid.setColComboList(2, "#70;Inch|#71;Metric");
        grid.setColHidden(0, true);
        fill(2);
    }
    void fill(int rows) {
        auto records = std::make_shared<MemoryRecordSet>(std::vector<std::string>{"_Id", "_Name", "_Unit"});
        for (int row = 1; row <= rows; ++row)
            records->addRow({"id", "P" + std::to_string(row), "71"});
        grid.bind(records);
    }
    RecordingPrinter::Document& print() {
        const auto document = printer.begin("x");
        GridPages pages(grid, "Processes", {}, *document);
        EXPECT_TRUE(pages.paginate([](int) { return true; }));
        for (int page = 0; page < pages.count(); ++page) {
            if (page > 0) document->newPage();
            pages.draw(page);
        }
        return printer.documents.back();
    }
    const RecordingPrinter::Text& drawn(const RecordingPrinter::Document& document, const std::string& text) {
        for (const auto& page : document.pages) {
            for (const auto& each : page.texts) {
                if (each.text == text) return each;
            }
        }
        ADD_FAILURE() << "not drawn: " << text;
        return document.pages.front().texts.front();
    }
    /// The names of the rows, page by page, as they come.
    static std::vector<std::string> names(const RecordingPrinter::Document& document) {
        std::vector<std::string> found;
        for (std::size_t page = 0; page < document.pages.size(); ++page) {
            for (const std::string& text : document.texts(page)) {
                if (text.starts_with('P') && text != "Processes") found.push_back(text);
            }
        }
        return found;
    }

    Grid grid{form, "VSFG"};
    RecordingPrinter printer;
};

TEST_F(GridPagesTest, APageHasTitleHeadingsRowsAndItsNumber) {
    EXPECT_THAT(print().texts(0),
                ElementsAre("Processes", "Name", "Unit", "P1", "Metric", "P2", "Metric", "1 / 1"));
}

TEST_F(GridPagesTest, ColumnsFillThePageInTheProportionsOfTheScreen) {
    grid.setColWidth(1, 3000);
    grid.setColWidth(2, 1000);
    const auto& document = print();
    // 400 at either side of 10,000 leave 9,200, three quarters of which are the first column's
    EXPECT_EQ(drawn(document, "Name").at.left, 400);
    EXPECT_EQ(drawn(document, "Unit").at.left, 400 + 6900);
    EXPECT_EQ(drawn(document, "P1").at.left, 400);
    EXPECT_EQ(drawn(document, "Metric").at.left, 7300);
}

TEST_F(GridPagesTest, ColumnsStandInTheOrderOfTheScreenWithoutHiddenOnes) {
    grid.setColPosition(2, 0);
    EXPECT_THAT(print().texts(0),
                ElementsAre("Processes", "Unit", "Name", "Metric", "P1", "Metric", "P2", "1 / 1"));
}

TEST_F(GridPagesTest, EveryRowStandsOnceInOrderAndHeadingsOnEachPage) {
    fill(1000);
    const auto& document = print();
    std::vector<std::string> expected;
    for (int row = 1; row <= 1000; ++row)
        expected.push_back("P" + std::to_string(row));
    EXPECT_EQ(names(document), expected);
    const std::size_t pages = document.pages.size();
    EXPECT_GT(pages, 10U);
    for (std::size_t page = 0; page < pages; ++page) {
        const auto texts = document.texts(page);
        EXPECT_EQ(texts[0], "Processes");
        EXPECT_EQ(texts[1], "Name");
        EXPECT_EQ(texts[2], "Unit");
        EXPECT_EQ(texts.back(), std::to_string(page + 1) + " / " + std::to_string(pages));
    }
}

TEST_F(GridPagesTest, NothingIsDrawnBeyondThePageOrOverTheNumber) {
    fill(300);
    for (const auto& page : print().pages) {
        for (const auto& text : page.texts) {
            EXPECT_GE(text.at.top, 400);
            EXPECT_LE(text.at.top + RecordingPrinter::kLine, 13600);
        }
        const Twips number = page.texts.back().at.top;
        EXPECT_EQ(
            std::count_if(page.texts.begin(), page.texts.end(),
                          [&](const auto& each) { return each.at.top + RecordingPrinter::kLine > number; }),
            1);
    }
}

TEST_F(GridPagesTest, NoTwoRowsStandOverEachOther) {
    grid.setText(1, 1, std::string(200, 'x'));
    const auto& document = print();
    const auto& first = document.pages[0].texts;
    Twips lowest = 0;
    for (const auto& each : first) {
        if (each.text.starts_with('x')) lowest = std::max(lowest, each.at.top);
    }
    EXPECT_GE(drawn(document, "P2").at.top, lowest + RecordingPrinter::kLine);
}

TEST_F(GridPagesTest, ALongTextGoesOnInFurtherLines) {
    grid.setText(1, 1, "drill\r\nand ream");
    const auto& document = print();
    const auto& first = drawn(document, "drill");
    const auto& second = drawn(document, "and ream");
    EXPECT_EQ(second.at.left, first.at.left);
    EXPECT_EQ(second.at.top, first.at.top + RecordingPrinter::kLine);
}

TEST_F(GridPagesTest, ARowThatDoesNotFitBeginsAPageOfItsOwn) {
    fill(40);
    std::string tall;
    for (int line = 0; line < 30; ++line)
        tall += (line > 0 ? "\n" : "") + std::string("T") + std::to_string(line);
    grid.setText(40, 1, tall);
    const auto& document = print();
    const auto& last = document.texts(document.pages.size() - 1);
    EXPECT_THAT(last, Contains("T0"));
    EXPECT_THAT(last, Contains("T29"));
    EXPECT_THAT(last, Not(Contains("P39")));
}

TEST_F(GridPagesTest, ARowThatIsTallerThanAPageGoesOnOverSeveral) {
    fill(3);
    std::string tall;
    for (int line = 0; line < 150; ++line)
        tall += (line > 0 ? "\n" : "") + std::string("P1.") + std::to_string(line);
    grid.setText(2, 1, tall);
    const auto& document = print();
    std::vector<std::string> expected{"P1"};
    for (int line = 0; line < 150; ++line)
        expected.push_back("P1." + std::to_string(line));
    expected.push_back("P3");
    EXPECT_EQ(names(document), expected);
    EXPECT_GE(document.pages.size(), 4U);
}

TEST_F(GridPagesTest, APageThatHasRoomForNothingStillTakesALineEach) {
    fill(3);
    printer.page = {2000, 500};
    const auto& document = print();
    EXPECT_THAT(names(document), ElementsAre("P1", "P2", "P3"));
}

TEST_F(GridPagesTest, AnEmptyGridIsAPageOfHeadings) {
    grid.bind(nullptr);
    EXPECT_THAT(print().texts(0), ElementsAre("Processes", "Name", "Unit", "1 / 1"));
}

TEST_F(GridPagesTest, LooksOfCellsArePrinted) {
    grid.setItalic(1, 1, true);
    grid.setForeColor(2, 1, kRed);
    const auto& document = print();
    EXPECT_TRUE(drawn(document, "P1").font.italic);
    EXPECT_EQ(drawn(document, "P1").color, kBlack);
    EXPECT_FALSE(drawn(document, "P2").font.italic);
    EXPECT_EQ(drawn(document, "P2").color, kRed);
    EXPECT_TRUE(drawn(document, "Name").font.bold);
    EXPECT_TRUE(drawn(document, "Processes").font.bold);
    EXPECT_FALSE(drawn(document, "Name").font.italic);
    EXPECT_FALSE(drawn(document, "Processes").font.italic);
    EXPECT_FALSE(drawn(document, "P1").font.bold);
    EXPECT_FALSE(drawn(document, "1 / 1").font.bold);
}

TEST_F(GridPagesTest, TheFontIsTheOneGiven) {
    const auto document = printer.begin("x");
    GridPages pages(grid, "t", Font{"Arial", 20, false, true}, *document);
    pages.paginate([](int) { return true; });
    pages.draw(0);
    const auto& texts = printer.documents.back().pages[0].texts;
    for (const auto& each : texts) {
        EXPECT_EQ(each.font.name, "Arial");
        EXPECT_EQ(each.font.size, 20);
        EXPECT_TRUE(each.font.italic);
    }
    EXPECT_EQ(texts[3].text, "P1");
    EXPECT_EQ(texts[5].at.top - texts[3].at.top, 480 + 60) << "a line of 20 points and the gap";
}

TEST_F(GridPagesTest, PaginatingStopsWhenItIsTold) {
    fill(100);
    const auto document = printer.begin("x");
    GridPages pages(grid, "t", {}, *document);
    int last = 0;
    EXPECT_FALSE(pages.paginate([&](int rows) { return (last = rows) < 40; }));
    EXPECT_EQ(last, 40);
}

TEST_F(GridPagesTest, AWideGridWantsSidewaysPaper) {
    grid.setColWidth(0, 90'000);  // hidden, so it does not count
    grid.setColWidth(1, 10'000);
    grid.setColWidth(2, 500);
    EXPECT_EQ(orientationFor(grid), Orientation::Portrait);
    grid.setColWidth(2, 501);
    EXPECT_EQ(orientationFor(grid), Orientation::Landscape);
}

TEST_F(GridPagesTest, RowsBeginRightBelowTheirHeadings) {
    const auto& document = print();
    const Twips below = drawn(document, "P1").at.top - drawn(document, "Name").at.top;
    EXPECT_GE(below, RecordingPrinter::kLine);
    EXPECT_LT(below, 2 * RecordingPrinter::kLine);
    const auto& lines = document.pages[0].lines;
    ASSERT_EQ(lines.size(), 3U) << "below the headings and below each row";
    EXPECT_GE(lines[0].from.top, drawn(document, "Name").at.top + RecordingPrinter::kLine);
    EXPECT_LE(lines[0].from.top, drawn(document, "P1").at.top);
}

TEST_F(GridPagesTest, ATextIsBrokenByTheWidthThatItsOwnFontTakes) {
    printer.boldAdds = RecordingPrinter::kCharacter;
    const std::string wide(40, 'w');
    for (int row = 0; row < 3; ++row)
        grid.setText(row, 1, wide);
    const std::vector<std::string> texts = print().texts(0);
    EXPECT_EQ(std::count(texts.begin(), texts.end(), wide), 2) << "the heading is bold and takes two lines";
}

}  // namespace
}  // namespace pellmark::test
