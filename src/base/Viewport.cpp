#include "base/Viewport.h"

#include <algorithm>

namespace pellmark {

namespace {

/// Where a page must begin to show a stretch of the contents, when it begins at `at` now.
Twips revealing(Twips at, Twips page, Twips from, Twips length) {
    const Twips first = length > page ? from - page / 2 : from + length - page;
    return std::clamp(at, first, from);
}

}  // namespace

void Viewport::fit(Size window, Size least, Size bars) {
    page_ = window;
    // A bar takes room from the other direction, which may then need one too.
    bool isLow = least.height > window.height;
    const bool isNarrow = least.width > window.width - (isLow ? bars.width : 0);
    isLow = isLow || (isNarrow && least.height > window.height - bars.height);
    if (isLow) page_.width = std::max(page_.width - bars.width, 0);
    if (isNarrow) page_.height = std::max(page_.height - bars.height, 0);
    content_ = {std::max(page_.width, least.width), std::max(page_.height, least.height)};
    scrollTo(at_);
}

bool Viewport::scrollTo(Point at) {
    at.left = std::clamp(at.left, 0, content_.width - page_.width);
    at.top = std::clamp(at.top, 0, content_.height - page_.height);
    if (at == at_) return false;
    at_ = at;
    return true;
}

bool Viewport::reveal(const Rect& part) {
    return scrollTo({revealing(at_.left, page_.width, part.left, part.width),
                     revealing(at_.top, page_.height, part.top, part.height)});
}

bool Viewport::reveal(const Rect& part, const Rect& label) {
    const Point before = at_;
    reveal({label.left, part.top, part.left + part.width - label.left, part.height});
    // On a narrow page that may be nothing but the label.
    reveal({part.left, part.top, std::min(part.width, page_.width / 2), part.height});
    return at_ != before;
}

}  // namespace pellmark
