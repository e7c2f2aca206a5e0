#include "refhost/texts/TranslationTable.h"

#include <gtest/gtest.h>

#include "refhost/texts/DelimitedTable.h"
#include "refhost/texts/Languages.h"

namespace norvex {
namespace {

using Lines = std::vector<std::vector<std::string>>;

TEST(DelimitedTableTest, FieldsAreSeparatedAndLinesEndInAnyWay) {
    EXPECT_EQ(parseDelimited("a;b\nc;d\r\ne;f\rg;h", ';'),
              (Lines{{"a", "b"}, {"c", "d"}, {"e", "f"}, {"g", "h"}}));
}

TEST(DelimitedTableTest, QuotesHoldSeparatorsLineBreaksAndDoubledQuotes) {
    EXPECT_EQ(parseDelimited("\"a;b\";\"c\r\nd\";\"say \"\"x\"\"\"", ';'),
              (Lines{{"a;b", "c\r\nd", "say \"x\""}}));
}

TEST(DelimitedTableTest, AQuoteInsideAFieldIsText) {
    EXPECT_EQ(parseDelimited("1/2\";x", ';'), (Lines{{"1/2\"", "x"}}));
}

TEST(DelimitedTableTest, EmptyFieldsCountAndBlankLinesDoNot) {
    EXPECT_EQ(parseDelimited("a;;\n\n;b\n\"\"\n", ';'), (Lines{{"a", "", ""}, {"", "b"}, {""}}));
}

TEST(DelimitedTableTest, AnUnclosedQuoteReachesToTheEnd) {
    EXPECT_EQ(parseDelimited("\"a;b\nc", ';'), (Lines{{"a;b\nc"}}));
}

class TranslationTableTest : public testing::Test {
  protected:
    static constexpr const char* kTable =
        "\xEF\xBB\xBF"
        "English;German;Japanese\r\n"
        "Exit;Beenden;\r\n"
        "\"Yes; no\";\"Ja; nein\"\r\n";
};

TEST_F(TranslationTableTest, ATextIsGivenInTheLanguage) {
    EXPECT_EQ(TranslationTable(kTable, kGerman).text("Exit"), "Beenden");
    EXPECT_EQ(TranslationTable(kTable, kGerman).text("Yes; no"), "Ja; nein");
}

TEST_F(TranslationTableTest, AnUnknownTextIsReturnedAsItIs) {
    EXPECT_EQ(TranslationTable(kTable, kGerman).text("exit"), "exit");
    EXPECT_EQ(TranslationTable(kTable, kGerman).text(""), "");
}

TEST_F(TranslationTableTest, AMissingTranslationIsTheEnglishText) {
    EXPECT_EQ(TranslationTable(kTable, kJapanese).text("Exit"), "Exit");
    EXPECT_EQ(TranslationTable(kTable, kJapanese).text("Yes; no"), "Yes; no");
}

TEST_F(TranslationTableTest, ALanguageWithoutAColumnStaysEnglish) {
    EXPECT_EQ(TranslationTable(kTable, 4).text("Exit"), "Exit");
}

TEST_F(TranslationTableTest, AnEmptyTableKnowsNothing) {
    EXPECT_EQ(TranslationTable("", kGerman).text("Exit"), "Exit");
}

TEST(LanguagesTest, EachIsFoundByItsOwnCode) {
    for (const Language& language : languages())
        EXPECT_EQ(languageOf(language.code).name, language.name);
}

TEST(LanguagesTest, AnUnknownCodeIsEnglish) {
    EXPECT_EQ(languageOf(-1).locale, 1033);
    EXPECT_EQ(languageOf(kJapanese).locale, 1041);
}

}  // namespace
}  // namespace norvex
