#include "host/MainLayout.h"

#include <gtest/gtest.h>

namespace pellmark::test {
namespace {

bool inside(const Rect& inner, Size outer) {
    return inner.left >= 0 && inner.top >= 0 && inner.right() <= outer.width &&
           inner.bottom() <= outer.height;
}
Size sizeOf(const Rect& rect) {
    return {rect.width, rect.height};
}
bool apart(const Rect& a, const Rect& b) {
    return a.right() <= b.left || b.right() <= a.left || a.bottom() <= b.top || b.bottom() <= a.top;
}

TEST(MainLayoutTest, ButtonsAreRightAlignedWithTheirMarginAndGaps) {
    const auto strip = layout::arrangeButtons(10000, {1200, 375}, {1300, 375}, {1100, 375});
    EXPECT_EQ(strip.help.left, 10000 - 1200 - 200);
    EXPECT_EQ(strip.cancel.left, strip.help.left - 1300 - 100);
    EXPECT_EQ(strip.ok.left, strip.cancel.left - 1100 - 100);
}

TEST(MainLayoutTest, TheFeatureCaseTakesWhatTheFiltersLeave) {
    const auto at = layout::arrangeProcessCase({14000, 9000});
    EXPECT_EQ(at.processCase.width, at.filters.width - 5150);
}

TEST(MainLayoutTest, AGridFillsItsFrame) {
    EXPECT_EQ(layout::gridInFrame({0, 0, 3000, 2000}).width, 2800);
    EXPECT_EQ(layout::gridInFrame({0, 0, 3000, 2000}).height, 1500);
    EXPECT_EQ(layout::gridInFrame({0, 0, 100, 100}).width, 0);
    EXPECT_EQ(layout::gridInFrame({0, 0, 100, 100}).height, 0);
}

/// From a small laptop to a 4K screen: 640x480 and 3840x2160 pixels at 96 dpi, less what the form's strip
/// takes.
class ProcessCaseLayoutTest : public testing::TestWithParam<Size> {};

TEST_P(ProcessCaseLayoutTest, NothingOverlapsOrLeavesThePage) {
    const Size page = GetParam();
    const auto at = layout::arrangeProcessCase(page);
    EXPECT_TRUE(inside(at.filters, page));
    EXPECT_TRUE(inside(at.results, page));
    EXPECT_TRUE(inside(at.steps, page));
    EXPECT_TRUE(apart(at.filters, at.results));
    EXPECT_TRUE(apart(at.filters, at.steps));
    EXPECT_TRUE(apart(at.results, at.steps));
    for (const Rect& part : {at.featureTypeFilters, at.processFilters, at.processCase}) {
        EXPECT_TRUE(inside(part, sizeOf(at.filters)));
    }
    EXPECT_TRUE(apart(at.featureTypeFilters, at.processFilters));
    EXPECT_TRUE(apart(at.featureTypeFilters, at.processCase));
    EXPECT_GE(layout::gridInFrame(at.results).height, 900);
    EXPECT_GE(layout::gridInFrame(at.steps).width, 3500);
}

INSTANTIATE_TEST_SUITE_P(Screens, ProcessCaseLayoutTest,
                         testing::Values(layout::kSmallestPage, Size{9400, 5900}, Size{12000, 7500},
                                         Size{19200, 14000}, Size{57600, 31000}));

}  // namespace
}  // namespace pellmark::test
