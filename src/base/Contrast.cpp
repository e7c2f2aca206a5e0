#include "base/Contrast.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace pellmark {

namespace {

constexpr Color kWhite = 0xFFFFFF;
constexpr int kWhole = 255;

constexpr int red(Color color) {
    return static_cast<int>(color & 0xFFU);
}
constexpr int green(Color color) {
    return static_cast<int>((color >> 8U) & 0xFFU);
}
constexpr int blue(Color color) {
    return static_cast<int>((color >> 16U) & 0xFFU);
}

/// The light of each sRGB component, from 0 to 1.
std::array<double, kWhole + 1> linearLight() {
    std::array<double, kWhole + 1> light{};
    for (std::size_t component = 0; component < light.size(); ++component) {
        const double share = static_cast<double>(component) / kWhole;
        light[component] = share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    }
    return light;
}

/// How bright a colour looks, from 0 to 1: its components weighed as the eye does.
double brightness(Color color) {
    static const auto light = linearLight();
    const auto of = [](int component) { return light[static_cast<std::size_t>(component)]; };
    return 0.2126 * of(red(color)) + 0.7152 * of(green(color)) + 0.0722 * of(blue(color));
}

}  // namespace

double contrastOf(Color one, Color other) {
    constexpr double kStrayLight = 0.05;
    const auto [darker, lighter] = std::minmax({brightness(one), brightness(other)});
    return (lighter + kStrayLight) / (darker + kStrayLight);
}

Color mixed(Color one, Color other, int part) {
    const auto mix = [part](int from, int to) {
        return static_cast<Color>(from + (to - from) * part / kWhole);
    };
    return mix(red(one), red(other)) | mix(green(one), green(other)) << 8U |
           mix(blue(one), blue(other)) << 16U;
}

bool isDark(Color color) {
    return contrastOf(color, kWhite) > contrastOf(color, kBlack);
}

Color readableOn(Color back, Color text) {
    const Color end = isDark(back) ? kWhite : kBlack;
    for (int part = 0; part < kWhole; ++part) {
        const Color color = mixed(text, end, part);
        if (contrastOf(color, back) >= kReadableContrast) return color;
    }
    return end;
}

}  // namespace pellmark
