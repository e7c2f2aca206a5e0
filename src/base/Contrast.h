#pragma once

#include "base/Geometry.h"

namespace pellmark {

/// What a text needs to be read against its background by most people, as a contrast ratio.
inline constexpr double kReadableContrast = 4.5;

/// How much two colours differ in brightness, from 1 (alike) to 21 (black and white); the order does not
/// matter.
double contrastOf(Color one, Color other);

/// A colour between two others, `part` out of 255 of the second; 0 is the first one.
Color mixed(Color one, Color other, int part);

/// True where white stands out against the colour better than black does.
bool isDark(Color color);

/// The text colour itself where it can be read on the background, otherwise the nearest one on its way to
/// white or black that can.
Color readableOn(Color back, Color text);

}  // namespace pellmark
