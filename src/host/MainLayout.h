#pragma once

#include "base/Font.h"
#include "base/Geometry.h"
#include "controls/Splitter.h"

/// Where the parts of the main form stand, as pure functions of the room there is. All lengths in twips.
namespace pellmark::layout {

inline constexpr Twips kButtonStripHeight = 600;

/// Around the tabs in the form, and around the list in its page.
inline constexpr Twips kTabMargin = 60;

struct ButtonStrip {
    Rect help;
    Rect cancel;
    Rect ok;
};
/// Right-aligned with a margin of 200 and gaps of 100.
ButtonStrip arrangeButtons(Twips stripWidth, Size help, Size cancel, Size ok);

/// The height at which a list shows its headings and three rows in that font.
Twips leastListHeight(const Font& font);

/// The least that a list with its line for finding is laid out for.
struct ListNeeds {
    Twips width = 0;
    Twips height = 0;
};
ListNeeds needsOf(const Font& font, bool findIsOpen);

struct CaseNeeds {
    ListNeeds processCase = needsOf({}, false);
    ListNeeds results = needsOf({}, false);
    ListNeeds steps = needsOf({}, false);
};

/// What a person has made of the room: the filters' part of the height, and the processes' part of what is
/// below them.
struct CaseShares {
    Share filters;
    Share stacked;  ///< while the two lower lists stand one above the other
    Share beside;   ///< while they stand side by side
};

struct ProcessCase {
    Rect filters;             ///< across the page; holds the next three
    Rect featureTypeFilters;  ///< inside filters
    Rect processFilters;      ///< inside filters
    Rect processCase;         ///< inside filters: the rest, 5150 narrower than it
    Rect results;
    Rect steps;

    bool isStacked = true;
    Rect filtersBar;  ///< the gap below the filters
    Rect listsBar;    ///< the gap between the two lower frames
    Division filtersDivision;
    Division listsDivision;
};
/// The two lower grids stand one above the other, or side by side on a page that is too low for that, however
/// high a person has made the filters.
ProcessCase arrangeProcessCase(Size page, const CaseNeeds& needs = {}, const CaseShares& shares = {});

/// A grid inside its frame: 200 narrower and 500 lower, never less than nothing.
Rect gridInFrame(const Rect& frame);

/// The smallest page of the feature case on which every list has what it needs.
Size smallestCasePage(const CaseNeeds& needs = {});
/// The same of the page with the list of all processes.
Size smallestListPage(const ListNeeds& needs);
/// The smallest form around such a page.
Size formAround(Size page);

}  // namespace pellmark::layout
