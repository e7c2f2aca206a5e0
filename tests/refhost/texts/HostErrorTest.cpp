#include "refhost/texts/HostError.h"

#include <gtest/gtest.h>

#include "refhost/texts/TranslationTable.h"

namespace norvex {
namespace {

class HostErrorTest : public testing::Test {
  protected:
    std::string in(std::int16_t language, const Sentence& sentence) const {
        const TranslationTable table(kTable, language);
        return sentence.in([&table](const std::string& english) { return table.text(english); });
    }

    static constexpr const char* kTable =
        "English;German\n"
        "The file '%1' is gone: %2;%2 Es fehlt %1\n"
        "it was moved.;Verschoben.\n";
    static constexpr std::int16_t kEnglish = 1;
    static constexpr std::int16_t kGerman = 2;
};

TEST_F(HostErrorTest, ValuesStandInTheirPlacesWhereverATranslationHasThem) {
    const Sentence gone("The file '%1' is gone: %2", {std::string("a.prc"), Sentence("it was moved.")});
    EXPECT_EQ(gone.english(), "The file 'a.prc' is gone: it was moved.");
    EXPECT_EQ(in(kEnglish, gone), gone.english());
    EXPECT_EQ(in(kGerman, gone), "Verschoben. Es fehlt a.prc");
}

TEST_F(HostErrorTest, AValueStandsAsItIsWhateverItHolds) {
    const Sentence gone("The file '%1' is gone: %2", {std::string("%2 it was moved."), std::string("%1%")});
    EXPECT_EQ(in(kGerman, gone), "%1% Es fehlt %2 it was moved.");
}

TEST_F(HostErrorTest, APlaceWithoutAValueStaysVisible) {
    EXPECT_EQ(Sentence("100% of %1 and %3", {std::string("it")}).english(), "100% of it and %3");
}

TEST_F(HostErrorTest, ThereAreNinePlacesForValues) {
    std::vector<Sentence> values;
    for (const char value : std::string("abcdefghij"))
        values.emplace_back(std::string(1, value));
    EXPECT_EQ(Sentence("%1 %9 %10 %0", values).english(), "a i a0 %0");
}

TEST_F(HostErrorTest, ATranslatedFailureKeepsItsNumberAndItsEnglishTextForTheTrace) {
    const HostError error(26104, "KnowledgeBase", Sentence("it was moved."));
    EXPECT_STREQ(error.what(), "it was moved.");
    const pellmark::Error told = error.translated([](const std::string&) { return "Verschoben."; });
    EXPECT_EQ(told.number(), 26104);
    EXPECT_EQ(told.description(), "Verschoben.");
    EXPECT_EQ(told.source(), "KnowledgeBase: it was moved.");
}

TEST_F(HostErrorTest, ADetailStandsBelowTheSentenceInEveryLanguage) {
    const HostError error(26104, "KnowledgeBase", Sentence("it was moved."), "C:\\a.db");
    EXPECT_STREQ(error.what(), "it was moved.\n\nC:\\a.db");
    EXPECT_EQ(error.translated([](const std::string&) { return "Verschoben."; }).description(),
              "Verschoben.\n\nC:\\a.db");
}

TEST_F(HostErrorTest, InEnglishTheSourceIsTheSourceAlone) {
    const HostError error(26104, "KnowledgeBase", Sentence("it was moved."));
    EXPECT_EQ(error.translated([](const std::string& text) { return text; }).source(), "KnowledgeBase");
}

}  // namespace
}  // namespace norvex
