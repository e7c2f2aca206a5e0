#include "base/Ids.h"

#include <gtest/gtest.h>

namespace pellmark {
namespace {

TEST(IdsTest, AnIdIsBroughtIntoRegistryForm) {
    const std::string registry = "{C200E360-38C5-11CE-AE62-08002B2B79EF}";
    EXPECT_EQ(registryForm("c200e360-38c5-11ce-ae62-08002b2b79ef"), registry);
    EXPECT_EQ(registryForm("{c200E360-38c5-11ce-ae62-08002b2b79ef}"), registry);
    EXPECT_EQ(registryForm(registry), registry);
}

TEST(IdsTest, OtherTextsStayAsTheyAre) {
    EXPECT_EQ(registryForm("-1"), "-1");
    EXPECT_EQ(registryForm(""), "");
}

}  // namespace
}  // namespace pellmark
