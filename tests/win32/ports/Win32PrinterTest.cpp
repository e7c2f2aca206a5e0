#include "win32/ports/Win32Printer.h"

#include <gtest/gtest.h>

#include "base/Error.h"

// What comes out on paper is read in the end-to-end tests.
namespace pellmark::test {
namespace {

constexpr int kA4 = 9;

class Win32PrinterTest : public testing::Test {
  protected:
    Win32PrinterTest() { set(Orientation::Portrait); }
    void set(Orientation orientation) {
        PrinterSettings settings;
        settings.paperSize = kA4;
        settings.orientation = orientation;
        printer.setSettings(settings);
    }

    Win32Printer printer;
};

TEST_F(Win32PrinterTest, ThePrinterOfTheTestsIsThere) {
    EXPECT_TRUE(printer.isInstalled());
}

TEST_F(Win32PrinterTest, APageIsWhatThePrinterReachesOfThePaper) {
    const auto document = printer.begin("upright");
    // A4 is 11,906 by 16,838 twips; no printer keeps more than an inch on either side to itself.
    EXPECT_GT(document->page().width, 9'000);
    EXPECT_LE(document->page().width, 11'920);
    EXPECT_GT(document->page().height, 13'900);
    EXPECT_LE(document->page().height, 16'850);
}

TEST_F(Win32PrinterTest, SidewaysPaperIsWiderThanHigh) {
    set(Orientation::Landscape);
    const auto document = printer.begin("sideways");
    EXPECT_GT(document->page().width, 13'900);
    EXPECT_LT(document->page().height, 11'920);
}

TEST_F(Win32PrinterTest, LinesAreAsHighAsTheFontHasPoints) {
    const auto document = printer.begin("fonts");
    document->setFont({"Liberation Sans", 10});
    const Twips ten = document->lineHeight();
    EXPECT_GT(ten, 200);
    EXPECT_LT(ten, 300);
    document->setFont({"Liberation Sans", 30});
    EXPECT_NEAR(document->lineHeight(), 3 * ten, 30);
}

TEST_F(Win32PrinterTest, WhatFitsIsWholeCharactersNoWiderThanTheRoom) {
    const auto document = printer.begin("widths");
    document->setFont({"Liberation Sans", 10});
    const std::string text = "\xC3\x98 8 H7 \xF0\x9F\x94\xA9 drill";
    for (Twips width = 0; width < 2 * document->textWidth(text); width += 50) {
        const std::size_t fits = document->fitting(text, width);
        ASSERT_LE(fits, text.size());
        EXPECT_TRUE(fits == text.size() || (static_cast<unsigned char>(text[fits]) & 0xC0U) != 0x80U)
            << width;
        // a printer's dot of tolerance
        EXPECT_LE(document->textWidth(text.substr(0, fits)), width + 20);
    }
    EXPECT_EQ(document->fitting(text, document->textWidth(text) + 20), text.size());
    EXPECT_EQ(document->fitting("", 100), 0U);
}

TEST_F(Win32PrinterTest, BoldTextIsWider) {
    const auto document = printer.begin("bold");
    document->setFont({"Liberation Sans", 10});
    const Twips plain = document->textWidth("drill and ream");
    document->setFont({"Liberation Sans", 10, true});
    EXPECT_GT(document->textWidth("drill and ream"), plain);
}

TEST_F(Win32PrinterTest, AFontAndTheOneLinkedToItWriteOneLine) {
    const auto document = printer.begin("linked");
    const std::string latin = "M10 ";
    const std::string japanese = "\xE7\xA9\xB4\xE3\x81\x82\xE3\x81\x91";
    const Twips width = document->textWidth(latin);
    EXPECT_NEAR(document->textWidth(latin + japanese), width + document->textWidth(japanese), 2);
    const Twips oneMore = document->textWidth(japanese.substr(0, 3));
    EXPECT_EQ(document->fitting(latin + japanese, width + oneMore + oneMore / 2), latin.size() + 3);
}

TEST_F(Win32PrinterTest, APrinterThatDoesNotExistIsNamed) {
    PrinterSettings settings;
    settings.device = "No such printer";
    printer.setSettings(settings);
    try {
        printer.begin("x");
        FAIL() << "nothing was thrown";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), errors::kPrinter);
        EXPECT_NE(error.description().find("No such printer"), std::string::npos);
    }
}

}  // namespace
}  // namespace pellmark::test
