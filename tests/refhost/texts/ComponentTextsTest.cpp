#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "SourceTexts.h"
#include "refhost/texts/DelimitedTable.h"
#include "refhost/texts/Languages.h"

namespace norvex {
namespace {

using testing::Contains;
using testing::IsSupersetOf;
using testing::Not;

const std::filesystem::path kRoot = PELLMARK_SOURCE_DIR;

/// What is filled in or must stay: numbers' places and the three dots of a command that asks further.
std::multiset<std::string> placeholdersOf(std::string_view text) {
    std::multiset<std::string> found;
    for (std::size_t at = 0; at + 1 < text.size(); ++at) {
        if (text[at] == '%') found.emplace(text.substr(at, 2));
        if (text[at] == '{') found.emplace(text.substr(at, text.find('}', at) - at + 1));
    }
    if (text.ends_with("...")) found.emplace("...");
    return found;
}

/// The menus look these up by way of constants.
const std::set<std::string> kKeysOfTheKeyboard{"Ins", "Del", "Enter"};

class ComponentTextsTest : public testing::Test {
  protected:
    static const SourceTexts& sources() {
        static const SourceTexts texts = textsIn(kRoot / "src");
        return texts;
    }
    std::set<std::string> keys() const {
        std::set<std::string> all;
        for (std::size_t line = 1; line < table_.size(); ++line)
            all.insert(table_[line].front());
        return all;
    }

    const std::vector<std::vector<std::string>> table_ =
        parseDelimited(contentOf(kRoot / "resources" / "Pellmark.csv"), ';');
};

TEST_F(ComponentTextsTest, TheSourcesAreReadAsTheCompilerReadsThem) {
    EXPECT_THAT(
        sources().lookedUp,
        IsSupersetOf({"Exit", "Norvex - Process Manager", "Name", "Cutting Cycle", "Feature Case Filters",
                      "Properties", "SFDB calculated", "Delete From Feature Case", "Part Material Class",
                      "Id is not unique - could not add this value to database"}));
    EXPECT_THAT(sources().lookedUp, Not(Contains("Delete From Part")));
    EXPECT_THAT(sources().all, Contains("Delete selected process(es) from the selected Feature "
                                        "Case?rnrnAre you sure?"));
}

TEST_F(ComponentTextsTest, EveryTextThatTheSourcesLookUpIsInTheTable) {
    const auto known = keys();
    for (const auto& text : sources().lookedUp)
        EXPECT_TRUE(known.contains(text)) << text;
}

TEST_F(ComponentTextsTest, EveryTextOfTheTableIsLookedUp) {
    for (const auto& text : keys()) {
        const auto& where = kKeysOfTheKeyboard.contains(text) ? sources().all : sources().lookedUp;
        EXPECT_TRUE(where.contains(text)) << text;
    }
}

TEST_F(ComponentTextsTest, WhatIsShownAsItStandsIsNotInTheTable) {
    const auto known = keys();
    for (const char* fixed : {"Inch", "Metric", "Feature Type", "Feature Type ", "Norvex - ",
                              "Process Manager", "Add New Process", "Edit Process", "New Process", "Save As",
                              "Menus", "Add Edit Default Technology Step", "Are you sure?",
                              "Delete selected process(es) from the selected Feature Case?"})
        EXPECT_FALSE(known.contains(fixed)) << fixed;
}

TEST_F(ComponentTextsTest, TheTableHasAColumnForEveryLanguageOfTheHost) {
    ASSERT_FALSE(table_.empty());
    EXPECT_EQ(table_.front().size(), languages().size());
    EXPECT_EQ(table_.front().front(), "English");
    for (const Language& language : languages())
        EXPECT_THAT(table_.front(), Contains(std::string(language.name)));
}

TEST_F(ComponentTextsTest, EveryTextHasATranslationInEveryLanguageOfTheTable) {
    ASSERT_GT(table_.size(), 1U);
    for (const auto& line : table_) {
        EXPECT_EQ(line.size(), table_.front().size()) << line.front();
        for (const auto& text : line)
            EXPECT_FALSE(text.empty()) << line.front();
    }
}

TEST_F(ComponentTextsTest, ATranslationHasTheSamePlacesForNumbersAndTheSameDots) {
    for (const auto& line : table_) {
        for (const auto& text : line)
            EXPECT_EQ(placeholdersOf(text), placeholdersOf(line.front())) << text;
    }
}

TEST_F(ComponentTextsTest, NoTextStandsTwiceInTheTable) {
    std::set<std::string> seen;
    for (const auto& line : table_)
        EXPECT_TRUE(seen.insert(line.front()).second) << line.front();
}

}  // namespace
}  // namespace norvex
