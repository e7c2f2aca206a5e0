#include "win32/Handles.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace pellmark::test {

namespace {

std::vector<int> closed;

void closeNumber(int* handle) {
    closed.push_back(*handle);
    ::SetLastError(ERROR_INVALID_HANDLE);
}

using NumberHandle = Handle<int*, &closeNumber>;

}  // namespace

class HandlesTest : public ::testing::Test {
  protected:
    HandlesTest() { closed.clear(); }

    int one = 1;
    int two = 2;
};

TEST_F(HandlesTest, AHandleIsClosedOnceWhenItsOwnerDies) {
    { const NumberHandle handle(&one); }
    EXPECT_EQ(closed, std::vector<int>{1});
}

TEST_F(HandlesTest, ClosingKeepsTheLastError) {
    NumberHandle handle(&one);
    ::SetLastError(ERROR_DISK_FULL);
    handle.reset();
    EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_DISK_FULL));
}

TEST_F(HandlesTest, AMovedHandleIsClosedByItsNewOwnerOnly) {
    NumberHandle first(&one);
    {
        NumberHandle second(&two);
        second = std::move(first);
        EXPECT_EQ(closed, std::vector<int>{2});
    }
    EXPECT_EQ(closed, (std::vector<int>{2, 1}));
}

TEST_F(HandlesTest, AReleasedOrEmptyHandleIsNotClosed) {
    {
        NumberHandle handle(&one);
        EXPECT_TRUE(handle);
        EXPECT_EQ(handle.release(), &one);
        EXPECT_FALSE(handle);
        const FileHandle none;
        EXPECT_EQ(none.get(), INVALID_HANDLE_VALUE);
        EXPECT_FALSE(none);
    }
    EXPECT_TRUE(closed.empty());
}

}  // namespace pellmark::test
