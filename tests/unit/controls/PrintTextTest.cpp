#include "controls/PrintText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/RecordingPrinter.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;

/// Widths are counted in characters.
class PrintTextTest : public testing::Test {
  protected:
    std::vector<std::string> wrapped(const std::string& text, int characters) {
        return wrapText(*document, text, characters * RecordingPrinter::kCharacter);
    }
    std::string shortened(const std::string& text, int characters) {
        return shortenText(*document, text, characters * RecordingPrinter::kCharacter);
    }

    RecordingPrinter printer;
    std::unique_ptr<PrintDocument> document = printer.begin("x");
};

TEST_F(PrintTextTest, WhatFitsIsOneLine) {
    EXPECT_THAT(wrapped("abc", 3), ElementsAre("abc"));
    EXPECT_THAT(wrapped("", 3), ElementsAre(""));
}

TEST_F(PrintTextTest, LinesEndBetweenWords) {
    EXPECT_THAT(wrapped("drill and ream", 9), ElementsAre("drill and", "ream"));
    EXPECT_THAT(wrapped("drill and ream", 8), ElementsAre("drill", "and ream"));
    EXPECT_THAT(wrapped("a b c", 1), ElementsAre("a", "b", "c"));
}

TEST_F(PrintTextTest, AWordThatIsWiderThanALineIsParted) {
    EXPECT_THAT(wrapped("abcdefg", 3), ElementsAre("abc", "def", "g"));
    EXPECT_THAT(wrapped("a bcdefg", 3), ElementsAre("a", "bcd", "efg"));
}

TEST_F(PrintTextTest, NoCharacterIsParted) {
    EXPECT_THAT(wrapped("\xF0\x9F\x94\xA9\xC3\x98\xE5\xB7\xA5", 2),
                ElementsAre("\xF0\x9F\x94\xA9\xC3\x98", "\xE5\xB7\xA5"));
    EXPECT_THAT(wrapped("\xF0\x9F\x94\xA9\xC3\x98", 0), ElementsAre("\xF0\x9F\x94\xA9", "\xC3\x98"));
}

TEST_F(PrintTextTest, LineBreaksOfTheTextStay) {
    EXPECT_THAT(wrapped("a\r\nb\nc\rd", 9), ElementsAre("a", "b", "c", "d"));
    EXPECT_THAT(wrapped("a\n\nb", 9), ElementsAre("a", "", "b"));
    EXPECT_THAT(wrapped("a\r\n", 9), ElementsAre("a", ""));
    EXPECT_THAT(wrapped("a\r", 9), ElementsAre("a", ""));
    EXPECT_THAT(wrapped("\n", 9), ElementsAre("", ""));
}

TEST_F(PrintTextTest, OnlyTheBlankAtALinesEndIsLost) {
    EXPECT_THAT(wrapped("ab  cd", 3), ElementsAre("ab ", "cd"));
    EXPECT_THAT(wrapped("abc ", 3), ElementsAre("abc"));
    EXPECT_THAT(wrapped(" abc", 3), ElementsAre(" ab", "c"));
}

TEST_F(PrintTextTest, ATabIsABlankAndOtherControlCharactersGo) {
    EXPECT_EQ(printableText("a\tb\x01\x1F"
                            "c\r\n"),
              "a bc");
    EXPECT_THAT(wrapped("a\tb", 9), ElementsAre("a b"));
    EXPECT_EQ(shortened("a\tb", 9), "a b");
}

TEST_F(PrintTextTest, AShortenedTextEndsInDotsWithinItsWidth) {
    EXPECT_EQ(shortened("abcdef", 6), "abcdef");
    EXPECT_EQ(shortened("abcdefg", 6), "abc...");
    EXPECT_EQ(shortened("abcdefg", 3), "...");
    EXPECT_EQ(shortened("abcdefg", 2), "");
}

}  // namespace
}  // namespace pellmark::test
