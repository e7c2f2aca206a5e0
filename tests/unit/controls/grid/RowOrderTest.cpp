#include "controls/grid/RowOrder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace pellmark::test {
namespace {

TEST(RowOrderTest, RanksAreSlotsUntilSomethingIsRemoved) {
    RowOrder order;
    order.reset(200);
    EXPECT_EQ(order.count(), 200U);
    EXPECT_EQ(order.slotAt(150), 150U);
    EXPECT_EQ(order.rankOf(150), 150U);
    EXPECT_EQ(order.append(), 200U);
    EXPECT_EQ(order.count(), 201U);
}

TEST(RowOrderTest, RemovingTwiceOrOutsideChangesNothing) {
    RowOrder order;
    order.reset(3);
    order.remove(1);
    order.remove(1);
    order.remove(99);
    EXPECT_EQ(order.count(), 2U);
    EXPECT_FALSE(order.isLeft(1));
}

/// Against the plainest model there is, through thousands of mixed operations.
TEST(RowOrderTest, BehavesLikeAVectorOfSlots) {
    std::mt19937 random{20261120};
    for (const std::size_t start : {0U, 1U, 63U, 64U, 65U, 1000U}) {
        RowOrder order;
        order.reset(start);
        std::vector<std::size_t> model;
        for (std::size_t slot = 0; slot < start; ++slot)
            model.push_back(slot);
        for (int step = 0; step < 3000; ++step) {
            if (!model.empty() && random() % 5 < 3) {
                const std::size_t at = random() % model.size();
                order.remove(model[at]);
                model.erase(model.begin() + static_cast<std::ptrdiff_t>(at));
            } else {
                model.push_back(order.append());
            }
            ASSERT_EQ(order.count(), model.size());
            if (model.empty()) continue;
            const std::size_t probe = random() % model.size();
            ASSERT_EQ(order.slotAt(probe), model[probe]) << "start " << start << " step " << step;
            ASSERT_EQ(order.rankOf(model[probe]), probe);
            const std::size_t end = probe + random() % (model.size() - probe);
            std::vector<std::size_t> visited;
            order.eachRun(probe, end, [&](std::size_t first, std::size_t last) {
                for (std::size_t slot = first; slot <= last; ++slot)
                    visited.push_back(slot);
            });
            ASSERT_TRUE(std::equal(visited.begin(), visited.end(),
                                   model.begin() + static_cast<std::ptrdiff_t>(probe),
                                   model.begin() + static_cast<std::ptrdiff_t>(end) + 1));
        }
    }
}

}  // namespace
}  // namespace pellmark::test
