#pragma once

#include <vector>

#include "base/Geometry.h"
#include "win32/WindowsApi.h"

namespace pellmark::test {

/// What stands on the screen in a part of a window, painted before it is looked at.
class Picture {
  public:
    /// `area` is in pixels of the window's client area. The window must be in sight.
    Picture(HWND window, const RECT& area);
    /// The whole client area.
    explicit Picture(HWND window);

    /// The colour that most of it has.
    Color background() const;
    /// How much the colour that stands out most differs from the background, as a contrast ratio.
    double contrast() const;

  private:
    std::vector<Color> pixels_;
};

}  // namespace pellmark::test
