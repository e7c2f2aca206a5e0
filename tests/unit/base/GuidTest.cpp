#include "base/Guid.h"

#include <gtest/gtest.h>

#include <cstring>
#include <set>

namespace pellmark::test {

namespace {

constexpr char kText[] = "{C200E360-38C5-11CE-AE62-08002B2B79EF}";

}  // namespace

TEST(GuidTest, TheTextFormIsReadIntoThePlatformsMemoryLayout) {
    const auto guid = Guid::parse(kText);
    ASSERT_TRUE(guid.has_value());
    const std::array<std::uint8_t, 16> expected{0x60, 0xE3, 0x00, 0xC2, 0xC5, 0x38, 0xCE, 0x11,
                                                0xAE, 0x62, 0x08, 0x00, 0x2B, 0x2B, 0x79, 0xEF};
    EXPECT_EQ(guid->bytes, expected);
}

TEST(GuidTest, TheTextFormHasBracesAndUpperCase) {
    EXPECT_EQ(Guid::parse("{c200e360-38c5-11ce-ae62-08002b2b79ef}")->text(), kText);
    EXPECT_EQ(Guid().text(), "{00000000-0000-0000-0000-000000000000}");
}

TEST(GuidTest, BracesMayBeMissing) {
    EXPECT_EQ(Guid::parse("C200E360-38C5-11CE-AE62-08002B2B79EF"), Guid::parse(kText));
}

TEST(GuidTest, WhatIsNotAGuidIsRefused) {
    for (const char* const text :
         {"", "{}", "{C200E360-38C5-11CE-AE62-08002B2B79EF", "C200E360-38C5-11CE-AE62-08002B2B79EF}",
          "{C200E360-38C5-11CE-AE62-08002B2B79E}", "{C200E360-38C5-11CE-AE62-08002B2B79EG}",
          "{C200E36038C5-11CE-AE62-08002B2B79EF0}", "{C200E360-38C5-11CE-AE62-08002B2B79EF} ",
          "(C200E360-38C5-11CE-AE62-08002B2B79EF)", "{C200E360-38C5-11CE-AE6-208002B2B79EF}",
          "{C200E360038C5-11CE-AE62-08002B2B79EF}"}) {
        EXPECT_FALSE(Guid::parse(text).has_value()) << text;
    }
}

TEST(GuidTest, RandomGuidsAreOfVersion4AndDiffer) {
    std::set<std::string> seen;
    for (int i = 0; i < 1000; ++i) {
        const Guid guid = Guid::random();
        const std::string text = guid.text();
        EXPECT_EQ(text[15], '4') << text;
        EXPECT_NE(std::strchr("89AB", text[20]), nullptr) << text;
        EXPECT_EQ(Guid::parse(text), guid);
        seen.insert(text);
    }
    EXPECT_EQ(seen.size(), 1000U);
}

TEST(GuidTest, GuidsThatDifferInOneByteHashApart) {
    std::set<std::size_t> hashes;
    std::set<std::size_t> lowBits;
    for (std::size_t at = 0; at < 16; ++at) {
        for (unsigned value = 0; value < 256; ++value) {
            if (at != 0 && value == 0) continue;
            Guid guid;
            guid.bytes[at] = static_cast<std::uint8_t>(value);
            hashes.insert(hashOf(guid));
            lowBits.insert(hashOf(guid) % 1024);
        }
    }
    EXPECT_EQ(hashes.size(), 16U * 255U + 1U);
    EXPECT_GT(lowBits.size(), 900U);  // 4081 hashes over 1024 buckets leave about 19 empty
}

}  // namespace pellmark::test
