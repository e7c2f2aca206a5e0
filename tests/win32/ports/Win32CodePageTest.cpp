#include "win32/ports/Win32CodePage.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "support/PortableCodePage.h"

namespace pellmark::test {

TEST(Win32CodePageTest, CharactersOfTheCodePageSurviveBothWays) {
    if (::GetACP() != 1252) GTEST_SKIP() << "the texts are those of Windows-1252";
    const Win32CodePage codePage;
    EXPECT_EQ(codePage.toAnsi("\xC3\x98 8 \xE2\x82\xAC"), "\xD8 8 \x80");
    EXPECT_EQ(codePage.fromAnsi("\xD8 8 \x80"), "\xC3\x98 8 \xE2\x82\xAC");
    EXPECT_EQ(codePage.toAnsi(std::string("a\0b", 3)), std::string("a\0b", 3));
    EXPECT_EQ(codePage.fromAnsi(std::string("a\0b", 3)), std::string("a\0b", 3));
}

TEST(Win32CodePageTest, WhatTheCodePageLacksBecomesAQuestionMarkAndNoLookAlike) {
    if (::GetACP() != 1252) GTEST_SKIP() << "the texts are those of Windows-1252";
    const Win32CodePage codePage;
    EXPECT_EQ(codePage.toAnsi("\xEF\xBC\x8E\xEF\xBC\x8E\xEF\xBC\xBC"), "???");  // fullwidth "..\"
    EXPECT_EQ(codePage.toAnsi("\xC4\x80"), "?");                                // A with macron
}

TEST(Win32CodePageTest, EveryByteMeansWhatItMeansInTheTestsWithoutWindows) {
    if (::GetACP() != 1252) GTEST_SKIP() << "the texts are those of Windows-1252";
    const Win32CodePage codePage;
    const PortableCodePage portable;
    for (int byte = 0; byte < 256; ++byte) {
        const std::string ansi(1, static_cast<char>(byte));
        EXPECT_EQ(codePage.fromAnsi(ansi), portable.fromAnsi(ansi)) << byte;
        EXPECT_EQ(codePage.toAnsi(portable.fromAnsi(ansi)), ansi) << byte;
    }
}

TEST(Win32CodePageTest, NothingStaysNothing) {
    EXPECT_EQ(Win32CodePage().toAnsi(""), "");
    EXPECT_EQ(Win32CodePage().fromAnsi(""), "");
}

}  // namespace pellmark::test
