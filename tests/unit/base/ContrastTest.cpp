#include "base/Contrast.h"

#include <gtest/gtest.h>

namespace pellmark {
namespace {

constexpr Color kWhite = 0xFFFFFF;
constexpr Color kBlue = 0xFF0000;

TEST(ContrastTest, TheRatioGoesFromAlikeToBlackAndWhite) {
    EXPECT_DOUBLE_EQ(contrastOf(kRed, kRed), 1.0);
    EXPECT_DOUBLE_EQ(contrastOf(kBlack, kWhite), 21.0);
    EXPECT_DOUBLE_EQ(contrastOf(kWhite, kBlack), 21.0);
}

TEST(ContrastTest, TheComponentsCountAsTheEyeWeighsThem) {
    EXPECT_NEAR(contrastOf(kWhite, kRed), 4.00, 0.005);
    EXPECT_NEAR(contrastOf(kWhite, kGreen), 1.37, 0.005);
    EXPECT_NEAR(contrastOf(kWhite, kBlue), 8.59, 0.005);
    EXPECT_NEAR(contrastOf(kWhite, 0x808080), 3.95, 0.005);
}

TEST(ContrastTest, MixingGoesFromOneColourToTheOther) {
    EXPECT_EQ(mixed(kRed, kBlue, 0), kRed);
    EXPECT_EQ(mixed(kRed, kBlue, 255), kBlue);
    EXPECT_EQ(mixed(0x000000, 0x6496C8, 51), 0x141E28U);
    EXPECT_EQ(mixed(0x6496C8, 0x000000, 204), 0x141E28U);
}

TEST(ContrastTest, AColourIsDarkWhereWhiteStandsOut) {
    EXPECT_TRUE(isDark(kBlack));
    EXPECT_TRUE(isDark(kBlue));
    EXPECT_FALSE(isDark(kGreen));
    EXPECT_FALSE(isDark(kWhite));
}

TEST(ContrastTest, AReadableTextStaysAsItIs) {
    EXPECT_EQ(readableOn(kBlack, kRed), kRed);
    EXPECT_EQ(readableOn(kWhite, kBlue), kBlue);
}

TEST(ContrastTest, AnyTextOnAnyBackgroundBecomesReadable) {
    for (Color back = 0; back <= kWhite; back += 0x2B2B2B) {
        for (const Color text : {kBlack, kWhite, kRed, kGreen, kBlue, 0x808080U, back})
            EXPECT_GE(contrastOf(readableOn(back, text), back), kReadableContrast) << back << ' ' << text;
    }
}

TEST(ContrastTest, AMadeReadableTextKeepsItsHueAndGoesNoFurtherThanItMust) {
    constexpr Color kDark = 0x202020;
    const Color text = readableOn(kDark, kRed);
    EXPECT_EQ(text & 0xFFU, 0xFFU);
    EXPECT_LT((text >> 8U) & 0xFFU, 0x60U);
    EXPECT_LT(contrastOf(text, kDark), kReadableContrast + 0.1);
}

}  // namespace
}  // namespace pellmark
