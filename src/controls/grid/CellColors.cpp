#include "controls/grid/CellColors.h"

#include "base/Contrast.h"

namespace pellmark {

namespace {

constexpr Color kWhite = 0xFFFFFF;
/// How much of a dark window is mixed into a colour behind texts: enough for light letters on the palest one.
constexpr int kToneDown = 180;

Color shownBack(const CellStyle& style, const ListScheme& scheme) {
    if (!style.back || scheme.highContrast) return scheme.window;
    if (!isDark(scheme.window)) return *style.back;
    return *style.back == kWhite ? scheme.window : mixed(*style.back, scheme.window, kToneDown);
}

}  // namespace

CellColors shownColors(const CellStyle& style, const ListScheme& scheme, std::optional<Color> selection) {
    const Color back = selection.value_or(shownBack(style, scheme));
    const bool isAsStated = !isDark(scheme.window) && !scheme.highContrast;
    // What was made for white, or goes with a colour behind it, may say nothing on that of the selection.
    if (isAsStated && !selection) return {back, style.fore.value_or(scheme.text)};
    const bool isPlain =
        !style.fore || (!isAsStated && *style.fore == kBlack) || (scheme.highContrast && style.back);
    return {back, readableOn(back, isPlain ? scheme.text : *style.fore)};
}

}  // namespace pellmark
