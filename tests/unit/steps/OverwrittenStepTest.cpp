#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <map>

#include "steps/cProcessSteps.h"
#include "support/StepsHarness.h"

namespace pellmark::test {
namespace {

using testing::IsEmpty;
using testing::Pair;
using testing::UnorderedElementsAre;

constexpr const char* kOverwrite =
    "Somebody else has changed the same values of this step meanwhile. Store yours in their place?";

/// Two people in the wizard of the same step.
class OverwrittenStepTest : public testing::Test, protected StepsHarness {
  protected:
    OverwrittenStepTest() : id(base.addStep(base.addProcess("A"), "Drill", 1, 602)) {
        start();
        technology.setDefaults(FakeTechnology(602).add(10, 1.0).add(11, 2.0));
        storeValue(10, "100");
        storeValue(11, "200");
        technology.wizard = [this](FakeTechnology& shown) {
            other();
            shown.parameterOf(10)->type(mine);
            return true;
        };
    }
    ProcessStepRecord& record() { return base.tables().requireStep(id).record; }
    std::map<std::int32_t, std::string>& values() { return base.tables().requireStep(id).values; }
    void storeValue(std::int32_t code, const std::string& value) { values()[code] = value; }

    std::string id;
    std::function<void()> other = [] {};
    Variant mine = 90.0;
};

TEST_F(OverwrittenStepTest, TheValueOfTheOtherIsKeptUnlessThePersonSaysOtherwise) {
    other = [this] { storeValue(10, "120"); };
    desktop.expectMessage(kOverwrite, MessageAnswer::Cancel);
    steps.Editwizard();
    EXPECT_THAT(valuesOf(id), UnorderedElementsAre(Pair(10, "120"), Pair(11, "200")));
    EXPECT_THAT(changes(), IsEmpty());
    EXPECT_TRUE(desktop.messages().back().cancelIsDefault);
    other = [this] { storeValue(10, "130"); };
    desktop.expectMessage(kOverwrite);
    steps.Editwizard();
    EXPECT_THAT(valuesOf(id), UnorderedElementsAre(Pair(10, "90"), Pair(11, "200")));
}

TEST_F(OverwrittenStepTest, AValueThatTheOtherHasAddedOrTakenAwayIsOneOfTheirs) {
    other = [this] { values().erase(10); };
    desktop.expectMessage(kOverwrite, MessageAnswer::Cancel);
    steps.Editwizard();
    storeValue(10, "100");
    mine = Variant{};
    other = [this] { storeValue(10, "120"); };
    desktop.expectMessage(kOverwrite, MessageAnswer::Cancel);
    steps.Editwizard();
    EXPECT_THAT(changes(), IsEmpty());
}

TEST_F(OverwrittenStepTest, OtherValuesOfTheOtherAndTheSameChangeAreNoReasonToAsk) {
    other = [this] { storeValue(11, "250"); };
    steps.Editwizard();
    EXPECT_THAT(valuesOf(id), UnorderedElementsAre(Pair(10, "90"), Pair(11, "250")));
    mine = 80.0;
    other = [this] { storeValue(10, "80"); };
    steps.Editwizard();
    EXPECT_THAT(valuesOf(id), UnorderedElementsAre(Pair(10, "80"), Pair(11, "250")));
}

TEST_F(OverwrittenStepTest, ANameThatBothHaveChangedIsAskedAboutToo) {
    technology.wizard = [this](FakeTechnology& shown) {
        record().name = "theirs";
        shown.setOperationName("mine");
        return true;
    };
    desktop.expectMessage(kOverwrite, MessageAnswer::Cancel);
    steps.Editwizard();
    EXPECT_EQ(record().name, "theirs");
}

}  // namespace
}  // namespace pellmark::test
