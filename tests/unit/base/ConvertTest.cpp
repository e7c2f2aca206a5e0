#include "base/Convert.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/ThrownError.h"

namespace pellmark::test {

namespace {

class AnObject : public ObjectReference {};

}  // namespace

TEST(ConvertTest, AnEmptyValueIsAnEmptyTextAndZero) {
    EXPECT_EQ(toText(Variant()), "");
    EXPECT_EQ(toInt32(Variant()), 0);
    EXPECT_EQ(toDouble(Variant()), 0.0);
}

TEST(ConvertTest, TrueIsMinusOne) {
    EXPECT_EQ(toText(true), "True");
    EXPECT_EQ(toText(false), "False");
    EXPECT_EQ(toInt32(true), -1);
    EXPECT_EQ(toDouble(true), -1.0);
    EXPECT_EQ(toInt32(false), 0);
}

TEST(ConvertTest, IntegersBecomeTheirDecimalDigits) {
    EXPECT_EQ(toText(std::int16_t{-70}), "-70");
    EXPECT_EQ(toText(std::numeric_limits<std::int32_t>::min()), "-2147483648");
    EXPECT_EQ(toInt32(std::int16_t{-70}), -70);
}

TEST(ConvertTest, ADoubleIsWrittenWith15DigitsAndADecimalPoint) {
    EXPECT_EQ(toText(0.1), "0.1");
    EXPECT_EQ(toText(0.1 + 0.2), "0.3");
    EXPECT_EQ(toText(1.0 / 3), "0.333333333333333");
    EXPECT_EQ(toText(-12.5), "-12.5");
    EXPECT_EQ(toText(100.0), "100");
    EXPECT_EQ(toText(1e20), "1E+20");
    EXPECT_EQ(toText(-0.0), "0");
}

TEST(ConvertTest, AFloatIsWrittenWith7Digits) {
    EXPECT_EQ(toText(0.1F), "0.1");
}

TEST(ConvertTest, TextsStayAsTheyAre) {
    EXPECT_EQ(toText(" M8 "), " M8 ");
}

TEST(ConvertTest, NumberTextsAreReadWithBlanksSignsAndExponents) {
    EXPECT_EQ(toDouble(" 12.5 "), 12.5);
    EXPECT_EQ(toDouble("+3"), 3.0);
    EXPECT_EQ(toDouble("-.5"), -0.5);
    EXPECT_EQ(toDouble("1e3"), 1000.0);
    EXPECT_EQ(toInt32("16777215"), 16777215);
}

TEST(ConvertTest, ADecimalCommaIsReadAsAPoint) {
    EXPECT_EQ(toDouble("0,5"), 0.5);
    EXPECT_EQ(toDouble("-12,25"), -12.25);
}

TEST(ConvertTest, AMixOfSeparatorsIsNoNumber) {
    EXPECT_EQ(errorOf([] { toDouble("1,234.5"); }).number(), errors::kTypeMismatch);
    EXPECT_EQ(errorOf([] { toDouble("1,234,567"); }).number(), errors::kTypeMismatch);
}

TEST(ConvertTest, TextsThatAreNoNumbersAreATypeMismatch) {
    for (const char* const text :
         {"", " ", "abc", "12x", "x12", "nan", "inf", "-", "+-1", "+", "1e", "0x10", "1 2"}) {
        EXPECT_EQ(errorOf([&] { toDouble(text); }).number(), errors::kTypeMismatch) << text;
        EXPECT_EQ(errorOf([&] { toInt32(text); }).number(), errors::kTypeMismatch) << text;
    }
}

TEST(ConvertTest, HalvesAreRoundedToTheEvenNeighbour) {
    EXPECT_EQ(toInt32(0.5), 0);
    EXPECT_EQ(toInt32(1.5), 2);
    EXPECT_EQ(toInt32(2.5), 2);
    EXPECT_EQ(toInt32(-0.5), 0);
    EXPECT_EQ(toInt32(-1.5), -2);
    EXPECT_EQ(toInt32(-2.5), -2);
    EXPECT_EQ(toInt32("2,5"), 2);
}

TEST(ConvertTest, OtherFractionsAreRoundedToTheNearest) {
    EXPECT_EQ(toInt32(2.4999), 2);
    EXPECT_EQ(toInt32(2.5001), 3);
    EXPECT_EQ(toInt32(-2.6F), -3);
    EXPECT_EQ(toInt32("99.9"), 100);
}

TEST(ConvertTest, ANumberOutOfRangeIsAnOverflow) {
    EXPECT_EQ(toInt32(2147483647.4), 2147483647);
    EXPECT_EQ(errorOf([] { toInt32(2147483647.5); }).number(), errors::kOverflow);
    EXPECT_EQ(errorOf([] { toInt32("-2147483649"); }).number(), errors::kOverflow);
    EXPECT_EQ(errorOf([] { toInt32(std::numeric_limits<double>::quiet_NaN()); }).number(), errors::kOverflow);
    EXPECT_EQ(errorOf([] { toDouble("1e999"); }).number(), errors::kOverflow);
}

TEST(ConvertTest, BytesAndObjectsAreATypeMismatch) {
    const Variant bytes = ByteArray{1, 2};
    const Variant object = std::shared_ptr<ObjectReference>(std::make_shared<AnObject>());
    EXPECT_EQ(errorOf([&] { toText(bytes); }).number(), errors::kTypeMismatch);
    EXPECT_EQ(errorOf([&] { toInt32(bytes); }).number(), errors::kTypeMismatch);
    EXPECT_EQ(errorOf([&] { toText(object); }).number(), errors::kTypeMismatch);
    EXPECT_EQ(errorOf([&] { toDouble(object); }).number(), errors::kTypeMismatch);
}

}  // namespace pellmark::test
