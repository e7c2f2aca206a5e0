#pragma once

#include "base/Geometry.h"

namespace pellmark {

/// What a window shows of contents that may need more room than it has, and the scroll bars that lead to the
/// rest. All lengths are in one unit, whichever that is.
class Viewport {
  public:
    /// A window with this room, its scroll bars not counted, over contents that are never laid out smaller
    /// than `least`. `bars` are the width of a standing bar and the height of a lying one.
    void fit(Size window, Size least, Size bars);

    bool hasVerticalBar() const { return content_.height > page_.height; }
    bool hasHorizontalBar() const { return content_.width > page_.width; }
    /// What the bars leave of the window.
    Size page() const { return page_; }
    /// What the contents are laid out for: the page, and no less than the least.
    Size content() const { return content_; }
    /// The point of the contents at the window's upper left corner.
    Point at() const { return at_; }

    /// As far as there is something to be seen. False when nothing has moved.
    bool scrollTo(Point at);
    /// Shows a part of the contents by scrolling as little as it takes; of a part larger than the page its
    /// beginning, which may stand up to the middle of the page, with what is before it in sight. False when
    /// nothing has moved.
    bool reveal(const Rect& part);
    /// The same for a part with a label that stands at its left: with the label where there is room for both,
    /// and of a part too wide for that its beginning.
    bool reveal(const Rect& part, const Rect& label);

  private:
    Size page_;
    Size content_;
    Point at_;
};

}  // namespace pellmark
