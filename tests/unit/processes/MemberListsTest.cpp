#include "processes/MemberLists.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/CaseHarness.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct MemberListsTest : testing::Test, CaseHarness {
    MemberListsTest() {
        lists.prepare();
        lists.show({{"1", "b", {}}, {"2", "a", {}}}, {{"3", "c", {}}});
    }
    MemberLists lists{person, form, "FrameProcesses"};
};

TEST_F(MemberListsTest, TheFourButtonsMoveSelectedOrAllItemsEachWay) {
    lists.LV1.select(1);
    lists.CmdAddft.click();
    EXPECT_THAT(shown(lists.LV2), ElementsAre("c", "a"));
    lists.CmdAddAllft.click();
    EXPECT_THAT(shown(lists.LV1), IsEmpty());
    lists.LV2.select(0);
    lists.CmdRevomeft.click();
    EXPECT_THAT(shown(lists.LV1), ElementsAre("c"));
    lists.CmdremoveAllft.click();
    EXPECT_THAT(shown(lists.LV2), IsEmpty());
}

TEST_F(MemberListsTest, AButtonWithoutASelectionMovesNothing) {
    lists.CmdAddft.click();
    EXPECT_THAT(shown(lists.LV1), ElementsAre("b", "a"));
}

TEST_F(MemberListsTest, ADoubleClickMovesTheItemUnderTheMouse) {
    lists.LV1.selectAll();
    lists.LV1.doubleClicked.raise(1);
    EXPECT_THAT(shown(lists.LV2), ElementsAre("c", "a"));
    lists.LV2.doubleClicked.raise(-1);
    EXPECT_THAT(shown(lists.LV2), ElementsAre("c", "a"));
}

TEST_F(MemberListsTest, AClickOnAHeadingSortsItsList) {
    lists.LV1.columnClicked.raise(0);
    EXPECT_THAT(shown(lists.LV1), ElementsAre("a", "b"));
    lists.LV1.columnClicked.raise(0);
    EXPECT_THAT(shown(lists.LV1), ElementsAre("b", "a"));
    EXPECT_FALSE(lists.LV2.sorted());
}

TEST_F(MemberListsTest, WhatIsTakenOverHasThePersonsMovesOnTopOfIt) {
    lists.LV1.select(0);
    lists.CmdAddft.click();
    EXPECT_FALSE(lists.takeOver({{"1", "b", {}}, {"2", "a", {}}}, {{"3", "c", {}}}));
    // the other has taken "c" out and another in, one that the list of all does not name
    EXPECT_TRUE(lists.takeOver({{"1", "b", {}}, {"2", "a", {}}, {"3", "c", {}}}, {{"9", "gone", {}}}));
    EXPECT_THAT(shown(lists.LV1), ElementsAre("a", "c"));
    EXPECT_THAT(shown(lists.LV2), ElementsAre("b", "gone"));
    EXPECT_TRUE(lists.isChanged());
    lists.noteStored("1");
    EXPECT_FALSE(lists.isChanged());
}

TEST_F(MemberListsTest, WhatIsShownTakesThePlaceOfWhatWasShownBefore) {
    lists.show({{"4", "d", {}}}, {{"5", "e", {}}});
    EXPECT_THAT(shown(lists.LV1), ElementsAre("d"));
    EXPECT_THAT(shown(lists.LV2), ElementsAre("e"));
}

TEST_F(MemberListsTest, ItemsWithTheSameKeyLeaveNoHalfAList) {
    EXPECT_THROW(lists.show({{"1", "a", {}}, {"1", "b", {}}}, {{"2", "c", {}}}), Error);
    EXPECT_THAT(shown(lists.LV1), IsEmpty());
    EXPECT_THAT(shown(lists.LV2), IsEmpty());
    EXPECT_THROW(lists.show({{"1", "a", {}}}, {{"2", "b", {}}, {"2", "c", {}}}), Error);
    EXPECT_THAT(shown(lists.LV1), IsEmpty());
    EXPECT_THAT(shown(lists.LV2), IsEmpty());
}

TEST_F(MemberListsTest, TheOneColumnFollowsTheWidthOfItsList) {
    lists.arrange({9000, 4000});
    const Twips narrow = lists.LV1.columnHeaders().at(0).width;
    lists.arrange({11000, 4000});
    EXPECT_EQ(lists.LV1.columnHeaders().at(0).width, narrow + 1000);
    EXPECT_LT(lists.LV1.columnHeaders().at(0).width, lists.LV1.bounds().width);
    lists.arrange({100, 100});
    EXPECT_EQ(lists.LV1.bounds().width, 0);
}

}  // namespace
}  // namespace pellmark::test
