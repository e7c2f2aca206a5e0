#include <gtest/gtest.h>

#include "support/win32/Watchdog.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    // two hundred uses of a component take their time on a busy machine
    constexpr int kSeconds = 500;
    const pellmark::test::Watchdog watchdog(kSeconds);
    return RUN_ALL_TESTS();
}
