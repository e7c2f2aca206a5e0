#include "refhost/windows/LocalDisk.h"

#include <gtest/gtest.h>

namespace norvex::test {
namespace {

TEST(LocalDiskTest, AFileOnADiskOfThisMachineIsLocalEvenBeforeItExists) {
    EXPECT_TRUE(isOnLocalDisk("C:\\windows\\system32\\kernel32.dll"));
    EXPECT_TRUE(isOnLocalDisk("C:\\nowhere\\never.db"));
}

TEST(LocalDiskTest, AFileOfAnotherMachineIsNot) {
    EXPECT_FALSE(isOnLocalDisk("\\\\elsewhere\\share\\knowledge.db"));
}

TEST(LocalDiskTest, WhatIsNoPathIsNot) {
    EXPECT_FALSE(isOnLocalDisk(""));
}

}  // namespace
}  // namespace norvex::test
