#include "base/Text.h"

#include <gmock/gmock.h>

namespace pellmark::test {

using ::testing::ElementsAre;

namespace {

const std::string kAcute = "\xC3\xA9";          // e with acute accent, two bytes
const std::string kEuro = "\xE2\x82\xAC";       // three bytes
const std::string kDrill = "\xF0\x9F\x94\xA9";  // outside the first plane, four bytes
const std::string kReplacement = "\xEF\xBF\xBD";

}  // namespace

TEST(TextTest, EveryLengthOfSequenceSurvivesTheWayToUtf16AndBack) {
    const std::string text = "a" + kAcute + kEuro + kDrill + std::string(1, '\0') + "z";
    EXPECT_EQ(toUtf16(text), std::u16string(u"a\u00E9\u20AC\U0001F529\0z", 7));
    EXPECT_EQ(toUtf8(toUtf16(text)), text);
}

TEST(TextTest, TheLimitsOfEachSequenceLengthAreKept) {
    for (const char32_t code : {0x7F, 0x80, 0x7FF, 0x800, 0xD7FF, 0xE000, 0xFFFF, 0x10000, 0x10FFFF}) {
        std::u16string utf16;
        if (code < 0x10000) {
            utf16 += static_cast<char16_t>(code);
        } else {
            utf16 += static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10U));
            utf16 += static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FFU));
        }
        EXPECT_EQ(toUtf16(toUtf8(utf16)), utf16) << std::hex << static_cast<unsigned>(code);
        EXPECT_EQ(firstCodePoint(toUtf8(utf16)), code);
    }
}

TEST(TextTest, EachMalformedByteBecomesOneReplacementCharacter) {
    EXPECT_EQ(toUtf8(toUtf16("a\xFF"
                             "b")),
              "a" + kReplacement + "b");
    EXPECT_EQ(toUtf8(toUtf16("\x80")), kReplacement);
    EXPECT_EQ(toUtf8(toUtf16("\xE2\x82")), kReplacement + kReplacement);
    EXPECT_EQ(toUtf8(toUtf16("\xC3("
                             "x")),
              kReplacement + "(x");
}

TEST(TextTest, OverlongFormsSurrogatesAndTooLargeCodesAreMalformed) {
    EXPECT_EQ(toUtf16("\xC0\xAF").find(u'/'), std::u16string::npos);
    EXPECT_EQ(toUtf16("\xE0\x80\xAF").find(u'/'), std::u16string::npos);
    EXPECT_EQ(toUtf16("\xED\xA0\x80"), u"\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(toUtf16("\xED\xBF\xBF"), u"\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(toUtf16("\xF4\x90\x80\x80"), u"\uFFFD\uFFFD\uFFFD\uFFFD");
}

TEST(TextTest, ACharacterCutOffAtTheEndIsMalformedWhateverLiesBehind) {
    EXPECT_EQ(toUtf16(std::string_view("\xC3\x98", 1)), u"\uFFFD");
}

TEST(TextTest, TheFirstUnitsEndBeforeACharacterThatWouldBeCutInTwo) {
    const std::u16string spanner =
        u"a\xD83D\xDD27"
        u"b";
    EXPECT_EQ(firstUnits(spanner, 0), u"");
    EXPECT_EQ(firstUnits(spanner, 1), u"a");
    EXPECT_EQ(firstUnits(spanner, 2), u"a");
    EXPECT_EQ(firstUnits(spanner, 3), u"a\xD83D\xDD27");
    EXPECT_EQ(firstUnits(spanner, 4), spanner);
    EXPECT_EQ(firstUnits(spanner, 5), spanner);
}

TEST(TextTest, TheFirstUnitsOfADamagedTextAreJustSoMany) {
    const std::u16string secondHalves = u"\xDD27\xDD27\xDD27";
    EXPECT_EQ(firstUnits(secondHalves, 2).size(), 2U);
}

TEST(TextTest, UnpairedSurrogatesBecomeReplacementCharacters) {
    const char16_t high[] = {0xD83D, u'x', 0};
    const char16_t low[] = {0xDD29, u'x', 0};
    const char16_t beforeWide[] = {0xD83D, 0xFF21, 0};  // a wide A, beyond the surrogates
    const char16_t atEnd[] = {u'x', 0xD83D, 0};
    EXPECT_EQ(toUtf8(high), kReplacement + "x");
    EXPECT_EQ(toUtf8(low), kReplacement + "x");
    EXPECT_EQ(toUtf8(beforeWide), kReplacement + "\xEF\xBC\xA1");
    EXPECT_EQ(toUtf8(atEnd), "x" + kReplacement);
}

TEST(TextTest, LengthCountsUtf16Units) {
    EXPECT_EQ(utf16Length(""), 0U);
    EXPECT_EQ(utf16Length("abc"), 3U);
    EXPECT_EQ(utf16Length(kAcute + kEuro), 2U);
    EXPECT_EQ(utf16Length(kDrill), 2U);
    EXPECT_EQ(utf16Length("\xFF"), toUtf16("\xFF").size());
}

TEST(TextTest, CaseIsIgnoredInAsciiLettersOnly) {
    EXPECT_TRUE(equalNoCase("_FeatureCaseId", "_featurecaseID"));
    EXPECT_FALSE(equalNoCase("abc", "abcd"));
    EXPECT_FALSE(equalNoCase("[", "{"));
    EXPECT_FALSE(equalNoCase("@", "`"));
    EXPECT_FALSE(equalNoCase("\xC3\xA9", "\xC3\x89"));
    EXPECT_EQ(lowerAscii("AZ@[\xC3\x89"), "az@[\xC3\x89");
}

TEST(TextTest, SplittingKeepsEmptyPieces) {
    EXPECT_THAT(split("a|b", '|'), ElementsAre("a", "b"));
    EXPECT_THAT(split("|a||", '|'), ElementsAre("", "a", "", ""));
    EXPECT_THAT(split("", '|'), ElementsAre(""));
}

TEST(TextTest, EveryOccurrenceIsReplaced) {
    EXPECT_EQ(replaced("1,2,3", ',', '\t'), "1\t2\t3");
}

TEST(TextTest, TheFirstCodePointOfNothingIsZero) {
    EXPECT_EQ(firstCodePoint(""), 0U);
    EXPECT_EQ(firstCodePoint(kDrill + "x"), 0x1F529U);
}

}  // namespace pellmark::test
