#include "ports/AbsentTechnology.h"

#include <gtest/gtest.h>

#include <functional>

#include "support/FakeTechnology.h"
#include "support/ThrownError.h"

namespace pellmark::test {
namespace {

TEST(AbsentTechnologyTest, EveryUseSaysWhyThereIsNone) {
    AbsentTechnology absent("its class is not registered");
    FakeTechnology technology(602);
    const std::function<void()> uses[] = {[&] { absent.create(602, ""); },
                                          [&] { absent.edit(technology, 0); },
                                          [&] { absent.runStepWizard(technology, 0); },
                                          [&] { absent.read("a.prc", {}); },
                                          [&] { absent.write("a.prc", {}); },
                                          [&] { absent.defaultFolder(); },
                                          [&] { absent.stored("", technology); }};
    for (const auto& use : uses) {
        const Error error = errorOf(use);
        EXPECT_EQ(error.number(), errors::kHostInterface);
        EXPECT_EQ(error.source(), "Pellmark");
        EXPECT_EQ(error.description(),
                  "The host's technology service could not be created: its class is not registered");
    }
}

}  // namespace
}  // namespace pellmark::test
