#pragma once

#include <ostream>

namespace pellmark::test {

/// How many system objects this process holds. Wine answers 0 to the documented functions, so there the
/// counts are taken where the objects are kept.
struct ResourceCounts {
    long user = 0;    ///< windows, menus, hooks, accelerators
    long gdi = 0;     ///< fonts, brushes, bitmaps, device contexts
    long kernel = 0;  ///< events, files, keys, threads

    static ResourceCounts now();
    ResourceCounts operator-(const ResourceCounts& before) const {
        return {user - before.user, gdi - before.gdi, kernel - before.kernel};
    }
    bool operator==(const ResourceCounts&) const = default;
};

std::ostream& operator<<(std::ostream& out, const ResourceCounts& counts);

}  // namespace pellmark::test
