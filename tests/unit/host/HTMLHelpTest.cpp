#include "host/HTMLHelp.h"

#include <gtest/gtest.h>

#include "support/PortsHarness.h"

namespace pellmark::test {
namespace {

class HTMLHelpTest : public testing::Test {
  protected:
    /// The topics that opening with this one asked the viewer for.
    std::vector<std::string> topicsFor(const Variant& topic) {
        RecordingHelp viewer;
        HTMLHelp help(viewer, "C:\\Norvex\\Help\\1033\\qdl.chm");
        help.OpenHTMLHelp(9, topic);
        std::vector<std::string> topics;
        for (const auto& opened : viewer.opened) {
            EXPECT_EQ(opened.owner, 9U);
            EXPECT_EQ(opened.file, help.HelpFile);
            topics.push_back(opened.topic);
        }
        return topics;
    }
};

TEST_F(HTMLHelpTest, WholeAndSingleNumbersOpenTheirContext) {
    EXPECT_EQ(topicsFor(std::int16_t{5000}), std::vector<std::string>{"5000"});
    EXPECT_EQ(topicsFor(std::int32_t{70000}), std::vector<std::string>{"70000"});
    EXPECT_EQ(topicsFor(5000.0F), std::vector<std::string>{"5000"});
}

TEST_F(HTMLHelpTest, ATextIsSentInTheNumbersPlace) {
    EXPECT_EQ(topicsFor(std::string("intro")), std::vector<std::string>{"text intro"});
}

TEST_F(HTMLHelpTest, ADoubleAMissingAndEveryOtherTopicOpenNothing) {
    EXPECT_TRUE(topicsFor(5000.0).empty());
    EXPECT_TRUE(topicsFor(Variant()).empty());
    EXPECT_TRUE(topicsFor(true).empty());
}

}  // namespace
}  // namespace pellmark::test
