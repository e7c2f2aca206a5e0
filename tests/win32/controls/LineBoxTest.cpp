#include "win32/controls/LineBox.h"

#include <gmock/gmock.h>

#include "support/win32/PeerHarness.h"
#include "win32/Scale.h"

namespace pellmark::test {
namespace {

using ::testing::IsEmpty;

TEST(LineBoxPlaceTest, ABoxStandsInTheMiddleOfTheRoomThatItHas) {
    const RECT at = linebox::placed({10, 100, 200, 146}, 39);
    EXPECT_EQ(at.left, 10);
    EXPECT_EQ(at.right, 200);
    EXPECT_EQ(at.top, 103);
    EXPECT_EQ(at.bottom, 142);
}

TEST(LineBoxPlaceTest, ABoxTakesWhatItsLineNeedsAndNoMore) {
    EXPECT_EQ(linebox::editHeight(32, 46), 39);
    EXPECT_EQ(linebox::closedHeight(32, 46), 39);
    EXPECT_EQ(linebox::editHeight(18, 23), 23);
    EXPECT_EQ(linebox::closedHeight(16, 23), 23);
}

TEST(LineBoxPlaceTest, ARoomThatIsTooLowDoesNotCutTheLineOff) {
    EXPECT_EQ(linebox::editHeight(18, 20), 22);
    EXPECT_EQ(linebox::closedHeight(18, 23), 24);
}

/// The boxes of one line of the sample form at one resolution.
class LineBoxTest : public testing::TestWithParam<int>, protected PeerHarness {
  protected:
    LineBoxTest() {
        desktop.overrideDpi(GetParam());
        form->tabs.setIndex(1);
        embed();
    }
    void TearDown() override { EXPECT_THAT(trace.lines(), IsEmpty()); }

    RECT onScreen(Control& control) const {
        RECT at{};
        ::GetWindowRect(of(control), &at);
        return at;
    }
    LONG heightOf(Control& control) const {
        const RECT at = onScreen(control);
        return at.bottom - at.top;
    }
    int line() const {
        return linebox::lineHeight(reinterpret_cast<HFONT>(::SendMessageW(of(form->name), WM_GETFONT, 0, 0)));
    }
};

TEST_P(LineBoxTest, BoxesAreAsHighAsTheirLineNeedsSoThatItStandsInTheirMiddle) {
    EXPECT_GE(heightOf(form->unit), line() + 4);
    EXPECT_LE(heightOf(form->unit), line() + 8);
    EXPECT_LE(heightOf(form->name), line() + 8);
}

TEST_P(LineBoxTest, ALineAndADropDownListLookAlike) {
    EXPECT_NEAR(heightOf(form->unit), heightOf(form->name), 2);
}

TEST_P(LineBoxTest, ABoxStandsInTheMiddleOfWhatItsFormGivesIt) {
    const Scale scale(GetParam());
    RECT frame{};
    ::GetClientRect(of(form->filters), &frame);
    ::MapWindowPoints(of(form->filters), nullptr, reinterpret_cast<POINT*>(&frame), 2);
    for (Control* each : {static_cast<Control*>(&form->unit), static_cast<Control*>(&form->name)}) {
        const RECT room = scale.pixels(each->bounds());
        const RECT at = onScreen(*each);
        EXPECT_NEAR((at.top + at.bottom) / 2.0 - static_cast<double>(frame.top),
                    (room.top + room.bottom) / 2.0, 1.0)
            << each->name();
    }
}

TEST_P(LineBoxTest, AnOpenedListIsWideEnoughForItsEntries) {
    form->unit.setItems({{"m", 1, ""}, {"An entry that is a good deal longer than its box is wide", 2, ""}});
    const auto width = ::SendMessageW(of(form->unit), CB_GETDROPPEDWIDTH, 0, 0);
    const RECT box = onScreen(form->unit);
    EXPECT_GT(width, box.right - box.left);
    form->unit.setItems({{"m", 1, ""}});
    EXPECT_EQ(::SendMessageW(of(form->unit), CB_GETDROPPEDWIDTH, 0, 0), box.right - box.left);
}

INSTANTIATE_TEST_SUITE_P(Resolutions, LineBoxTest, testing::Values(96, 144, 192));

}  // namespace
}  // namespace pellmark::test
