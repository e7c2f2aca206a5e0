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

TEST(MessageBoxTest, ANameTakesNoMoreThanItsLine) {
    MessageBox box = question(1);
    box.names.front() = "First\r\n" + std::string(500, 'x');
    const std::string text = wholeText(box);
    EXPECT_TRUE(text.starts_with("Delete?\r\n\r\nFirst  xxx")) << text;
    EXPECT_LT(text.size(), 120U);
}

TEST(MessageBoxTest, OfMoreTheNumberFollows) {
    EXPECT_TRUE(wholeText(question(11)).ends_with("P9\r\nP10\r\n+ 1"));
}

}  // namespace
}  // namespace pellmark::test
