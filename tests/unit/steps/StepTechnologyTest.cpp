#include "steps/StepTechnology.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "knowledge/MemoryRecordSet.h"
#include "support/FakeTechnology.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TechParams valuesOf(const std::vector<std::pair<std::int32_t, Variant>>& values) {
    TechParams params;
    for (const auto& [code, value] : values)
        params.Add("", code)->setValue(value);
    return params;
}

TEST(StepTechnologyTest, ThreeCodesAreAlwaysTexts) {
    for (const std::int32_t code : {432, 1764, 1767})
        EXPECT_TRUE(isAlwaysText(code)) << code;
    for (const std::int32_t code : {431, 433, 1763, 1765, 1766, 1768, 0, -432})
        EXPECT_FALSE(isAlwaysText(code)) << code;
}

TEST(StepTechnologyTest, QuotesGoWhereverTheyStand) {
    EXPECT_EQ(withoutQuotes("\"a\"\"b'\""), "ab'");
    EXPECT_EQ(withoutQuotes("\""), "");
}

TEST(StepTechnologyTest, StoredValuesAreTextsByTheirCodesAndTheFirstOfTwoCounts) {
    MemoryRecordSet records({field::kValue, field::kClFileCode});
    records.addRow({"2.5", "7"});
    records.addRow({"", "-1"});
    records.addRow({"3.5", "7"});
    const TechParams values = storedValues(records);
    EXPECT_EQ(values.Count(), 2);
    EXPECT_EQ(values.Item("7")->Value(), Variant(std::string("2.5")));
    EXPECT_EQ(values.Item("-1")->Value(), Variant(std::string()));
}

TEST(StepTechnologyTest, TheFirstOfTwoParametersWithOneCodeCounts) {
    FakeTechnology technology(602);
    technology.add(7, 1.0).add(7, 2.0).add(8, Variant{});
    const TechParams values = valuesNow(technology);
    EXPECT_EQ(values.Count(), 2);
    EXPECT_EQ(values.Item("7")->Value(), Variant(1.0));
    EXPECT_TRUE(isEmpty(values.Item("8")->Value()));
}

TEST(StepTechnologyTest, AFigureThatIsOnlyShownIsNoneOfTheStepsUnlessSomebodyHasSetIt) {
    constexpr std::int16_t kShown = 1;
    FakeTechnology technology(602);
    technology.add(7, 1.0, kShown).add(8, 2.0, kShown, TechnologyParameter::kStateSet);
    technology.add(9, 3.0, TechnologyParameter::kKindInput).add(10, 4.0, TechnologyParameter::kKindKept);
    const TechParams values = valuesNow(technology);
    EXPECT_EQ(values.find(7), nullptr);
    ASSERT_EQ(values.Count(), 3);
    EXPECT_EQ(values.Item("8")->Value(), Variant(2.0));
}

TEST(StepTechnologyTest, ATextIsANumberOnlyWhereItReadsAsOneAndTheParameterHoldsNoText) {
    const auto handed = [](std::int32_t code, const Variant& holds, const std::string& text) {
        FakeParameter parameter(code, 2, 0, holds);
        handOver(parameter, text);
        return parameter.value();
    };
    EXPECT_EQ(handed(1, 1.0, "2.50"), Variant(2.5));
    EXPECT_EQ(handed(1, Variant{}, "-1E3"), Variant(-1000.0));
    EXPECT_EQ(handed(1, Variant{}, "M8"), Variant(std::string("M8")));
    EXPECT_EQ(handed(1, 1.0, ""), Variant(std::string()));
    EXPECT_EQ(handed(1, 1.0, "  "), Variant(std::string("  ")));
    EXPECT_EQ(handed(1, std::string("x"), "2.50"), Variant(std::string("2.50")));
    EXPECT_EQ(handed(1767, 1.0, "2.50"), Variant(std::string("2.50")));
}

TEST(StepTechnologyTest, OnlyWhatDiffersIsAChange) {
    const TechParams before =
        valuesOf({{1, 1.0}, {2, std::string("a")}, {3, Variant{}}, {4, 4.0}, {5, Variant{}}});
    const TechParams after = valuesOf({{1, std::string("1")},
                                       {2, std::string("b")},
                                       {3, std::string()},
                                       {4, 4.5},
                                       {6, 6.0},
                                       {5, Variant{}}});
    const ValueChanges changes = changesBetween(before, after, before, "id");
    EXPECT_THAT(changes.set, ElementsAre(StepValueRecord{"id", 2, "b"}, StepValueRecord{"id", 3, ""},
                                         StepValueRecord{"id", 4, "4.5"}, StepValueRecord{"id", 6, "6"}));
    EXPECT_THAT(changes.removed, IsEmpty());
}

TEST(StepTechnologyTest, WhatIsEmptyOrGoneIsRemovedWhereItWasStored) {
    const TechParams before =
        valuesOf({{1, 1.0}, {2, 2.0}, {3, 3.0}, {4, 4.0}, {5, Variant{}}, {6, Variant{}}});
    const TechParams after = valuesOf({{1, Variant{}}, {3, Variant{}}, {5, Variant{}}});
    const TechParams stored = valuesOf(
        {{1, std::string("1")}, {2, std::string("2")}, {5, std::string("5")}, {6, std::string("6")}});
    const ValueChanges changes = changesBetween(before, after, stored, "id");
    EXPECT_THAT(changes.removed, ElementsAre(1, 2));
    EXPECT_THAT(changes.set, IsEmpty());
}

}  // namespace
}  // namespace pellmark::test
