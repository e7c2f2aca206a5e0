#include "steps/TechParams.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ThrownError.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;

std::vector<std::int32_t> codesOf(const TechParams& params) {
    std::vector<std::int32_t> codes;
    for (const auto& param : params.NewEnum())
        codes.push_back(param->ClCode());
    return codes;
}

TEST(TechParamTest, EverythingStartsEmpty) {
    const TechParam param;
    EXPECT_TRUE(std::holds_alternative<std::monostate>(param.Value()));
    EXPECT_EQ(param.Caption(), "");
    EXPECT_FALSE(param.Locked());
    EXPECT_FALSE(param.Hidden());
    EXPECT_EQ(param.ClCode(), 0);
    EXPECT_EQ(param.Expression(), "");
}

TEST(TechParamTest, EveryPropertyKeepsWhatItWasGiven) {
    TechParam param;
    param.setValue(Variant(0.25));
    param.setCaption("Feed");
    param.setLocked(true);
    param.setHidden(true);
    param.setClCode(-7);
    param.setExpression("D * 2");
    EXPECT_EQ(param.Value(), Variant(0.25));
    EXPECT_EQ(param.Caption(), "Feed");
    EXPECT_TRUE(param.Locked());
    EXPECT_TRUE(param.Hidden());
    EXPECT_EQ(param.ClCode(), -7);
    EXPECT_EQ(param.Expression(), "D * 2");
}

TEST(TechParamTest, AnObjectComesBackAsTheSameReference) {
    const auto object = std::make_shared<ObjectReference>();
    TechParam param;
    param.setValue(object);
    EXPECT_EQ(std::get<std::shared_ptr<ObjectReference>>(param.Value()), object);
    EXPECT_EQ(object.use_count(), 2);
}

TEST(TechParamsTest, AnAddedParameterHasItsExpressionAndCodeAndNothingElse) {
    TechParams params;
    const auto added = params.Add("D / 2", 1204);
    ASSERT_NE(added, nullptr);
    EXPECT_EQ(added->Expression(), "D / 2");
    EXPECT_EQ(added->ClCode(), 1204);
    EXPECT_EQ(added->Caption(), "");
    EXPECT_EQ(params.Item("1204"), added);
}

TEST(TechParamsTest, ACodeThatIsThereAlreadyIsNotAddedAgain) {
    TechParams params;
    params.Add("first", 5);
    params.Add("", 7);
    EXPECT_EQ(params.Add("second", 5), nullptr);
    EXPECT_THAT(codesOf(params), ElementsAre(5, 7));
    EXPECT_EQ(params.Count(), 2);
    EXPECT_EQ(params.Item("5")->Expression(), "first");
}

TEST(TechParamsTest, AMemberIsFoundByPositionAndByKey) {
    TechParams params;
    params.Add("", 5);
    params.Add("", -7);
    EXPECT_EQ(params.Item(2), params.Item("-7"));
    EXPECT_EQ(params[1], params["5"]);
    EXPECT_EQ(params.find(-7), params.Item(2).get());
    EXPECT_EQ(params.find(6), nullptr);
}

TEST(TechParamsTest, WhatIsNotThereIsAnInvalidArgument) {
    TechParams params;
    params.Add("", 7);
    for (const std::int32_t position : {-1, 0, 2}) {
        EXPECT_EQ(errorOf([&] { params.Item(position); }).number(), errors::kInvalidArgument) << position;
        EXPECT_EQ(errorOf([&] { params.Remove(position); }).number(), errors::kInvalidArgument) << position;
    }
    for (const char* key : {"0007", "07", "+7", "7 ", "", "8"}) {
        EXPECT_EQ(errorOf([&] { params.Item(key); }).number(), errors::kInvalidArgument) << key;
        EXPECT_EQ(errorOf([&] { params.Remove(key); }).number(), errors::kInvalidArgument) << key;
    }
    EXPECT_EQ(params.Count(), 1);
}

TEST(TechParamsTest, RemovingMovesTheOthersUp) {
    TechParams params;
    for (const std::int32_t code : {5, 7, 9})
        params.Add("", code);
    params.Remove(1);
    EXPECT_EQ(params.Item(1)->ClCode(), 7);
    EXPECT_EQ(params.Count(), 2);
    EXPECT_EQ(params.find(5), nullptr);
    params.Remove("9");
    EXPECT_THAT(codesOf(params), ElementsAre(7));
    EXPECT_NE(params.Add("", 5), nullptr);
    EXPECT_NE(params.Add("", 9), nullptr);
    EXPECT_THAT(codesOf(params), ElementsAre(7, 5, 9));
}

TEST(TechParamsTest, ALoopWalksTheMembersInTheOrderOfTheirAdding) {
    TechParams params;
    for (const std::int32_t code : {9, 5, 7})
        params.Add("", code);
    std::vector<std::int32_t> codes;
    for (const auto& param : params)
        codes.push_back(param->ClCode());
    EXPECT_THAT(codes, ElementsAre(9, 5, 7));
}

}  // namespace
}  // namespace pellmark::test
