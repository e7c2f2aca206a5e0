#include "util/CodePageText.h"

#include <gtest/gtest.h>

#include "support/PortableCodePage.h"

namespace pellmark::test {
namespace {

struct CodePageTextTest : testing::Test {
    PortableCodePage codePage;
    CodePageText text{codePage};
};

TEST_F(CodePageTextTest, WhatTheCodePageHoldsIsNotCounted) {
    EXPECT_EQ(text.encode("a?\xC3\x98\xE2\x82\xAC"), "a?\xD8\x80");
    EXPECT_EQ(text.encode("plain"), "plain");
    EXPECT_EQ(text.lost(), 0U);
    EXPECT_EQ(text.firstLost(), "");
}

TEST_F(CodePageTextTest, EachCharacterIsCountedOnceWhateverItsLength) {
    EXPECT_EQ(text.encode("\xC4\x80 \xE5\xB7\xA5"), "? ?");
    EXPECT_EQ(text.lost(), 2U);
    text.encode("\xF0\x9F\x94\xA9");
    EXPECT_EQ(text.lost(), 3U);
    EXPECT_EQ(text.firstLost(), "\xC4\x80");
}

TEST_F(CodePageTextTest, AQuestionMarkBesideALostCharacterIsNoLoss) {
    EXPECT_EQ(text.encode("?\xE5\xB7\xA5?"), "???");
    EXPECT_EQ(text.lost(), 1U);
}

}  // namespace
}  // namespace pellmark::test
