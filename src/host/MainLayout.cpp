#include "host/MainLayout.h"

#include <algorithm>
#include <cmath>

#include "controls/FindLine.h"

namespace pellmark::layout {

namespace {

constexpr Twips kGap = 100;
constexpr Twips kCaption = 300;
/// A grid has as much room below as between it and the title above.
constexpr Twips kGridTop = 375;
constexpr Twips kFilterWidth = 4850;
constexpr Twips kFiltersTaken = 5150;
constexpr Twips kFeatureTypeFiltersHeight = 1590;
constexpr Twips kProcessFiltersHeight = 1200;
constexpr Twips kFiltersHeight = kCaption + kFeatureTypeFiltersHeight + kGap + kProcessFiltersHeight + kGap;
/// What a frame takes from the grid inside.
constexpr Size kFrameTakes{200, 500};

constexpr int kLeastRows = 3;
constexpr double kUsualFontSize = 9;
constexpr Twips kTwipsPerPoint = 20;
/// Of today's fonts a line is up to so many times as high as the size says.
constexpr double kLineHeight = 1.42;
constexpr Twips kSpaceBetweenLines = 5 * kTwipsPerPixelAt96Dpi;
/// A scroll bar below the rows, and the borders.
constexpr Twips kAroundRows = 19 * kTwipsPerPixelAt96Dpi;
constexpr Twips kLeastListWidth = 2500;

constexpr Twips kLeastButtonsWidth = 4500;
/// What the tabs take of the form beside their page, in the largest of the usual fonts.
constexpr Size kTabsTake{180, 570};

Twips framed(Twips gridHeight) {
    return gridHeight + kFrameTakes.height;
}

Twips filtersNeed(const CaseNeeds& needs) {
    return std::max(kFiltersHeight, kCaption + framed(needs.processCase.height) + kGap);
}

Division divisionOfLists(Twips room, const CaseNeeds& needs, bool stacked) {
    if (stacked) return {room, framed(needs.results.height), framed(needs.steps.height), room * 3 / 5};
    return {room, needs.results.width + kFrameTakes.width, needs.steps.width + kFrameTakes.width, room / 2};
}

}  // namespace

ButtonStrip arrangeButtons(Twips stripWidth, Size help, Size cancel, Size ok) {
    const Twips top = (kButtonStripHeight - help.height) / 2;
    ButtonStrip strip;
    strip.help = {stripWidth - help.width - 200, top, help.width, help.height};
    strip.cancel = {strip.help.left - cancel.width - 100, top, cancel.width, cancel.height};
    strip.ok = {strip.cancel.left - ok.width - 100, top, ok.width, ok.height};
    return strip;
}

Twips leastListHeight(const Font& font) {
    const double size = font.size > 0 ? font.size : kUsualFontSize;
    const auto line = static_cast<Twips>(std::lround(size * kTwipsPerPoint * kLineHeight));
    return (1 + kLeastRows) * (line + kSpaceBetweenLines) + kAroundRows;
}

ListNeeds needsOf(const Font& font, bool findIsOpen) {
    if (!findIsOpen) return {kLeastListWidth, leastListHeight(font)};
    return {FindLine::kLeastWidth, leastListHeight(font) + FindLine::kHeight};
}

ProcessCase arrangeProcessCase(Size page, const CaseNeeds& needs, const CaseShares& shares) {
    ProcessCase at;
    const Twips width = std::max(page.width - 2 * kGap, 0);
    const Twips below = std::max(framed(needs.results.height), framed(needs.steps.height));
    const Twips stackedBelow = framed(needs.results.height) + kGap + framed(needs.steps.height);
    const Twips leastFilters = filtersNeed(needs);
    const Twips room = std::max(page.height - 3 * kGap, 0);
    at.isStacked = room >= leastFilters + stackedBelow;
    at.filtersDivision = {room, leastFilters, at.isStacked ? stackedBelow : below, leastFilters};

    at.filters = {kGap, kGap, width, firstPart(at.filtersDivision, shares.filters)};
    at.featureTypeFilters = {kGap, kCaption, kFilterWidth, kFeatureTypeFiltersHeight};
    at.processFilters = {kGap, at.featureTypeFilters.bottom() + kGap, kFilterWidth, kProcessFiltersHeight};
    at.processCase = {kGap + kFilterWidth + kGap, kCaption, std::max(width - kFiltersTaken, 0),
                      std::max(at.filters.height - kCaption - kGap, 0)};
    at.filtersBar = {kGap, at.filters.bottom(), width, kGap};

    const Twips top = at.filtersBar.bottom();
    const Twips height = std::max(page.height - top - kGap, 0);
    at.listsDivision =
        divisionOfLists(std::max((at.isStacked ? height : width) - kGap, 0), needs, at.isStacked);
    const Twips first = firstPart(at.listsDivision, at.isStacked ? shares.stacked : shares.beside);
    const Twips second = at.listsDivision.room - first;
    if (at.isStacked) {
        at.results = {kGap, top, width, first};
        at.listsBar = {kGap, at.results.bottom(), width, kGap};
        at.steps = {kGap, at.listsBar.bottom(), width, second};
    } else {
        at.results = {kGap, top, first, height};
        at.listsBar = {at.results.right(), top, kGap, height};
        at.steps = {at.listsBar.right(), top, second, height};
    }
    return at;
}

Rect gridInFrame(const Rect& frame) {
    return {100, kGridTop, std::max(frame.width - kFrameTakes.width, 0),
            std::max(frame.height - kFrameTakes.height, 0)};
}

Size smallestCasePage(const CaseNeeds& needs) {
    const Twips below = std::max(framed(needs.results.height), framed(needs.steps.height));
    const Twips besideFilters = kFiltersTaken + kFrameTakes.width + needs.processCase.width;
    const Twips beside = needs.results.width + needs.steps.width + 2 * kFrameTakes.width + kGap;
    return {std::max(besideFilters, beside) + 2 * kGap, 3 * kGap + filtersNeed(needs) + below};
}

Size smallestListPage(const ListNeeds& needs) {
    return {needs.width + 2 * kTabMargin, needs.height + 2 * kTabMargin};
}

Size formAround(Size page) {
    return {std::max(page.width + kTabsTake.width + 2 * kTabMargin, kLeastButtonsWidth),
            page.height + kTabsTake.height + kTabMargin + kButtonStripHeight};
}

}  // namespace pellmark::layout
