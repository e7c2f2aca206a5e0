#include "host/MainLayout.h"

#include <algorithm>

namespace pellmark::layout {

namespace {

constexpr Twips kGap = 100;
constexpr Twips kCaption = 300;
constexpr Twips kFilterWidth = 4900;
constexpr Twips kFiltersTaken = 5150;
constexpr Twips kFeatureTypeFiltersHeight = 1590;
constexpr Twips kProcessFiltersHeight = 1200;
constexpr Twips kFiltersHeight = kCaption + kFeatureTypeFiltersHeight + kGap + kProcessFiltersHeight + kGap;
/// Below this the two lower frames would show a row or two each: they then share the height instead.
constexpr Twips kLeastStackedHeight = 3600;

}  // namespace

ButtonStrip arrangeButtons(Twips stripWidth, Size help, Size cancel, Size ok) {
    const Twips top = (kButtonStripHeight - help.height) / 2;
    ButtonStrip strip;
    strip.help = {stripWidth - help.width - 200, top, help.width, help.height};
    strip.cancel = {strip.help.left - cancel.width - 100, top, cancel.width, cancel.height};
    strip.ok = {strip.cancel.left - ok.width - 100, top, ok.width, ok.height};
    return strip;
}

ProcessCase arrangeProcessCase(Size page) {
    ProcessCase at;
    const Twips width = std::max(page.width - 2 * kGap, 0);
    at.filters = {kGap, kGap, width, kFiltersHeight};
    at.featureTypeFilters = {kGap, kCaption, kFilterWidth, kFeatureTypeFiltersHeight};
    at.processFilters = {kGap, at.featureTypeFilters.bottom() + kGap, kFilterWidth, kProcessFiltersHeight};
    at.processCase = {kGap + kFilterWidth + kGap, kCaption, std::max(width - kFiltersTaken, 0),
                      at.processFilters.bottom() - kCaption};

    const Twips top = at.filters.bottom() + kGap;
    const Twips height = std::max(page.height - top - kGap, 0);
    if (height >= kLeastStackedHeight) {
        const Twips upper = (height - kGap) * 3 / 5;
        at.results = {kGap, top, width, upper};
        at.steps = {kGap, top + upper + kGap, width, height - upper - kGap};
    } else {
        const Twips half = std::max((width - kGap) / 2, 0);
        at.results = {kGap, top, half, height};
        at.steps = {kGap + half + kGap, top, std::max(width - half - kGap, 0), height};
    }
    return at;
}

Rect gridInFrame(const Rect& frame) {
    return {100, kCaption, std::max(frame.width - 200, 0), std::max(frame.height - 500, 0)};
}

}  // namespace pellmark::layout
