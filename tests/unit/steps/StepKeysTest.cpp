#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/StepsHarness.h"

namespace pellmark::test {
namespace {

using testing::IsEmpty;

class StepKeysTest : public testing::Test, protected StepsHarness {
  protected:
    StepKeysTest() {
        const std::string process = base.addProcess("A");
        step = base.addStep(process, "a", 1, 602);
        start();
    }
    /// Whether the list has taken the key.
    bool press(int keyCode, bool control = false) {
        KeyPress key;
        key.keyCode = keyCode;
        key.control = control;
        grid.keyPressed.raise(key);
        return key.handled;
    }

    std::string step;
};

TEST_F(StepKeysTest, EnterAndF2OpenTheWizardAsADoubleClickDoes) {
    int opened = 0;
    technology.wizard = [&](FakeTechnology&) {
        ++opened;
        return false;
    };
    EXPECT_TRUE(press(KeyPress::kEnter));
    EXPECT_TRUE(press(KeyPress::kF2));
    EXPECT_EQ(opened, 2);
    EXPECT_FALSE(press(KeyPress::kEnter, true));
    EXPECT_FALSE(press('X'));
    EXPECT_EQ(opened, 2);
}

TEST_F(StepKeysTest, F5ReadsTheListAnewAndSelectsAStepAlthoughEveryColumnIsHidden) {
    for (int col = 0; col < grid.cols(); ++col)
        grid.setColHidden(col, true);
    base.tables().requireStep(step).record.name = "renamed by somebody else";
    EXPECT_TRUE(press(KeyPress::kF5));
    EXPECT_EQ(names().at(0), "renamed by somebody else");
    EXPECT_EQ(steps.SelectedStepID(), step);
    EXPECT_THAT(trace.lines(), IsEmpty());
}

}  // namespace
}  // namespace pellmark::test
