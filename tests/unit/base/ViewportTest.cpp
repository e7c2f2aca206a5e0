#include "base/Viewport.h"

#include <gtest/gtest.h>

namespace pellmark::test {
namespace {

constexpr Size kBars{17, 17};

Viewport fitted(Size window, Size least) {
    Viewport view;
    view.fit(window, least, kBars);
    return view;
}

TEST(ViewportTest, AWindowThatIsLargeEnoughHasNoBarsAndGivesAllItsRoom) {
    const Viewport view = fitted({640, 480}, {640, 480});
    EXPECT_FALSE(view.hasVerticalBar());
    EXPECT_FALSE(view.hasHorizontalBar());
    EXPECT_EQ(view.content(), (Size{640, 480}));
    EXPECT_EQ(view.page(), (Size{640, 480}));
}

TEST(ViewportTest, ALowWindowHasAStandingBarThatTakesItsWidth) {
    const Viewport view = fitted({660, 479}, {640, 480});
    EXPECT_TRUE(view.hasVerticalBar());
    EXPECT_FALSE(view.hasHorizontalBar());
    EXPECT_EQ(view.content(), (Size{643, 480}));
    EXPECT_EQ(view.page(), (Size{643, 479}));
}

TEST(ViewportTest, ANarrowWindowHasALyingBarThatTakesItsHeight) {
    const Viewport view = fitted({639, 500}, {640, 480});
    EXPECT_FALSE(view.hasVerticalBar());
    EXPECT_TRUE(view.hasHorizontalBar());
    EXPECT_EQ(view.content(), (Size{640, 483}));
}

TEST(ViewportTest, ABarMayMakeTheOtherNecessary) {
    const Viewport low = fitted({650, 479}, {640, 480});
    EXPECT_TRUE(low.hasVerticalBar());
    EXPECT_TRUE(low.hasHorizontalBar());
    const Viewport narrow = fitted({639, 490}, {640, 480});
    EXPECT_TRUE(narrow.hasVerticalBar());
    EXPECT_TRUE(narrow.hasHorizontalBar());
    EXPECT_EQ(narrow.page(), (Size{622, 473}));
    EXPECT_EQ(narrow.content(), (Size{640, 480}));
}

TEST(ViewportTest, AWindowWithoutAnyRoomIsNoHarm) {
    const Viewport view = fitted({0, 0}, {640, 480});
    EXPECT_EQ(view.page(), (Size{0, 0}));
    EXPECT_EQ(view.content(), (Size{640, 480}));
}

TEST(ViewportTest, ScrollingEndsWhereThereIsNothingMoreToSee) {
    Viewport view = fitted({317, 217}, {640, 480});
    EXPECT_TRUE(view.scrollTo({1000, 100}));
    EXPECT_EQ(view.at(), (Point{340, 100}));
    EXPECT_FALSE(view.scrollTo({900, 100}));
    EXPECT_TRUE(view.scrollTo({-5, -5}));
    EXPECT_EQ(view.at(), (Point{0, 0}));
}

TEST(ViewportTest, AWindowThatGrowsShowsNoEmptyPlaceBehindTheEnd) {
    Viewport view = fitted({317, 217}, {640, 480});
    view.scrollTo({340, 280});
    view.fit({417, 317}, {640, 480}, kBars);
    EXPECT_EQ(view.at(), (Point{240, 180}));
    view.fit({640, 480}, {640, 480}, kBars);
    EXPECT_EQ(view.at(), (Point{0, 0}));
}

TEST(ViewportTest, APartIsRevealedByAsLittleScrollingAsItTakes) {
    Viewport view = fitted({317, 217}, {640, 480});
    EXPECT_FALSE(view.reveal({10, 20, 100, 100})) << "it is to be seen already";
    EXPECT_TRUE(view.reveal({350, 250, 50, 30}));
    EXPECT_EQ(view.at(), (Point{100, 80}));
    EXPECT_TRUE(view.reveal({90, 250, 50, 30}));
    EXPECT_EQ(view.at(), (Point{90, 80}));
}

TEST(ViewportTest, OfAPartLargerThanThePageItsBeginningIsRevealed) {
    Viewport view = fitted({317, 217}, {640, 480});
    EXPECT_FALSE(view.reveal({100, 50, 500, 400})) << "it is to be seen already";
    EXPECT_TRUE(view.reveal({200, 150, 400, 300}));
    EXPECT_EQ(view.at(), (Point{50, 50})) << "up to the middle of the page";
    view.scrollTo({340, 280});
    EXPECT_TRUE(view.reveal({100, 50, 500, 400}));
    EXPECT_EQ(view.at(), (Point{100, 50})) << "by as little as it takes";
}

TEST(ViewportTest, APartIsRevealedWithTheLabelAtItsLeftWhereThereIsRoomForBoth) {
    Viewport view = fitted({317, 217}, {640, 480});
    view.scrollTo({340, 0});
    EXPECT_TRUE(view.reveal({120, 20, 180, 30}, {10, 25, 100, 20}));
    EXPECT_EQ(view.at(), (Point{10, 0}));
    view.scrollTo({0, 280});
    EXPECT_TRUE(view.reveal({120, 20, 180, 30}, {10, 25, 100, 20}));
    EXPECT_EQ(view.at(), (Point{0, 20})) << "as high as the part";
}

TEST(ViewportTest, OfAPartTooWideForItsLabelTheBeginningIsRevealed) {
    Viewport view = fitted({317, 217}, {640, 480});
    EXPECT_FALSE(view.reveal({120, 20, 280, 30}, {10, 25, 100, 20})) << "its beginning is to be seen already";
    view.scrollTo({340, 0});
    EXPECT_TRUE(view.reveal({120, 20, 280, 30}, {10, 25, 100, 20}));
    EXPECT_EQ(view.at(), (Point{10, 0}));
}

TEST(ViewportTest, ALabelAsWideAsThePageDoesNotHideThePart) {
    Viewport view = fitted({117, 217}, {640, 480});
    EXPECT_TRUE(view.reveal({120, 20, 280, 30}, {10, 25, 100, 20}));
    EXPECT_LE(view.at().left, 120);
    EXPECT_GE(view.at().left + view.page().width, 120 + view.page().width / 2);
}

TEST(ViewportTest, ABarThatLeavesJustEnoughMakesTheOtherUnnecessary) {
    const Viewport narrow = fitted({639, 497}, {640, 480});
    EXPECT_EQ(narrow.page(), (Size{639, 480}));
    const Viewport low = fitted({657, 479}, {640, 480});
    EXPECT_EQ(low.page(), (Size{640, 479}));
}

}  // namespace
}  // namespace pellmark::test
