#include "base/CaseFolding.h"

#include <gtest/gtest.h>

namespace pellmark {
namespace {

std::string folded(std::string text) {
    foldCaseOf(text);
    return text;
}

TEST(CaseFoldingTest, CapitalLettersOfTheKnownScriptsBecomeSmallOnes) {
    EXPECT_EQ(folded("Drill M10 AZaz@[`{"), "drill m10 azaz@[`{");
    EXPECT_EQ(folded("\xC3\x80\xC3\x9E"), "\xC3\xA0\xC3\xBE");  // Latin-1: A grave, thorn
    EXPECT_EQ(folded("\xC4\x80\xC4\xB6\xC5\x8A\xC5\xB6"), "\xC4\x81\xC4\xB7\xC5\x8B\xC5\xB7");
    EXPECT_EQ(folded("\xC4\xB9\xC5\x87\xC5\xB9\xC5\xBD"), "\xC4\xBA\xC5\x88\xC5\xBA\xC5\xBE");
    EXPECT_EQ(folded("\xCE\x91\xCE\xA9"), "\xCE\xB1\xCF\x89");  // Greek: alpha, omega
    EXPECT_EQ(folded("\xD0\x90\xD0\xAF\xD0\x80\xD0\x8F"), "\xD0\xB0\xD1\x8F\xD1\x90\xD1\x9F");
}

TEST(CaseFoldingTest, WhatIsNoCapitalLetterStays) {
    for (const char* text : {"\xC3\x97", "\xC3\x9F", "\xC3\xBF", "\xC4\xB0", "\xC4\xB1", "\xE8\xA8\x98",
                             "\xF0\x9F\x94\xA9", "1/2 \"-%"})
        EXPECT_EQ(folded(text), text);
}

TEST(CaseFoldingTest, BrokenTextStaysAsItIs) {
    for (const char* text : {"\xC3", "\xC3(", "\xD0\xD0", "\xFF\xFE", "a\xCE"})
        EXPECT_EQ(folded(text), text);
}

TEST(CaseFoldingTest, ATextIsFoundInAnotherWithoutCase) {
    FoldedNeedle needle("m10");
    EXPECT_TRUE(needle.isIn("Tap M10x1"));
    EXPECT_TRUE(needle.isIn("m10"));
    EXPECT_FALSE(needle.isIn("M1 0"));
    EXPECT_FALSE(needle.isIn(""));
    EXPECT_TRUE(FoldedNeedle("").isIn(""));
    EXPECT_TRUE(FoldedNeedle("\xC3\x84").isIn("z\xC3\xA4h"));
}

}  // namespace
}  // namespace pellmark
