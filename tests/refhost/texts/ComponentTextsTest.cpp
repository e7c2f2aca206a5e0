#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <string_view>

#include "refhost/texts/DelimitedTable.h"

namespace norvex {
namespace {

const std::filesystem::path kRoot = PELLMARK_SOURCE_DIR;

std::string contentOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The literals that the component's sources look up.
std::set<std::string> lookedUpTexts() {
    static constexpr std::string_view kLookup = "GetString(\"";
    std::set<std::string> texts;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(kRoot / "src")) {
        if (entry.path().extension() != ".cpp") continue;
        const std::string source = contentOf(entry.path());
        for (std::size_t at = source.find(kLookup); at != std::string::npos; at = source.find(kLookup, at)) {
            at += kLookup.size();
            texts.insert(source.substr(at, source.find('"', at) - at));
        }
    }
    return texts;
}

class ComponentTextsTest : public testing::Test {
  protected:
    const std::vector<std::vector<std::string>> table_ =
        parseDelimited(contentOf(kRoot / "resources" / "Pellmark.csv"), ';');
};

TEST_F(ComponentTextsTest, EveryTextThatTheSourcesLookUpIsInTheTable) {
    std::set<std::string> known;
    for (const auto& line : table_)
        known.insert(line.front());
    const auto texts = lookedUpTexts();
    ASSERT_GT(texts.size(), 10U);
    for (const auto& text : texts)
        EXPECT_TRUE(known.contains(text)) << text;
}

TEST_F(ComponentTextsTest, EveryTextHasATranslationInEveryLanguageOfTheTable) {
    ASSERT_GT(table_.size(), 1U);
    for (const auto& line : table_) {
        EXPECT_EQ(line.size(), table_.front().size()) << line.front();
        for (const auto& text : line)
            EXPECT_FALSE(text.empty()) << line.front();
    }
}

TEST_F(ComponentTextsTest, NoTextStandsTwiceInTheTable) {
    std::set<std::string> seen;
    for (const auto& line : table_)
        EXPECT_TRUE(seen.insert(line.front()).second) << line.front();
}

}  // namespace
}  // namespace norvex
