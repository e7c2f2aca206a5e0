#include "refhost/store/LockPatience.h"

#include <gtest/gtest.h>

namespace norvex::test {
namespace {

using namespace std::chrono_literals;

constexpr LockPatience::Clock::time_point kStart{1h};

TEST(LockPatienceTest, ACallWaitsAsLongAsItMay) {
    LockPatience patience(5s);
    EXPECT_TRUE(patience.mayWait(true, kStart));
    EXPECT_TRUE(patience.mayWait(false, kStart + 4999ms));
    EXPECT_FALSE(patience.mayWait(false, kStart + 5s));
}

TEST(LockPatienceTest, TheCallsThatFollowOneThatWaitedInVainDoNotWait) {
    LockPatience patience(5s);
    EXPECT_TRUE(patience.mayWait(true, kStart));
    EXPECT_FALSE(patience.mayWait(false, kStart + 5s));
    for (auto now = kStart + 5s; now < kStart + 15s; now += 900ms)
        EXPECT_FALSE(patience.mayWait(true, now));
}

TEST(LockPatienceTest, WhoeverTriesAgainLaterIsWaitedForAgain) {
    LockPatience patience(5s);
    EXPECT_TRUE(patience.mayWait(true, kStart));
    EXPECT_FALSE(patience.mayWait(false, kStart + 5s));
    EXPECT_TRUE(patience.mayWait(true, kStart + 6s));
    EXPECT_TRUE(patience.mayWait(false, kStart + 10s));
    EXPECT_FALSE(patience.mayWait(false, kStart + 11s));
}

TEST(LockPatienceTest, WithoutPatienceNobodyWaits) {
    LockPatience patience(0s);
    EXPECT_FALSE(patience.mayWait(true, kStart));
}

}  // namespace
}  // namespace norvex::test
