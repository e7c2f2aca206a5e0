#include <gtest/gtest.h>

#include "ports/Desktop.h"

namespace pellmark::test {
namespace {

MessageBox question(std::size_t names) {
    MessageBox box;
    box.text = "Delete?";
    for (std::size_t i = 1; i <= names; ++i)
        box.names.push_back("P" + std::to_string(i));
    return box;
}

TEST(MessageBoxTest, WithoutNamesTheTextStandsAlone) {
    EXPECT_EQ(wholeText(question(0)), "Delete?");
}

TEST(MessageBoxTest, UpToTenNamesStandBelowIt) {
    EXPECT_EQ(wholeText(question(2)), "Delete?\r\n\r\nP1\r\nP2");
    EXPECT_TRUE(wholeText(question(10)).ends_with("P9\r\nP10"));
}

TEST(MessageBoxTest, OfMoreTheNumberFollows) {
    EXPECT_TRUE(wholeText(question(11)).ends_with("P9\r\nP10\r\n+ 1"));
}

}  // namespace
}  // namespace pellmark::test
