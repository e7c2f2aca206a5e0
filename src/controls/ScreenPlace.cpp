#include "controls/ScreenPlace.h"

#include <algorithm>
#include <cstdint>
#include <optional>

namespace pellmark {

namespace {

/// A caption that shows less of itself is hard to find.
constexpr int kPartOfTheCaption = 4;

/// How much two stretches share; below zero, how far they are apart.
int shared(int from, int to, int otherFrom, int otherTo) {
    return std::min(to, otherTo) - std::max(from, otherFrom);
}

/// Larger for a screen that shows more of the window, negative and smaller the farther away it is.
std::int64_t nearness(const Rect& window, const Rect& screen) {
    const std::int64_t across = shared(window.left, window.right(), screen.left, screen.right());
    const std::int64_t down = shared(window.top, window.bottom(), screen.top, screen.bottom());
    if (across > 0 && down > 0) return across * down;
    const std::int64_t apart = std::min<std::int64_t>(across, 0);
    const std::int64_t above = std::min<std::int64_t>(down, 0);
    return -(apart * apart + above * above);
}

Twips movedInto(Twips at, Twips length, Twips from, Twips to) {
    return std::max(from, std::min(at, to - length));
}

/// The screen that shows most of the window, or that is nearest; nothing where there are no screens.
std::optional<Rect> nearestTo(const Rect& window, const std::vector<Rect>& screens) {
    const auto nearest =
        std::max_element(screens.begin(), screens.end(), [&](const Rect& left, const Rect& right) {
            return nearness(window, left) < nearness(window, right);
        });
    return nearest == screens.end() ? std::nullopt : std::optional(*nearest);
}

}  // namespace

bool isWithinReach(const Rect& window, const std::vector<Rect>& screens) {
    return std::any_of(screens.begin(), screens.end(), [&](const Rect& screen) {
        const bool captionIsOn = window.top >= screen.top && window.top < screen.bottom();
        return captionIsOn && shared(window.left, window.right(), screen.left, screen.right()) >=
                                  window.width / kPartOfTheCaption;
    });
}

Rect movedOntoScreen(const Rect& window, const std::vector<Rect>& screens) {
    const auto screen = nearestTo(window, screens);
    if (!screen) return window;
    return {movedInto(window.left, window.width, screen->left, screen->right()),
            movedInto(window.top, window.height, screen->top, screen->bottom()), window.width, window.height};
}

Rect shrunkToScreen(const Rect& window, const std::vector<Rect>& screens, Size bars) {
    const auto screen = nearestTo(window, screens);
    if (!screen) return window;
    const Twips width = window.width + (window.height > screen->height ? bars.width : 0);
    const Twips height = window.height + (window.width > screen->width ? bars.height : 0);
    return {window.left, window.top, std::min(width, screen->width), std::min(height, screen->height)};
}

}  // namespace pellmark
