#include "base/OneLine.h"

#include <gtest/gtest.h>

namespace pellmark::test {
namespace {

TEST(OneLineTest, AShortTextStaysAsItIs) {
    EXPECT_EQ(oneLine("", 10), "");
    EXPECT_EQ(oneLine("Tap M10", 7), "Tap M10");
}

TEST(OneLineTest, OfALongTextTheBeginningIsLeft) {
    EXPECT_EQ(oneLine("Tap M10 through", 8), "Tap M10\xE2\x80\xA6");
    EXPECT_EQ(oneLine("Tap M10", 1), "\xE2\x80\xA6");
}

TEST(OneLineTest, UnitsAreCountedAndNoCharacterIsHalved) {
    EXPECT_EQ(oneLine("\xC3\xBC\xC3\xBC", 2), "\xC3\xBC\xC3\xBC");
    // a spanner has two units
    EXPECT_EQ(oneLine("a\xF0\x9F\x94\xA7"
                      "b",
                      3),
              "a\xE2\x80\xA6");
}

TEST(OneLineTest, LineBreaksAndTabsAreBlanks) {
    EXPECT_EQ(oneLine("Tap\r\nM10\tdeep", 20), "Tap  M10 deep");
}

}  // namespace
}  // namespace pellmark::test
