#include "win32/ports/Win32Clock.h"

#include <gtest/gtest.h>

namespace pellmark::test {

TEST(Win32ClockTest, TheTimeIsWrittenWithItsMilliseconds) {
    std::string shape = Win32Clock().now();
    for (char& c : shape) {
        if (c >= '0' && c <= '9') c = '0';
    }
    EXPECT_EQ(shape, "0000-00-00 00:00:00.000");
}

}  // namespace pellmark::test
