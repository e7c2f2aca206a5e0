#include "controls/SpokenName.h"

#include <gtest/gtest.h>

#include "controls/Controls.h"
#include "controls/Form.h"
#include "controls/grid/Grid.h"
#include "support/RecordingTrace.h"
#include "support/ScriptedDesktop.h"

namespace pellmark::test {
namespace {

class SpokenNameTest : public testing::Test {
  protected:
    RecordingTrace trace_;
    ScriptedDesktop desktop_{Operations(trace_)};
    Form form_{desktop_, "Form"};
    Frame frame_{form_, "Frame", "Pro&cesses"};
};

TEST_F(SpokenNameTest, ACaptionIsANameWithoutItsAccessKey) {
    const Button button{form_, "Button", "Drill && &Tap"};
    EXPECT_EQ(spokenName(button), "Drill & Tap");
}

TEST_F(SpokenNameTest, AListHasTheNameOfTheFrameAroundIt) {
    const Grid grid{frame_, "Grid"};
    EXPECT_EQ(spokenName(grid), "Processes");
    frame_.setCaption("Vorg\xC3\xA4nge");
    EXPECT_EQ(spokenName(grid), "Vorg\xC3\xA4nge");
}

TEST_F(SpokenNameTest, ALabelBeforeAControlIsNearerThanItsFrame) {
    Label label{frame_, "Label", "&Members"};
    Grid grid{frame_, "Grid"};
    EXPECT_EQ(spokenName(grid), "Members");
    label.setTabIndex(2);
    EXPECT_EQ(spokenName(grid), "Processes") << "no longer before it";
}

TEST_F(SpokenNameTest, ALabelNamesOnlyWhatComesNext) {
    const Label label{frame_, "Label", "&Members"};
    const TextBox first{frame_, "First"};
    const TextBox second{frame_, "Second"};
    EXPECT_EQ(spokenName(first), "Members");
    EXPECT_EQ(spokenName(second), "Processes");
}

TEST_F(SpokenNameTest, AFrameWithoutATitlePassesOnWhatIsAroundIt) {
    form_.setCaption("Process Manager");
    Frame inner{form_, "Inner"};
    const Grid grid{inner, "Grid"};
    EXPECT_EQ(spokenName(grid), "Process Manager");
    form_.setCaption("");
    EXPECT_EQ(spokenName(grid), "");
}

}  // namespace
}  // namespace pellmark::test
