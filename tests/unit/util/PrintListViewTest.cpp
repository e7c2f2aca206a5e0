#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "controls/list/ListPages.h"
#include "support/PortsHarness.h"
#include "util/cListViewOps.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PrintListViewTest : public testing::Test, protected ServicesHarness {
  protected:
    PrintListViewTest() {
        list.setColumnHeaders({{"Name", 2000}, {"Unit", 1000}});
        list.add({"1", "Drill", {"Metric"}});
        list.add({"2", "Ream", {"Inch"}});
    }
    const RecordingPrinter::Document& printed(const Font& font = {}) {
        const auto document = printer.begin("x");
        printList(list, font, *document);
        return printer.documents.back();
    }
    void print() { cListViewOps::PrintListView({services.person, services.dialogs, printer, idle}, list, 7); }

    ListView list{form, "Lvw"};
};

TEST_F(PrintListViewTest, HeadingsAndRowsStandAtTheirColumns) {
    const auto& document = printed();
    EXPECT_THAT(document.texts(0), ElementsAre("Name", "Unit", "Drill", "Metric", "Ream", "Inch"));
    const auto& texts = document.pages[0].texts;
    EXPECT_EQ(texts[0].at, (Point{500, 500}));
    EXPECT_EQ(texts[1].at, (Point{2500, 500}));
    EXPECT_EQ(texts[2].at, (Point{500, 800}));
    EXPECT_EQ(texts[3].at, (Point{2500, 800}));
    EXPECT_EQ(texts[4].at, (Point{500, 1040}));
    EXPECT_TRUE(texts[0].font.bold);
    EXPECT_FALSE(texts[2].font.bold);
    EXPECT_TRUE(document.ended);
}

TEST_F(PrintListViewTest, ATextIsShortenedToItsColumn) {
    list.add({"3", std::string(30, 'x'), {"ok"}});
    // 2000 less the gap of 100 are 19 characters
    EXPECT_EQ(printed().texts(0).at(6), std::string(16, 'x') + "...");
}

TEST_F(PrintListViewTest, ColumnsThatAreWiderThanThePageAreNarrowedTogether) {
    list.setColumnHeaders({{"Name", 27000}, {"Unit", 9000}});
    EXPECT_EQ(printed().pages[0].texts[1].at.left, 500 + 6750);
}

TEST_F(PrintListViewTest, EachPageRepeatsTheHeadings) {
    for (int item = 3; item <= 120; ++item)
        list.add(std::to_string(item), "N" + std::to_string(item));
    const auto& document = printed();
    ASSERT_EQ(document.pages.size(), 3U);
    std::size_t rows = 0;
    for (std::size_t page = 0; page < 3; ++page) {
        const auto texts = document.texts(page);
        EXPECT_EQ(texts[0], "Name");
        EXPECT_LE(document.pages[page].texts.back().at.top + RecordingPrinter::kLine, 13500);
        rows += static_cast<std::size_t>(std::count_if(texts.begin(), texts.end(),
                                                       [](const auto& each) { return each[0] == 'N'; })) -
                1;
    }
    EXPECT_EQ(rows, 118U);
}

TEST_F(PrintListViewTest, APageWithoutRoomStillTakesALine) {
    printer.page = {10000, 300};
    EXPECT_EQ(printed().pages.size(), 2U);
}

TEST_F(PrintListViewTest, TheFontIsTheOneGiven) {
    for (const auto& text : printed({"Arial", 12, false, true}).pages[0].texts) {
        EXPECT_EQ(text.font.name, "Arial");
        EXPECT_TRUE(text.font.italic);
    }
}

TEST_F(PrintListViewTest, AChosenRangeOfPagesIsHonoured) {
    for (int item = 3; item <= 120; ++item)
        list.add(std::to_string(item), "N" + std::to_string(item));
    systemDialogs.expectPrintConfirmed();
    print();
    const RecordingPrinter::Document whole = printer.documents.back();
    systemDialogs.expectPrintOf({2, 2});
    print();
    ASSERT_EQ(printer.documents.back().pages.size(), 1U);
    EXPECT_EQ(printer.documents.back().texts(0), whole.texts(1));
}

TEST_F(PrintListViewTest, ThePersonIsAskedFirst) {
    list.setFont({"Arial", 12, true, true});
    systemDialogs.expectPrintConfirmed();
    print();
    EXPECT_EQ(printer.documents.at(0).pages[0].texts[2].font, (Font{"Arial", 12, true, true}));
    EXPECT_EQ(systemDialogs.shown.at(0).owner, 7U);
    EXPECT_TRUE(printer.documents.at(0).ended);
    systemDialogs.expectPrintCancelled();
    print();
    EXPECT_EQ(printer.documents.size(), 1U);
}

}  // namespace
}  // namespace pellmark::test
