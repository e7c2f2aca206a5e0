#include "host/HTMLHelp.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "base/Error.h"
#include "support/PortsHarness.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kFile = "C:\\Norvex\\Help\\1031\\qdl.chm";
constexpr const char* kStartPage = "C:\\Norvex\\Help\\1031\\qdl\\index.html";
constexpr const char* kInTheBrowser =
    "The help file cannot be shown in its own window. Its pages open in the browser.";

class HTMLHelpTest : public testing::Test, public PortsHarness {
  protected:
    /// The topics that opening with this one asked the viewer for.
    std::vector<std::string> topicsFor(const Variant& topic) {
        help.opened.clear();
        launcher_.OpenHTMLHelp(9, topic);
        std::vector<std::string> topics;
        for (const auto& opened : help.opened) {
            EXPECT_EQ(opened.owner, 9U);
            EXPECT_EQ(opened.file, kFile);
            topics.push_back(opened.topic);
        }
        return topics;
    }

    Texts texts_{operations};
    HTMLHelp launcher_{help, files, desktop, texts_, kFile};
};

TEST_F(HTMLHelpTest, WholeAndSingleNumbersOpenTheirContext) {
    EXPECT_THAT(topicsFor(std::int16_t{5000}), ElementsAre("5000"));
    EXPECT_THAT(topicsFor(std::int32_t{70000}), ElementsAre("70000"));
    EXPECT_THAT(topicsFor(5000.0F), ElementsAre("5000"));
    EXPECT_THAT(topicsFor(4999.75F), ElementsAre("5000"));
    EXPECT_THAT(topicsFor(5000.5F), ElementsAre("5000")) << "a half goes to the even number";
    EXPECT_THAT(topicsFor(5001.5F), ElementsAre("5002"));
}

TEST_F(HTMLHelpTest, ANumberThatIsNoContextIsAFailure) {
    EXPECT_THROW(topicsFor(1e20F), Error);
    EXPECT_THROW(topicsFor(std::numeric_limits<float>::quiet_NaN()), Error);
}

TEST_F(HTMLHelpTest, ATextIsSentInTheNumbersPlace) {
    EXPECT_THAT(topicsFor(std::string("intro")), ElementsAre("text intro"));
}

TEST_F(HTMLHelpTest, ADoubleAMissingAndEveryOtherTopicOpenNothing) {
    help.shows = false;
    EXPECT_THAT(topicsFor(5000.0), IsEmpty());
    EXPECT_THAT(topicsFor(Variant()), IsEmpty());
    EXPECT_THAT(topicsFor(true), IsEmpty());
    EXPECT_THAT(help.pages, IsEmpty());
}

TEST_F(HTMLHelpTest, WhereTheHelpFileIsShownNoBrowserOpens) {
    files.makeFile(kStartPage);
    launcher_.openHelp(9);
    EXPECT_THAT(help.pages, IsEmpty());
}

TEST_F(HTMLHelpTest, WhereTheHelpFileIsNotShownItsPagesOpenInTheBrowserAndThePersonIsToldOnce) {
    help.shows = false;
    files.makeFile(kStartPage);
    desktop.expectMessage(kInTheBrowser);
    launcher_.openHelp(9);
    launcher_.openHelp(9);
    EXPECT_THAT(help.pages, ElementsAre(kStartPage, kStartPage));
    EXPECT_EQ(desktop.messages().back().icon, MessageIcon::Information);
}

TEST_F(HTMLHelpTest, ATextThatIsNotShownOpensThePagesToo) {
    help.shows = false;
    files.makeFile(kStartPage);
    desktop.expectMessage(kInTheBrowser);
    launcher_.OpenHTMLHelp(9, std::string("intro"));
    EXPECT_THAT(help.pages, ElementsAre(kStartPage));
}

TEST_F(HTMLHelpTest, WithoutPagesThePersonIsToldWhichFileIsMissing) {
    help.shows = false;
    desktop.expectMessage(std::string("The help could not be opened: ") + kFile);
    launcher_.openHelp(9);
    EXPECT_THAT(help.pages, IsEmpty());
    EXPECT_EQ(desktop.messages().back().icon, MessageIcon::Critical);
}

TEST_F(HTMLHelpTest, WithoutABrowserThePersonIsToldThatTheHelpDidNotOpen) {
    help.shows = false;
    help.hasBrowser = false;
    files.makeFile(kStartPage);
    desktop.expectMessage(kInTheBrowser);
    desktop.expectMessage(std::string("The help could not be opened: ") + kFile);
    launcher_.openHelp(9);
}

}  // namespace
}  // namespace pellmark::test
