#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "SourceTexts.h"
#include "refhost/texts/DelimitedTable.h"
#include "refhost/texts/Languages.h"

namespace norvex {
namespace {

using testing::Contains;
using testing::IsSupersetOf;

const std::filesystem::path kRoot = PELLMARK_SOURCE_DIR;

/// A text without the key that follows a tab in a menu.
std::string withoutKey(const std::string& text) {
    return text.substr(0, text.find("\\t"));
}

/// The texts of a resource script that a person reads, a set for each menu or dialog.
std::vector<std::set<std::string>> groupsOf(const std::filesystem::path& script) {
    std::vector<std::set<std::string>> groups(1);
    std::vector<std::size_t> open{0};
    std::istringstream lines(contentOf(script));
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string kind;
        words >> kind;
        const bool isText = kind == "POPUP" || kind == "MENUITEM" || kind == "CAPTION" || kind == "LTEXT" ||
                            kind == "PUSHBUTTON" || kind == "DEFPUSHBUTTON";
        const std::size_t from = line.find('"');
        if (kind == "BEGIN") {
            open.push_back(groups.size());
            groups.emplace_back();
        }
        if (kind == "END") open.pop_back();
        if (kind.starts_with("VS_")) break;
        if (!isText || from == std::string::npos) continue;
        const std::string text = withoutKey(line.substr(from + 1, line.find('"', from + 1) - from - 1));
        if (!text.empty()) groups[open.back()].insert(text);
    }
    return groups;
}

char accessKeyOf(const std::string& text) {
    const std::size_t at = text.find('&');
    if (at == std::string::npos || at + 1 == text.size()) return '\0';
    const char key = text[at + 1];
    return key >= 'a' && key <= 'z' ? static_cast<char>(key - 'a' + 'A') : key;
}

class HostTextsTest : public testing::Test {
  protected:
    HostTextsTest() {
        for (std::size_t line = 1; line < table_.size(); ++line)
            translations_[table_[line].front()] = table_[line];
    }
    static std::vector<std::set<std::string>> groups() {
        auto all = groupsOf(kRoot / "refhost/workbench/Workbench.rc.in");
        for (auto& group : groupsOf(kRoot / "refhost/automation/Norvex.rc.in"))
            all.push_back(std::move(group));
        return all;
    }

    const std::vector<std::vector<std::string>> table_ =
        parseDelimited(contentOf(kRoot / "resources" / "Norvex.csv"), ';');
    std::map<std::string, std::vector<std::string>> translations_;
};

TEST_F(HostTextsTest, EveryTextOfTheMenusAndDialogsIsInTheTable) {
    std::set<std::string> all;
    for (const auto& group : groups()) {
        for (const std::string& text : group) {
            EXPECT_TRUE(translations_.contains(text)) << text;
            all.insert(text);
        }
    }
    EXPECT_THAT(all, IsSupersetOf({"&Processes", "Expression Builder", "&Compute spindle speed"}));
}

TEST_F(HostTextsTest, EveryTextThatTheWindowsLookUpIsInTheTable) {
    const auto lookedUp = textsIn(kRoot / "refhost").lookedUp;
    EXPECT_THAT(lookedUp, IsSupersetOf({"Cutting speed", "Peck drilling", "Step wizard"}));
    for (const std::string& text : lookedUp) {
        // What a person has stored stands as it is.
        if (text == "Tool" || text == "OperationName") continue;
        EXPECT_TRUE(translations_.contains(text)) << text;
    }
}

TEST_F(HostTextsTest, EveryTextHasATranslationInEveryLanguageOfTheHost) {
    ASSERT_GT(table_.size(), 1U);
    for (const Language& language : languages())
        EXPECT_THAT(table_.front(), Contains(std::string(language.name)));
    for (const auto& line : table_) {
        EXPECT_EQ(line.size(), languages().size()) << line.front();
        for (const auto& text : line) {
            EXPECT_FALSE(text.empty()) << line.front();
            EXPECT_EQ(accessKeyOf(text) != '\0', accessKeyOf(line.front()) != '\0') << text;
            EXPECT_EQ(text.ends_with("..."), line.front().ends_with("...")) << text;
        }
    }
}

TEST_F(HostTextsTest, EveryTextOfAFailureIsFoundInTheSources) {
    EXPECT_THAT(
        textsIn(kRoot / "refhost").lookedUp,
        IsSupersetOf({"The knowledge base '%1' is in use by another program that does not let go of it. Try "
                      "again, or close the other program.",
                      "The value %1 of the process step '%2' exists already.", "The key no longer exists.",
                      "The name has %1 characters; it cannot have more than %2.",
                      "the unit of an operation is metric, inch or none.",
                      "%1 has no parameter with the code %2."}));
}

/// The places for values in a text.
std::multiset<std::string> placesOf(const std::string& text) {
    std::multiset<std::string> places;
    for (std::size_t at = text.find('%'); at != std::string::npos; at = text.find('%', at + 1))
        places.insert(text.substr(at, 2));
    return places;
}

TEST_F(HostTextsTest, ATranslationHasTheSamePlacesForValues) {
    for (const auto& line : table_) {
        for (const auto& text : line)
            EXPECT_EQ(placesOf(text), placesOf(line.front())) << text;
    }
}

TEST_F(HostTextsTest, NoTwoEntriesOfAMenuOrDialogHaveTheSameAccessKey) {
    for (const auto& group : groups()) {
        for (std::size_t column = 0; column < table_.front().size(); ++column) {
            std::map<char, std::string> taken;
            for (const std::string& english : group) {
                const std::string& text = translations_.at(english).at(column);
                if (accessKeyOf(text) == '\0') continue;
                const auto [at, isNew] = taken.emplace(accessKeyOf(text), text);
                EXPECT_TRUE(isNew) << text << " and " << at->second;
            }
        }
    }
}

TEST_F(HostTextsTest, NoTextStandsTwiceInTheTable) {
    EXPECT_EQ(translations_.size() + 1, table_.size());
}

}  // namespace
}  // namespace norvex
