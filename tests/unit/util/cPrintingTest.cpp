#include "util/cPrinting.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/Error.h"
#include "support/PortsHarness.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CPrintingTest : public testing::Test, protected ServicesHarness {
  protected:
    const RecordingPrinter::Document& printed(const std::string& text, Twips left = 500, Twips top = 500) {
        const auto document = printer.begin("x");
        cPrinting::PrintString(*document, text, left, top);
        return printer.documents.back();
    }
    static std::vector<Twips> tops(const RecordingPrinter::Document& document, std::size_t page = 0) {
        std::vector<Twips> found;
        for (const auto& text : document.pages.at(page).texts)
            found.push_back(text.at.top);
        return found;
    }

    cPrinting printing{{services.person, services.dialogs, printer, idle}};
};

TEST_F(CPrintingTest, EachLineStands200TwipsNearerThanTheFontIsHigh) {
    const auto& document = printed("a\nb\nc");
    EXPECT_THAT(document.texts(0), ElementsAre("a", "b", "c"));
    EXPECT_THAT(tops(document), ElementsAre(500, 540, 580));
    EXPECT_EQ(document.pages[0].texts[0].at.left, 500);
    EXPECT_EQ(document.pages[0].texts[2].at.left, 500);
    EXPECT_TRUE(document.ended);
}

TEST_F(CPrintingTest, MarginsAreThoseGiven) {
    const auto& document = printed("a\nb", 700, 900);
    EXPECT_EQ(document.pages[0].texts[0].at, (Point{700, 900}));
    EXPECT_EQ(document.pages[0].texts[1].at, (Point{700, 940}));
}

TEST_F(CPrintingTest, AnEmptyTextIsADocumentWithNothingOnIt) {
    const auto& document = printed("");
    EXPECT_EQ(document.pages.size(), 1U);
    EXPECT_THAT(document.texts(0), IsEmpty());
    EXPECT_TRUE(document.ended);
}

TEST_F(CPrintingTest, ATextWithoutALineFeedIsOneLine) {
    EXPECT_THAT(printed("one line").texts(0), ElementsAre("one line"));
}

TEST_F(CPrintingTest, ALineFeedAtTheEndBeginsNoLine) {
    EXPECT_THAT(printed("a\nb\n").texts(0), ElementsAre("a", "b"));
}

TEST_F(CPrintingTest, AnEmptyLineTakesItsPlace) {
    EXPECT_THAT(tops(printed("a\n\nb")), ElementsAre(500, 580));
}

TEST_F(CPrintingTest, ACarriageReturnIsNotSeen) {
    EXPECT_THAT(printed("a\r\nb\r\n").texts(0), ElementsAre("a", "b"));
}

TEST_F(CPrintingTest, WhatRunsPastThePageGoesToTheTopOfTheNext) {
    printer.page = {10000, 860};
    const auto& document = printed("a\nb\nc\nd\ne");
    EXPECT_THAT(document.texts(0), ElementsAre("a", "b", "c", "d"));
    EXPECT_THAT(tops(document), ElementsAre(500, 540, 580, 620));
    EXPECT_THAT(document.texts(1), ElementsAre("e"));
    EXPECT_THAT(tops(document, 1), ElementsAre(0));
}

TEST_F(CPrintingTest, OverflowGoesOnFromTheTopOfTheNewPage) {
    printer.page = {10000, 740};
    const auto& document = printed("a\nb\nc");
    EXPECT_THAT(document.texts(0), ElementsAre("a"));
    EXPECT_THAT(tops(document, 1), ElementsAre(0, 40));
}

TEST_F(CPrintingTest, ATextThatEndsWithItsPageTakesNoFurtherSheet) {
    printer.page = {10000, 780};
    EXPECT_EQ(printed("a\nb").pages.size(), 1U);
    EXPECT_EQ(printed("a\nb\n\n\n").pages.size(), 1U);
}

TEST_F(CPrintingTest, EmptyLinesThatRunPastAPageLeaveTheirPlace) {
    printer.page = {10000, 780};
    const auto& document = printed("a\nb\n\nc");
    ASSERT_EQ(document.pages.size(), 2U);
    EXPECT_THAT(document.texts(1), ElementsAre("c"));
    EXPECT_THAT(tops(document, 1), ElementsAre(40));
}

TEST_F(CPrintingTest, AChosenRangeOfPagesIsHonoured) {
    printer.page = {10000, 740};
    systemDialogs.expectPrintOf({2, 2});
    printing.PrintText("a\nb\nc", 7, {}, false);
    ASSERT_EQ(printer.documents.back().pages.size(), 1U);
    EXPECT_EQ(printer.documents.back().texts(0).front(), "b");
    EXPECT_TRUE(printer.documents.back().ended);
    systemDialogs.expectPrintOf({9, 9});
    EXPECT_THROW(printing.PrintText("a\nb\nc", 7, {}, false), Error);
}

TEST_F(CPrintingTest, TheDialogComesFirstAndTheFontIsTheOneGiven) {
    services.configureTexts(*host, "Norvex - Process Manager");
    systemDialogs.expectPrintConfirmed();
    printing.PrintText("a", 7, Font{"Arial", 12, true}, false);
    EXPECT_EQ(systemDialogs.shown.at(0).owner, 7U);
    const auto& document = printer.documents.at(0);
    EXPECT_EQ(document.name, "Norvex - Process Manager");
    EXPECT_EQ(document.pages[0].texts[0].font, (Font{"Arial", 12, true}));
    EXPECT_EQ(document.pages[0].texts[0].at, (Point{500, 500}));
    EXPECT_TRUE(document.ended);
}

TEST_F(CPrintingTest, ACancelPrintsNothing) {
    systemDialogs.expectPrintCancelled();
    printing.PrintText("a", 7, {}, false);
    EXPECT_THAT(printer.documents, IsEmpty());
}

TEST_F(CPrintingTest, PrintingAtOnceShowsNoDialog) {
    printing.PrintText("a", 7, {}, true);
    EXPECT_EQ(printer.documents.size(), 1U);
    EXPECT_THAT(systemDialogs.shown, IsEmpty());
}

TEST_F(CPrintingTest, WithoutAPrinterThePersonIsToldAndNoDialogComes) {
    printer.installed = false;
    const char* const text = "There is no printer. Install a printer in the system's settings first.";
    desktop.expectMessage(text);
    desktop.expectMessage(text);
    printing.PrintText("a", 7, {}, false);
    printing.PrintText("a", 7, {}, true);
    EXPECT_EQ(desktop.messages().back().icon, MessageIcon::Critical);
}

TEST_F(CPrintingTest, ADocumentThatFailsIsNotEnded) {
    printer.page = {10000, 500};
    printer.paper = 1;
    EXPECT_THROW(printing.PrintText("a", 7, {}, true), Error);
    EXPECT_FALSE(printer.documents.at(0).ended);
    EXPECT_TRUE(printer.documents.at(0).gone);
}

}  // namespace
}  // namespace pellmark::test
