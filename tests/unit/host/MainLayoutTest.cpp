#include "host/MainLayout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

#include "controls/FindLine.h"

namespace pellmark::test {
namespace {

using layout::CaseNeeds;
using layout::CaseShares;

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
constexpr Size kHighPage{14000, 9000};
constexpr Size kLowPage{14000, 6500};

TEST(MainLayoutTest, ButtonsAreRightAlignedWithTheirMarginAndGaps) {
    const auto strip = layout::arrangeButtons(10000, {1200, 375}, {1300, 375}, {1100, 375});
    EXPECT_EQ(strip.help.left, 10000 - 1200 - 200);
    EXPECT_EQ(strip.cancel.left, strip.help.left - 1300 - 100);
    EXPECT_EQ(strip.ok.left, strip.cancel.left - 1100 - 100);
}

TEST(MainLayoutTest, TheFeatureCaseTakesWhatTheFiltersLeave) {
    const auto at = layout::arrangeProcessCase(kHighPage);
    EXPECT_EQ(at.processCase.width, at.filters.width - 5150);
}

TEST(MainLayoutTest, AGridFillsItsFrame) {
    EXPECT_EQ(layout::gridInFrame({0, 0, 3000, 2000}).width, 2800);
    EXPECT_EQ(layout::gridInFrame({0, 0, 3000, 2000}).height, 1500);
    EXPECT_EQ(layout::gridInFrame({0, 0, 3000, 2000}).bottom(), 2000 - 125);
    EXPECT_EQ(layout::gridInFrame({0, 0, 100, 100}).width, 0);
    EXPECT_EQ(layout::gridInFrame({0, 0, 100, 100}).height, 0);
}

// --- what a list needs ------------------------------------------------------------------------------------

TEST(MainLayoutTest, AListNeedsItsHeadingsThreeRowsAndAScrollBar) {
    // in the usual font of 9 points, of which a line with its margins is 22 pixels high at 96 dpi
    EXPECT_GE(layout::leastListHeight({}), (4 * 22 + 19) * 15);
    EXPECT_LE(layout::leastListHeight({}), (5 * 22 + 19) * 15) << "and no more than that";
    EXPECT_EQ(layout::leastListHeight({"", 9, false, false, false, false}), layout::leastListHeight({}));
}

TEST(MainLayoutTest, ALargerFontNeedsMore) {
    // 24 points are 32 pixels, a line of them up to 45
    EXPECT_GE(layout::leastListHeight({"", 24, false, false, false, false}), (4 * 50 + 19) * 15);
}

TEST(MainLayoutTest, TheLineForFindingNeedsMoreStill) {
    EXPECT_EQ(layout::needsOf({}, true).height, layout::needsOf({}, false).height + FindLine::kHeight);
    EXPECT_GE(layout::needsOf({}, true).width, FindLine::kLeastWidth);
}

// --- the page of the feature case -------------------------------------------------------------------------

TEST(MainLayoutTest, TheBoxesAmongTheFiltersHaveTheSameMarginOnEverySide) {
    const auto at = layout::arrangeProcessCase(kHighPage);
    EXPECT_EQ(at.featureTypeFilters.left, 100);
    EXPECT_EQ(at.processCase.left - at.featureTypeFilters.right(), 100);
    EXPECT_EQ(at.filters.width - at.processCase.right(), 100);
    EXPECT_EQ(at.filters.height - at.processCase.bottom(), 100);
    EXPECT_EQ(at.filters.height - at.processFilters.bottom(), 100);
}

TEST(MainLayoutTest, TheListsStandOneAboveTheOtherWhereThePageIsHighEnough) {
    const auto at = layout::arrangeProcessCase(kHighPage);
    EXPECT_TRUE(at.isStacked);
    EXPECT_EQ(at.results.width, at.steps.width);
    EXPECT_GT(at.steps.top, at.results.bottom());
}

TEST(MainLayoutTest, TheListsStandSideBySideWhereItIsNot) {
    const auto at = layout::arrangeProcessCase(kLowPage);
    EXPECT_FALSE(at.isStacked);
    EXPECT_EQ(at.results.height, at.steps.height);
    EXPECT_NEAR(at.results.width, at.steps.width, 1);
}

TEST(MainLayoutTest, FiltersThatAPersonMadeHigherNeverTurnTheListsSideBySide) {
    const auto at = layout::arrangeProcessCase(kHighPage, {}, {9000, {}, {}});
    EXPECT_TRUE(at.isStacked);
    EXPECT_EQ(layout::gridInFrame(at.results).height, layout::leastListHeight({}));
    EXPECT_EQ(layout::gridInFrame(at.steps).height, layout::leastListHeight({}));
}

TEST(MainLayoutTest, TheFeatureCaseGrowsWithTheFilters) {
    const auto usual = layout::arrangeProcessCase({14000, 12000});
    const auto higher = layout::arrangeProcessCase({14000, 12000}, {}, {4500, {}, {}});
    EXPECT_EQ(higher.filters.height, (12000 - 300) * 45 / 100);
    EXPECT_EQ(higher.processCase.height - usual.processCase.height,
              higher.filters.height - usual.filters.height);
    EXPECT_EQ(higher.featureTypeFilters, usual.featureTypeFilters);
    EXPECT_EQ(higher.processFilters, usual.processFilters);
}

TEST(MainLayoutTest, TheFiltersAreNeverLowerThanTheirBoxes) {
    const auto at = layout::arrangeProcessCase(kHighPage, {}, {100, {}, {}});
    EXPECT_EQ(at.filters, layout::arrangeProcessCase(kHighPage).filters);
    EXPECT_LE(at.processFilters.bottom(), at.filters.height);
}

TEST(MainLayoutTest, EachArrangementOfTheListsHasAShareOfItsOwn) {
    const CaseShares shares{{}, 5000, 3000};
    const auto high = layout::arrangeProcessCase({14000, 12000}, {}, shares);
    EXPECT_NEAR(high.results.height, high.steps.height, 1);
    const auto low = layout::arrangeProcessCase(kLowPage, {}, shares);
    EXPECT_NEAR(low.results.width * 7, low.steps.width * 3, 10);
}

TEST(MainLayoutTest, TheBarsFillTheGaps) {
    for (const Size page : {kHighPage, kLowPage}) {
        const auto at = layout::arrangeProcessCase(page);
        EXPECT_EQ(at.filtersBar.top, at.filters.bottom());
        EXPECT_EQ(at.filtersBar.bottom(), at.results.top);
        EXPECT_EQ(at.filtersBar.width, at.filters.width);
        if (at.isStacked) {
            EXPECT_EQ(at.listsBar.top, at.results.bottom());
            EXPECT_EQ(at.listsBar.bottom(), at.steps.top);
        } else {
            EXPECT_EQ(at.listsBar.left, at.results.right());
            EXPECT_EQ(at.listsBar.right(), at.steps.left);
        }
    }
}

TEST(MainLayoutTest, ALargeFontOfTheFeatureCaseMakesTheFiltersHigher) {
    CaseNeeds needs;
    needs.processCase = layout::needsOf({"", 24, false, false, false, false}, false);
    const auto at = layout::arrangeProcessCase({14000, 12000}, needs);
    EXPECT_EQ(layout::gridInFrame(at.processCase).height, needs.processCase.height);
}

TEST(MainLayoutTest, APageWithoutRoomIsNoHarm) {
    const auto at = layout::arrangeProcessCase({0, 0}, {}, {5000, 5000, 5000});
    EXPECT_EQ(at.results.height, 0);
    EXPECT_EQ(at.steps.width, 0);
}

TEST(MainLayoutTest, TheSmallestFormHoldsItsPageItsTabsAndItsButtons) {
    const Size page = layout::smallestCasePage();
    const Size form = layout::formAround(page);
    EXPECT_GE(form.height, page.height + layout::kButtonStripHeight + layout::kTabMargin);
    EXPECT_LE(form.width, 640 * 15 - 25 * 15) << "as wide as the smallest screen, with a scroll bar";
    EXPECT_LE(form.width, 1136 * 7.5) << "and as a window of 1180 pixels at 192 dpi";
    EXPECT_GE(layout::formAround({0, 0}).width, 3 * 1215 + 2 * 100 + 2 * 200) << "three buttons";
}

/// Pages from the smallest to that of a 4K screen, lists in small and large letters, looked through or not,
/// and bars anywhere.
class ProcessCaseLayoutTest : public testing::TestWithParam<std::tuple<Size, double, bool, int>> {
  protected:
    Size page_;
    CaseNeeds needs_;
    CaseShares shares_;

    void SetUp() override {
        const auto [page, fontSize, findIsOpen, share] = GetParam();
        const auto needs = layout::needsOf({"", fontSize, false, false, false, false}, findIsOpen);
        needs_ = {needs, needs, needs};
        const Size smallest = layout::smallestCasePage(needs_);
        page_ = {std::max(page.width, smallest.width), std::max(page.height, smallest.height)};
        if (share >= 0) shares_ = {share, share, share};
    }
};

TEST_P(ProcessCaseLayoutTest, NothingOverlapsOrLeavesThePageAndEveryListHasWhatItNeeds) {
    const auto at = layout::arrangeProcessCase(page_, needs_, shares_);
    EXPECT_TRUE(inside(at.filters, page_));
    EXPECT_TRUE(inside(at.results, page_));
    EXPECT_TRUE(inside(at.steps, page_));
    EXPECT_TRUE(apart(at.filters, at.results));
    EXPECT_TRUE(apart(at.filters, at.steps));
    EXPECT_TRUE(apart(at.results, at.steps));
    for (const Rect& part : {at.featureTypeFilters, at.processFilters, at.processCase}) {
        EXPECT_TRUE(inside(part, sizeOf(at.filters)));
    }
    EXPECT_TRUE(apart(at.featureTypeFilters, at.processFilters));
    EXPECT_TRUE(apart(at.featureTypeFilters, at.processCase));
    for (const Rect& frame : {at.processCase, at.results, at.steps}) {
        const Rect grid = layout::gridInFrame(frame);
        EXPECT_GE(grid.height, needs_.results.height);
        EXPECT_GE(grid.width, layout::needsOf({}, false).width);
    }
}

INSTANTIATE_TEST_SUITE_P(Screens, ProcessCaseLayoutTest,
                         testing::Combine(testing::Values(Size{0, 0}, Size{9400, 5900}, Size{12000, 7500},
                                                          Size{19200, 14000}, Size{57600, 31000}),
                                          testing::Values(0.0, 24.0), testing::Bool(),
                                          testing::Values(-1, 0, 3333, 10000)));

}  // namespace
}  // namespace pellmark::test
