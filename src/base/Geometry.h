#pragma once

#include <cstdint>

namespace pellmark {

/// Lengths in core are twips: 1440 to the inch, 15 to a pixel at 96 dpi.
using Twips = int;
inline constexpr Twips kTwipsPerPixelAt96Dpi = 15;

/// A 24-bit colour with red in the low byte (red + 256 * green + 65536 * blue).
using Color = std::uint32_t;
inline constexpr Color kBlack = 0x000000;
inline constexpr Color kRed = 0x0000FF;
inline constexpr Color kGreen = 0x00FF00;

struct Point {
    Twips left = 0;
    Twips top = 0;
    bool operator==(const Point&) const = default;
};

struct Size {
    Twips width = 0;
    Twips height = 0;
    bool operator==(const Size&) const = default;
};

/// A rectangle relative to the client area of the container it stands in.
struct Rect {
    Twips left = 0;
    Twips top = 0;
    Twips width = 0;
    Twips height = 0;
    bool operator==(const Rect&) const = default;

    Twips right() const { return left + width; }
    Twips bottom() const { return top + height; }
};

/// A window of the host, as a number: the component embeds into it or is owned by it. 0 is none.
using WindowHandle = std::uintptr_t;

}  // namespace pellmark
