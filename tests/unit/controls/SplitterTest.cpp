#include "controls/Splitter.h"

#include <gtest/gtest.h>

#include "support/FormHarness.h"

namespace pellmark::test {
namespace {

constexpr Division kDivision{6000, 1500, 2000, 3600};

class SplitterTest : public testing::Test, protected FormHarness {
  protected:
    SplitterTest() { splitter.setDivision(kDivision); }
    Splitter splitter{form, "Split", Splitter::Bar::Lying};
    int moves = 0;
    Subscription moved = splitter.moved.subscribe([this] { ++moves; });
};

TEST_F(SplitterTest, TheUsualLengthCountsWhileNobodyHasChosen) {
    EXPECT_EQ(firstPart(kDivision, std::nullopt), 3600);
    EXPECT_EQ(splitter.first(), 3600);
}

TEST_F(SplitterTest, TheUsualLengthLeavesBothTheirLeastToo) {
    EXPECT_EQ(firstPart({6000, 1500, 3000, 3600}, std::nullopt), 3000);
    EXPECT_EQ(firstPart({6000, 3700, 1000, 3600}, std::nullopt), 3700);
}

TEST_F(SplitterTest, AChosenShareIsKeptInARoomOfAnotherSize) {
    splitter.moveTo(2400);
    EXPECT_EQ(splitter.first(), 2400);
    splitter.setDivision({12000, 1500, 2000, 3600});
    EXPECT_EQ(splitter.first(), 4800);
}

TEST_F(SplitterTest, NoNeighbourGetsLessThanItsLeast) {
    splitter.moveTo(100);
    EXPECT_EQ(splitter.first(), 1500);
    splitter.moveTo(5900);
    EXPECT_EQ(splitter.first(), 4000);
    splitter.setDivision({4000, 1500, 2000, 3600});
    EXPECT_EQ(splitter.first(), 2000);
}

TEST_F(SplitterTest, ARoomThatWasTooSmallGivesTheShareBackWhenItGrows) {
    splitter.moveTo(4000);
    splitter.setDivision({3600, 1500, 2000, 2000});
    EXPECT_EQ(splitter.first(), 1600);
    splitter.setDivision(kDivision);
    EXPECT_EQ(splitter.first(), 4000);
}

TEST_F(SplitterTest, WithoutRoomForBothThereIsNothingToChoose) {
    splitter.setDivision({3500, 1500, 2000, 2100});
    EXPECT_FALSE(splitter.isMovable());
    EXPECT_EQ(splitter.first(), 1500) << "just enough for both";
    splitter.setDivision({3499, 1500, 2000, 2100});
    EXPECT_FALSE(splitter.isMovable());
    EXPECT_EQ(splitter.first(), 2100);
    splitter.moveTo(1800);
    EXPECT_EQ(splitter.share(), std::nullopt);
    EXPECT_EQ(moves, 0);
    EXPECT_EQ(firstPart({1000, 1500, 2000, 2100}, std::nullopt), 1000);
    EXPECT_EQ(firstPart({-5, 1500, 2000, 2100}, 5000), 0);
}

TEST_F(SplitterTest, ABarThatIsNotShownDoesNotMove) {
    splitter.setVisible(false);
    splitter.moveTo(2000);
    EXPECT_EQ(splitter.share(), std::nullopt);
}

TEST_F(SplitterTest, EveryMoveIsTold) {
    splitter.moveTo(2000);
    splitter.moveBy(150);
    EXPECT_EQ(splitter.first(), 2150);
    splitter.moveBy(-300);
    EXPECT_EQ(splitter.first(), 1850);
    EXPECT_EQ(moves, 3);
    splitter.moveTo(1850);
    EXPECT_EQ(moves, 3) << "it is there already";
}

TEST_F(SplitterTest, StepsAtTheEndLeadNoFurther) {
    splitter.moveTo(1500);
    splitter.moveBy(-150);
    splitter.moveBy(150);
    EXPECT_EQ(splitter.first(), 1650);
}

TEST_F(SplitterTest, ChoosingNothingBringsTheUsualPlaceBack) {
    splitter.moveTo(2000);
    splitter.choose(std::nullopt);
    EXPECT_EQ(splitter.first(), 3600);
    EXPECT_EQ(moves, 2);
    splitter.choose(std::nullopt);
    EXPECT_EQ(moves, 2);
}

TEST_F(SplitterTest, RestoringTellsNobody) {
    splitter.setShare(5000);
    EXPECT_EQ(splitter.first(), 3000);
    EXPECT_EQ(moves, 0);
}

TEST_F(SplitterTest, APixelOfTheMouseIsAPixelOfTheBarOnTheLargestScreen) {
    splitter.setDivision({31000, 1500, 2000, 3600});
    for (Twips wanted = 1500; wanted <= 29000; wanted += 15) {
        splitter.moveTo(wanted);
        ASSERT_NEAR(splitter.first(), wanted, 3);
    }
}

TEST_F(SplitterTest, TheTabKeyPassesOverIt) {
    EXPECT_FALSE(splitter.tabStop());
    EXPECT_TRUE(splitter.takesEscape());
}

}  // namespace
}  // namespace pellmark::test
