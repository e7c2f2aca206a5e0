#include "win32/Scale.h"

#include <gtest/gtest.h>

namespace pellmark::test {
namespace {

TEST(ScaleTest, AnInchHasAsManyPixelsAsTheResolutionSays) {
    EXPECT_EQ(Scale(96).pixels(1440), 96);
    EXPECT_EQ(Scale(144).pixels(1440), 144);
    EXPECT_EQ(Scale(192).twips(192), 1440);
}

TEST(ScaleTest, LengthsAreRoundedToTheNearestPixelOnBothSidesOfZero) {
    EXPECT_EQ(Scale(96).pixels(22), 1);
    EXPECT_EQ(Scale(96).pixels(23), 2);
    EXPECT_EQ(Scale(96).pixels(-23), -2);
}

TEST(ScaleTest, NeighboursInTwipsAreNeighboursInPixels) {
    const Scale scale(144);
    const RECT left = scale.pixels(Rect{7, 0, 100, 50});
    const RECT right = scale.pixels(Rect{107, 0, 100, 50});
    EXPECT_EQ(left.right, right.left);
}

TEST(ScaleTest, PixelsSurviveTheWayThroughTwips) {
    for (const int dpi : {96, 120, 144, 168, 192, 288}) {
        for (int pixels = -50; pixels < 2000; pixels += 7)
            ASSERT_EQ(Scale(dpi).pixels(Scale(dpi).twips(pixels)), pixels) << dpi;
    }
}

TEST(ScaleTest, AResolutionThatIsNoneIsTakenForTheUsualOne) {
    EXPECT_EQ(Scale(0).dpi(), 96);
}

}  // namespace
}  // namespace pellmark::test
