#include "controls/grid/RowSelection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace pellmark::test {
namespace {

std::vector<std::size_t> all(const RowSelection& selection) {
    std::vector<std::size_t> slots;
    for (std::size_t i = 0; i < selection.count(); ++i)
        slots.push_back(selection.at(i));
    return slots;
}

TEST(RowSelectionTest, AddingTwiceKeepsTheFirstPlace) {
    RowSelection selection;
    for (const std::size_t slot : {5U, 2U, 5U, 9U})
        selection.add(slot);
    EXPECT_THAT(all(selection), testing::ElementsAre(5, 2, 9));
}

TEST(RowSelectionTest, RemovingClosesTheGap) {
    RowSelection selection;
    for (const std::size_t slot : {5U, 2U, 9U, 7U})
        selection.add(slot);
    selection.remove(2);
    selection.remove(7);
    selection.remove(42);
    EXPECT_THAT(all(selection), testing::ElementsAre(5, 9));
    selection.add(2);
    EXPECT_THAT(all(selection), testing::ElementsAre(5, 9, 2));
    EXPECT_FALSE(selection.contains(7));
}

TEST(RowSelectionTest, ClearingForgetsEverything) {
    RowSelection selection;
    selection.add(3);
    selection.clear();
    EXPECT_EQ(selection.count(), 0U);
    EXPECT_FALSE(selection.contains(3));
    selection.add(1);
    EXPECT_THAT(all(selection), testing::ElementsAre(1));
}

using Runs = std::vector<std::pair<std::size_t, std::size_t>>;

Runs runsOf(const RowSelection& selection) {
    Runs runs;
    selection.eachRun([&](std::size_t first, std::size_t last) { runs.emplace_back(first, last); });
    return runs;
}

TEST(RowSelectionTest, ABlockKeepsThePlacesOfWhatWasSelectedBefore) {
    RowSelection selection;
    selection.add(5);
    selection.addRange(3, 7);
    selection.addRange(1, 9);
    EXPECT_THAT(all(selection), testing::ElementsAre(5, 3, 4, 6, 7, 1, 2, 8, 9));
}

TEST(RowSelectionTest, ABlockThatBeginsBeforeTheNewestRunIsInAscendingOrder) {
    RowSelection selection;
    selection.addRange(10, 12);
    selection.addRange(5, 20);
    EXPECT_THAT(all(selection),
                testing::ElementsAre(10, 11, 12, 5, 6, 7, 8, 9, 13, 14, 15, 16, 17, 18, 19, 20));
}

TEST(RowSelectionTest, TakingAPieceOutOfABlockLeavesItsEndsInPlace) {
    RowSelection selection;
    selection.add(20);
    selection.addRange(1, 6);
    selection.add(30);
    selection.removeRange(3, 4);
    EXPECT_THAT(all(selection), testing::ElementsAre(20, 1, 2, 5, 6, 30));
    EXPECT_EQ(runsOf(selection), (Runs{{1, 2}, {5, 6}, {20, 20}, {30, 30}}));
    selection.removeRange(2, 25);
    EXPECT_THAT(all(selection), testing::ElementsAre(1, 30));
}

TEST(RowSelectionTest, WalkingDownIsOneRunHoweverFarItGoes) {
    RowSelection selection;
    for (std::size_t slot = 100; slot < 20000; ++slot)
        selection.add(slot);
    EXPECT_EQ(runsOf(selection), (Runs{{100, 19999}}));
    EXPECT_EQ(selection.at(19000), 19100U);
}

TEST(RowSelectionTest, AMillionSlotsAreOneRun) {
    RowSelection selection;
    selection.addRange(0, 999999);
    selection.remove(500000);
    EXPECT_EQ(selection.count(), 999999U);
    EXPECT_EQ(selection.at(500000), 500001U);
    EXPECT_EQ(runsOf(selection).size(), 2U);
}

/// Every operation against the plainest list there is.
TEST(RowSelectionTest, AgreesWithAPlainListOfSlots) {
    RowSelection selection;
    std::vector<std::size_t> plain;
    std::uint32_t state = 1;
    const auto next = [&state](std::uint32_t below) {
        state = state * 1664525U + 1013904223U;
        return (state >> 8U) % below;
    };
    for (int i = 0; i < 3000; ++i) {
        const std::size_t first = next(60);
        const std::size_t last = first + next(8);
        if (next(3) > 0) {
            selection.addRange(first, last);
            for (std::size_t slot = first; slot <= last; ++slot) {
                if (std::find(plain.begin(), plain.end(), slot) == plain.end()) plain.push_back(slot);
            }
        } else {
            selection.removeRange(first, last);
            std::erase_if(plain, [&](std::size_t slot) { return slot >= first && slot <= last; });
        }
        ASSERT_EQ(all(selection), plain) << "after step " << i;
        ASSERT_EQ(selection.contains(first), std::find(plain.begin(), plain.end(), first) != plain.end());
    }
}

}  // namespace
}  // namespace pellmark::test
