#include "ports/FileNames.h"

#include <gtest/gtest.h>

#include <string>

namespace pellmark::test {

TEST(FileNamesTest, TheNameIsWhatStandsBehindTheLastBackslash) {
    EXPECT_EQ(nameOfPath("C:\\Work\\a.prc"), "a.prc");
    EXPECT_EQ(nameOfPath("a.prc"), "a.prc");
    EXPECT_EQ(nameOfPath("C:\\Work\\"), "");
}

TEST(FileNamesTest, DevicesAreKnownInAnyFolderWithAnyExtensionAndCase) {
    for (const char* const path : {"nul", "C:\\Work\\NUL.csv", "C:/Work/con", "Prn.txt.bak", "AUX ", "com1",
                                   "LPT9.prc", "CONIN$", "conout$", "nul:", "nul .csv", "com\xC2\xB2"}) {
        EXPECT_TRUE(isDeviceName(path)) << path;
    }
}

TEST(FileNamesTest, OtherNamesAreNoDevices) {
    for (const char* const path : {"", "nullify.csv", "com", "com0", "com10", "lptx", "C:\\nul\\a.txt",
                                   "xnul", " nul", "a.nul", "conin"}) {
        EXPECT_FALSE(isDeviceName(path)) << path;
    }
}

TEST(FileNamesTest, APatternMatchesWithoutCase) {
    EXPECT_TRUE(matchesPattern("Process.PRC", "*.prc"));
    EXPECT_TRUE(matchesPattern("abc", "a?c"));
    EXPECT_TRUE(matchesPattern("abc", "*"));
    EXPECT_TRUE(matchesPattern("a.b.c", "a*.c"));
    EXPECT_TRUE(matchesPattern("aaab", "*aab"));
    EXPECT_TRUE(matchesPattern("abc", "abc***"));
    EXPECT_TRUE(matchesPattern("", "*"));
}

TEST(FileNamesTest, WhatIsLeftOverDoesNotMatch) {
    EXPECT_FALSE(matchesPattern("a.prcx", "*.prc"));
    EXPECT_FALSE(matchesPattern("ab", "a?c"));
    EXPECT_FALSE(matchesPattern("ac", "a?c"));
    EXPECT_FALSE(matchesPattern("", "?"));
    EXPECT_FALSE(matchesPattern("abc", "ab"));
    EXPECT_FALSE(matchesPattern("noextension", "*.prc"));
}

TEST(FileNamesTest, EveryNameMatchesTheOpenPatterns) {
    EXPECT_TRUE(matchesPattern("noextension", "*.*"));
    EXPECT_TRUE(matchesPattern("anything", ""));
}

TEST(FileNamesTest, AQuestionMarkStandsForACharacterOfSeveralBytes) {
    EXPECT_TRUE(matchesPattern("\xC3\x84.txt", "?.txt"));
    EXPECT_FALSE(matchesPattern("\xC3\x84.txt", "??.txt"));
    EXPECT_TRUE(matchesPattern("x\xC3\x84y", "*?y"));
}

TEST(FileNamesTest, APatternOfManyStarsIsNotSlow) {
    std::string pattern;
    for (int i = 0; i < 40; ++i)
        pattern += "*a";
    EXPECT_FALSE(matchesPattern(std::string(5000, 'a') + "b", pattern));
}

}  // namespace pellmark::test
