#include "host/HTMLHelp.h"

#include <cmath>

namespace pellmark {

void HTMLHelp::OpenHTMLHelp(WindowHandle owner, const Variant& topic) {
    if (const auto* number = std::get_if<std::int16_t>(&topic)) {
        viewer_.openContext(owner, HelpFile, std::int32_t{*number});
    } else if (const auto* longNumber = std::get_if<std::int32_t>(&topic)) {
        viewer_.openContext(owner, HelpFile, *longNumber);
    } else if (const auto* single = std::get_if<float>(&topic)) {
        viewer_.openContext(owner, HelpFile, static_cast<std::int32_t>(std::nearbyint(*single)));
    } else if (const auto* text = std::get_if<std::string>(&topic)) {
        viewer_.openContext(owner, HelpFile, *text);
    }
}

}  // namespace pellmark
