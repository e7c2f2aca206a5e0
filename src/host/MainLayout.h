#pragma once

#include "base/Geometry.h"

/// Where the parts of the main form stand, as pure functions of the room there is. All lengths in twips.
namespace pellmark::layout {

inline constexpr Twips kButtonStripHeight = 600;

struct ButtonStrip {
    Rect help;
    Rect cancel;
    Rect ok;
};
/// Right-aligned with a margin of 200 and gaps of 100.
ButtonStrip arrangeButtons(Twips stripWidth, Size help, Size cancel, Size ok);

struct ProcessCase {
    Rect filters;             ///< across the page; holds the next three
    Rect featureTypeFilters;  ///< inside filters
    Rect processFilters;      ///< inside filters
    Rect processCase;         ///< inside filters: the rest, 5150 narrower than it
    Rect results;
    Rect steps;
};
/// The two lower grids stand one above the other, or side by side where the page is too low for that.
ProcessCase arrangeProcessCase(Size page);

/// A grid inside its frame: 200 narrower and 500 lower, never less than nothing.
Rect gridInFrame(const Rect& frame);

/// The smallest page on which nothing is clipped.
inline constexpr Size kSmallestPage{9000, 5600};

}  // namespace pellmark::layout
