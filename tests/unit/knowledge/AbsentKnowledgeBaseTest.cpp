#include "knowledge/AbsentKnowledgeBase.h"

#include <gtest/gtest.h>

#include <functional>

#include "support/ThrownError.h"

namespace pellmark::test {
namespace {

TEST(AbsentKnowledgeBaseTest, ItIsNotConnectedAndEveryQuestionSaysWhy) {
    AbsentKnowledgeBase absent("its class is not registered");
    EXPECT_FALSE(absent.isConnected());
    const std::function<void()> questions[] = {[&] { absent.userRights(); }, [&] { absent.processStore(); },
                                               [&] { absent.featureCaseStore(); },
                                               [&] { absent.materialStore(); }, [&] { absent.stepStore(); }};
    for (const auto& question : questions) {
        const Error error = errorOf(question);
        EXPECT_EQ(error.number(), errors::kKnowledgeBase);
        EXPECT_EQ(error.source(), "Pellmark");
        EXPECT_EQ(error.description(),
                  "The host's knowledge-base service could not be created: its class is not registered");
    }
}

}  // namespace
}  // namespace pellmark::test
