#include "featurecases/FeatureCaseGrid.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/FormHarness.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

constexpr int kTypeRow = FeatureCaseGrid::kTypeRow;
constexpr int kValueCol = FeatureCaseGrid::kValueCol;

struct FeatureCaseGridTest : testing::Test, FormHarness {
    FeatureCaseGridTest() {
        rows.layOut("Key", "Value");
        subscriptions.push_back(rows.typeChosen.subscribe([this] { events += "type "; }));
        subscriptions.push_back(rows.valueChosen.subscribe([this] { events += "value "; }));
    }
    void showHole() {
        rows.showTypes({{"T1", "Hole"}, {"T2", "Slot"}}, "T1");
        rows.showKeys({{"Diameter", {{"V1", "8"}, {"V2", "10"}}}, {"Thread", {{"V3", "M8"}}}}, {});
    }
    /// What a person does: opens the cell's list and takes the entry.
    bool choose(int row, const std::string& stored) {
        return grid.beginEdit(row, kValueCol) && grid.commitEdit(stored);
    }

    Grid grid{form, "VSFGProcessCase"};
    FeatureCaseGrid rows{grid};
    std::string events;
    std::vector<Subscription> subscriptions;
};

TEST_F(FeatureCaseGridTest, HasTwoColumnsOfWhichTheSecondIsEditable) {
    EXPECT_EQ(grid.cols(), 2);
    EXPECT_EQ(grid.heading(0), "Key");
    EXPECT_EQ(grid.heading(1), "Value");
    EXPECT_FALSE(grid.beginEdit(kTypeRow, 0));
    EXPECT_TRUE(grid.beginEdit(kTypeRow, 1));
}

TEST_F(FeatureCaseGridTest, ABarInATranslatedHeadingMakesNoThirdColumn) {
    rows.layOut("Cl|ef", "Va|leur");
    EXPECT_EQ(grid.cols(), 2);
    EXPECT_EQ(grid.heading(1), "Va leur");
}

TEST_F(FeatureCaseGridTest, StartsWithTheFeatureTypeRowAndNoneChosen) {
    EXPECT_EQ(grid.dataRows(), 1);
    EXPECT_EQ(grid.text(kTypeRow, 0), "Feature Type");
    EXPECT_EQ(grid.rowData(kTypeRow), "-1");
    EXPECT_EQ(rows.featureType(), "-1");
    EXPECT_THAT(rows.valueIds(), IsEmpty());
    EXPECT_EQ(grid.displayText(kTypeRow, kValueCol), "");
}

TEST_F(FeatureCaseGridTest, ShowsNamesAndKeepsIds) {
    showHole();
    EXPECT_EQ(grid.displayText(kTypeRow, kValueCol), "Hole");
    EXPECT_EQ(rows.featureType(), "T1");
    EXPECT_EQ(grid.text(3, 0), "Thread");
    EXPECT_EQ(grid.comboList(2, kValueCol).items().size(), 3U);
    EXPECT_EQ(grid.comboList(2, kValueCol).items().at(0).shown, "");
}

TEST_F(FeatureCaseGridTest, ATypeThatIsNotOfferedIsNotChosen) {
    rows.showTypes({{"T1", "Hole"}}, "T9");
    EXPECT_EQ(rows.featureType(), "-1");
}

TEST_F(FeatureCaseGridTest, ValueIdsComeInRowOrderWithoutTheRowsThatHaveNone) {
    showHole();
    rows.chooseValues({"V3"});
    EXPECT_THAT(rows.valueIds(), ElementsAre("V3"));
    rows.chooseValues({"V3", "V2"});
    EXPECT_THAT(rows.valueIds(), ElementsAre("V2", "V3"));
}

TEST_F(FeatureCaseGridTest, KeysWithoutAnyChosenValueGiveNoIdsAlthoughATypeIsChosen) {
    showHole();
    EXPECT_THAT(rows.valueIds(), IsEmpty());
    EXPECT_EQ(rows.featureType(), "T1");
}

TEST_F(FeatureCaseGridTest, OneKeyTakesTheFirstOfTwoValuesAndUnknownIdsArePassedOver) {
    showHole();
    rows.chooseValues({"V9", "", "V2", "V1"});
    EXPECT_THAT(rows.valueIds(), ElementsAre("V2"));
}

TEST_F(FeatureCaseGridTest, IdsMatchInAnyCaseAndWithOrWithoutBraces) {
    const std::string id = "{0E57FA0E-0000-4000-8000-0000000000AB}";
    rows.showTypes({{id, "Hole"}}, "0e57fa0e-0000-4000-8000-0000000000ab");
    EXPECT_EQ(rows.featureType(), id);
}

TEST_F(FeatureCaseGridTest, ChoosingAValueStoresItsIdAndTells) {
    showHole();
    EXPECT_TRUE(choose(2, "V2"));
    EXPECT_EQ(grid.rowData(2), "V2");
    EXPECT_EQ(grid.displayText(2, kValueCol), "10");
    EXPECT_EQ(events, "value ");
}

TEST_F(FeatureCaseGridTest, TheEmptyEntryTakesTheChoiceBack) {
    showHole();
    choose(2, "V2");
    EXPECT_TRUE(choose(2, ""));
    EXPECT_EQ(grid.rowData(2), "");
    EXPECT_THAT(rows.valueIds(), IsEmpty());
    EXPECT_TRUE(choose(kTypeRow, "-1"));
    EXPECT_EQ(rows.featureType(), "-1");
    EXPECT_EQ(events, "value value type ");
}

TEST_F(FeatureCaseGridTest, WhatIsNotOfferedIsRefusedAndTheEditGoesOn) {
    showHole();
    EXPECT_FALSE(choose(2, "V3"));
    EXPECT_TRUE(grid.isEditing());
    EXPECT_EQ(events, "");
    grid.cancelEdit();
    EXPECT_EQ(grid.rowData(2), "");
}

TEST_F(FeatureCaseGridTest, ChoosingTheSameValueAgainTellsNobody) {
    showHole();
    choose(2, "V2");
    EXPECT_TRUE(choose(2, "V2"));
    EXPECT_EQ(events, "value ");
}

TEST_F(FeatureCaseGridTest, FewerKeysLeaveNoRowsBehind) {
    showHole();
    rows.showKeys({{"Width", {{"V4", "5"}}}}, {"V4"});
    EXPECT_EQ(grid.dataRows(), 2);
    EXPECT_THAT(rows.shownRows(), ElementsAre(Pair("Feature Type", "Hole"), Pair("Width", "5")));
}

TEST_F(FeatureCaseGridTest, NamesMayHoldTheSignsOfAChoiceList) {
    rows.showTypes({{"T1", "#Hole; a|b"}}, "T1");
    EXPECT_EQ(grid.displayText(kTypeRow, kValueCol), "#Hole; a b");
}

TEST_F(FeatureCaseGridTest, TheCurrentCellStaysInTheGridWhenItsRowGoes) {
    showHole();
    grid.select(3, kValueCol);
    rows.showTypes({}, "-1");
    EXPECT_EQ(grid.dataRows(), 1) << "the keys were those of the other types";
    EXPECT_EQ(grid.row(), kTypeRow);
}

TEST_F(FeatureCaseGridTest, LayingOutAgainBringsTheUsualWidthsBack) {
    const std::vector<Twips> usual{grid.colWidth(0), grid.colWidth(1)};
    grid.userResizedColumn(0, 1);
    grid.userResizedColumn(1, 1);
    rows.layOut("Key", "Value");
    EXPECT_THAT(usual, ElementsAre(grid.colWidth(0), grid.colWidth(1)));
    EXPECT_FALSE(grid.widthsChosen());
}

}  // namespace
}  // namespace pellmark::test
