#include "controls/grid/RowSelection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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

}  // namespace
}  // namespace pellmark::test
