#include "processes/BracketHeading.h"

#include <gtest/gtest.h>

namespace pellmark::test {
namespace {

TEST(BracketHeadingTest, AnOrdinaryHeadingIsUnchanged) {
    EXPECT_EQ(BracketHeading("Name"), "Name");
    EXPECT_EQ(BracketHeading(""), "");
    EXPECT_EQ(BracketHeading("(\u540D)"), "(\u540D)");
}

TEST(BracketHeadingTest, ThreeLeadingCharactersAreBracketed) {
    EXPECT_EQ(BracketHeading("\u540D\u79F0"), "( \u540D\u79F0 )");
    EXPECT_EQ(BracketHeading("\u8A18"), "( \u8A18 )");
    EXPECT_EQ(BracketHeading("\u52A0\u5DE5"), "( \u52A0\u5DE5 )");
    EXPECT_EQ(BracketHeading("\u8A19"), "\u8A19");
}

}  // namespace
}  // namespace pellmark::test
