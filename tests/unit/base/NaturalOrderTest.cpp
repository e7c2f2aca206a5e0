#include "base/NaturalOrder.h"

#include <gtest/gtest.h>

#include <string>

namespace pellmark {
namespace {

void expectBefore(const std::string& left, const std::string& right) {
    EXPECT_LT(compareNatural(left, right), 0) << left << " before " << right;
    EXPECT_GT(compareNatural(right, left), 0) << right << " after " << left;
}

TEST(NaturalOrderTest, NumbersCompareByTheirValue) {
    expectBefore("Drill 9", "Drill 10");
    expectBefore("M6x1", "M12x1");
    expectBefore("9", "10");
    expectBefore("D 99999999999999999999998", "D 99999999999999999999999");
    expectBefore("D 99999999999999999999999", "D 100000000000000000000000");
}

TEST(NaturalOrderTest, ANumberStandsBeforeALetterAndAfterABlank) {
    expectBefore("Drill 9", "Drill deep");
    expectBefore("Drill  deep", "Drill 9");
}

TEST(NaturalOrderTest, LettersCompareWithoutCase) {
    EXPECT_EQ(compareNatural("drill", "DRILL"), 0);
    EXPECT_EQ(compareNatural("\xC3\xA4rmel", "\xC3\x84RMEL"), 0);  // a umlaut
    EXPECT_EQ(compareNatural("\xD0\x96", "\xD0\xB6"), 0);          // Cyrillic zhe
    EXPECT_EQ(compareNatural("\xC5\xA0koda", "\xC5\xA1koda"), 0);  // s with caron
    EXPECT_EQ(compareNatural("\xC5\xBD", "\xC5\xBE"), 0);          // z with caron
    EXPECT_EQ(compareNatural("\xCE\xA9", "\xCF\x89"), 0);          // omega
    expectBefore("apple", "Banana");
}

TEST(NaturalOrderTest, LeadingZerosDoNotCount) {
    EXPECT_EQ(compareNatural("T007", "T7"), 0);
    EXPECT_EQ(compareNatural("T000", "T0"), 0);
    expectBefore("T007", "T8");
    expectBefore("T0", "T01");
}

TEST(NaturalOrderTest, APrefixStandsFirstAndEmptyStandsBeforeEverything) {
    expectBefore("", "a");
    expectBefore("Drill", "Drill 1");
    expectBefore("Drill 1", "Drill 1a");
    EXPECT_EQ(compareNatural("", ""), 0);
}

TEST(NaturalOrderTest, KeysStandInTheSameOrderAsTheirTexts) {
    const std::string texts[] = {"",
                                 "0",
                                 "00",
                                 "1",
                                 "9",
                                 "10",
                                 "010",
                                 "9a",
                                 "10a",
                                 "a",
                                 "A",
                                 "a 1",
                                 "a1",
                                 "a01b2",
                                 "a1b10",
                                 "a-",
                                 "M3",
                                 "M3x0.5",
                                 "M10",
                                 "m10 fine",
                                 "!",
                                 "~",
                                 "\xC3\xA4",
                                 "\xC3\x84"
                                 "b",
                                 "\xD0\x96",
                                 "\xE8\xA8\x98",
                                 "\xF0\x9F\x94\xA9",
                                 "99999999999999999999",
                                 "100000000000000000000",
                                 "1.5",
                                 "1.25",
                                 " 1",
                                 "1 "};
    const auto sign = [](int order) { return (order > 0) - (order < 0); };
    for (const std::string& left : texts) {
        for (const std::string& right : texts) {
            EXPECT_EQ(sign(naturalKey(left).compare(naturalKey(right))), sign(compareNatural(left, right)))
                << "'" << left << "' and '" << right << "'";
        }
    }
}

TEST(NaturalOrderTest, BrokenTextComparesWithoutFailing) {
    EXPECT_EQ(compareNatural("\xFF", "\xFF"), 0);
    expectBefore("a", "\xFF");
}

}  // namespace
}  // namespace pellmark
