#include "controls/ScreenPlace.h"

#include <gtest/gtest.h>

#include <ostream>

namespace pellmark {

void PrintTo(const Rect& rect, std::ostream* out) {
    *out << '(' << rect.left << ", " << rect.top << ", " << rect.width << " x " << rect.height << ')';
}

namespace test {
namespace {

/// A wide screen with a smaller one at its left, whose upper edges are not level.
const std::vector<Rect> kTwo{{0, 0, 1920, 1040}, {-1280, 200, 1280, 984}};

TEST(ScreenPlace, ACaptionOnAnyScreenIsWithinReach) {
    EXPECT_TRUE(isWithinReach({100, 100, 400, 300}, kTwo));
    EXPECT_TRUE(isWithinReach({-1000, 300, 400, 300}, kTwo));
    EXPECT_TRUE(isWithinReach({1820, 1030, 400, 300}, kTwo)) << "a quarter of it is to be seen";
    EXPECT_TRUE(isWithinReach({0, 0, 400, 300}, kTwo));
}

TEST(ScreenPlace, ACaptionOffEveryScreenIsNot) {
    EXPECT_FALSE(isWithinReach({1821, 100, 400, 300}, kTwo)) << "less than a quarter";
    EXPECT_FALSE(isWithinReach({100, 1040, 400, 300}, kTwo)) << "below";
    EXPECT_FALSE(isWithinReach({100, -1, 400, 300}, kTwo)) << "the caption is above, the rest is not";
    EXPECT_FALSE(isWithinReach({-1000, 100, 400, 300}, kTwo)) << "above the lower one";
    EXPECT_FALSE(isWithinReach({100, 100, 400, 300}, {}));
}

TEST(ScreenPlace, AWindowOnAScreenStaysWhereItIs) {
    const Rect window{-1000, 300, 400, 300};
    EXPECT_EQ(movedOntoScreen(window, kTwo), window);
}

TEST(ScreenPlace, AWindowIsMovedAsLittleAsItTakes) {
    EXPECT_EQ(movedOntoScreen({1800, 900, 400, 300}, kTwo), (Rect{1520, 740, 400, 300}));
    EXPECT_EQ(movedOntoScreen({-1400, 100, 400, 300}, kTwo), (Rect{-1280, 200, 400, 300}));
}

TEST(ScreenPlace, TheScreenThatShowsMostOfItTakesIt) {
    EXPECT_EQ(movedOntoScreen({-300, 300, 400, 300}, kTwo), (Rect{-400, 300, 400, 300}));
    EXPECT_EQ(movedOntoScreen({-100, 300, 400, 300}, kTwo), (Rect{0, 300, 400, 300}));
}

TEST(ScreenPlace, AWindowOffEveryScreenGoesToTheNearest) {
    EXPECT_EQ(movedOntoScreen({5000, 100, 400, 300}, kTwo), (Rect{1520, 100, 400, 300}));
    EXPECT_EQ(movedOntoScreen({-9000, 5000, 400, 300}, kTwo), (Rect{-1280, 884, 400, 300}));
    EXPECT_EQ(movedOntoScreen({-1000, -5000, 400, 300}, kTwo), (Rect{0, 0, 400, 300}))
        << "the right one reaches higher";
}

TEST(ScreenPlace, AWindowThatIsTooLargeShowsItsCaption) {
    EXPECT_EQ(movedOntoScreen({500, 500, 5000, 4000}, kTwo), (Rect{0, 0, 5000, 4000}));
}

TEST(ScreenPlace, AWindowIsMadeNoLargerThanTheScreenThatShowsMostOfIt) {
    EXPECT_EQ(shrunkToScreen({500, 500, 5000, 400}, kTwo), (Rect{500, 500, 1920, 400}));
    EXPECT_EQ(shrunkToScreen({-1200, 300, 400, 4000}, kTwo), (Rect{-1200, 300, 400, 984}));
    EXPECT_EQ(shrunkToScreen({100, 100, 400, 300}, kTwo), (Rect{100, 100, 400, 300}));
    EXPECT_EQ(shrunkToScreen({100, 100, 5000, 4000}, {}), (Rect{100, 100, 5000, 4000}));
}

TEST(ScreenPlace, WhatIsCutInOneDirectionGrowsByTheBarInTheOther) {
    constexpr Size kBars{17, 16};
    EXPECT_EQ(shrunkToScreen({500, 500, 5000, 400}, kTwo, kBars), (Rect{500, 500, 1920, 416}));
    EXPECT_EQ(shrunkToScreen({-1200, 300, 400, 4000}, kTwo, kBars), (Rect{-1200, 300, 417, 984}));
    EXPECT_EQ(shrunkToScreen({-1280, 200, 1400, 980}, kTwo, kBars).height, 984) << "as far as there is room";
    EXPECT_EQ(shrunkToScreen({100, 100, 400, 300}, kTwo, kBars), (Rect{100, 100, 400, 300}));
}

TEST(ScreenPlace, WithoutScreensNothingMoves) {
    const Rect window{5000, 100, 400, 300};
    EXPECT_EQ(movedOntoScreen(window, {}), window);
}

}  // namespace
}  // namespace test
}  // namespace pellmark
