#pragma once

#include "base/Geometry.h"
#include "win32/WindowsApi.h"

namespace pellmark {

/// Converts between twips and the pixels of one window, both ways rounded to the nearest. Values are signed:
/// there are screens left of the primary one.
class Scale {
  public:
    explicit Scale(int dpi = USER_DEFAULT_SCREEN_DPI) : dpi_(dpi > 0 ? dpi : USER_DEFAULT_SCREEN_DPI) {}

    int dpi() const { return dpi_; }
    int pixels(Twips length) const { return ::MulDiv(length, dpi_, kTwipsPerInch); }
    Twips twips(int pixels) const { return ::MulDiv(pixels, kTwipsPerInch, dpi_); }
    /// Edges are rounded one by one, so that neighbours in twips are neighbours in pixels.
    RECT pixels(const Rect& rect) const {
        return {pixels(rect.left), pixels(rect.top), pixels(rect.right()), pixels(rect.bottom())};
    }
    Point twips(POINT at) const { return {twips(static_cast<int>(at.x)), twips(static_cast<int>(at.y))}; }
    POINT pixels(Point at) const { return {pixels(at.left), pixels(at.top)}; }

  private:
    static constexpr int kTwipsPerInch = 1440;
    int dpi_;
};

}  // namespace pellmark
