#include "win32/forms/MovedPeers.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace pellmark {

void MovedPeers::place() {
    collecting_ = false;
    std::vector<ControlPeer*> moved = std::exchange(peers_, {});
    const auto parentOf = [](const ControlPeer* peer) { return ::GetAncestor(peer->window(), GA_PARENT); };
    // The system moves several windows at once where they have one parent.
    std::stable_sort(moved.begin(), moved.end(), [&](const ControlPeer* left, const ControlPeer* right) {
        return std::less<>()(parentOf(left), parentOf(right));
    });
    for (auto from = moved.begin(); from != moved.end();) {
        const HWND parent = parentOf(*from);
        const auto to = std::find_if(from, moved.end(),
                                     [&](const ControlPeer* each) { return parentOf(each) != parent; });
        HDWP together = ::BeginDeferWindowPos(static_cast<int>(to - from));
        for (; from != to && together != nullptr; ++from) {
            const RECT at = (*from)->placement();
            together =
                ::DeferWindowPos(together, (*from)->window(), nullptr, at.left, at.top, at.right - at.left,
                                 at.bottom - at.top, SWP_NOZORDER | SWP_NOACTIVATE);
        }
        if (together != nullptr) ::EndDeferWindowPos(together);
        from = to;
    }
}

}  // namespace pellmark
