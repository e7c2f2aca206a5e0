#include "host/HTMLHelp.h"

#include "base/Convert.h"
#include "ports/FileTests.h"

namespace pellmark {

void HTMLHelp::OpenHTMLHelp(WindowHandle owner, const Variant& topic) {
    bool shown = true;
    const bool isNumber = std::holds_alternative<std::int16_t>(topic) ||
                          std::holds_alternative<std::int32_t>(topic) || std::holds_alternative<float>(topic);
    if (isNumber) {
        shown = viewer_.openContext(owner, HelpFile, toInt32(topic));
    } else if (const auto* text = std::get_if<std::string>(&topic)) {
        shown = viewer_.openContext(owner, HelpFile, *text);
    }
    if (!shown) openPages(owner);
}

std::string HTMLHelp::startPageOf(const std::string& helpFile) {
    return helpFile.substr(0, helpFile.rfind('.')) + "\\index.html";
}

void HTMLHelp::openPages(WindowHandle owner) {
    const std::string page = startPageOf(HelpFile);
    bool opened = listingFindsFile(files_, page);
    if (opened && !told_) {
        told_ = true;
        tell(texts_.GetString(
                 "The help file cannot be shown in its own window. Its pages open in the browser."),
             MessageIcon::Information);
    }
    opened = opened && viewer_.openPage(owner, page);
    if (!opened)
        tell(texts_.GetString("The help could not be opened:") + " " + HelpFile, MessageIcon::Critical);
}

void HTMLHelp::tell(const std::string& text, MessageIcon icon) {
    desktop_.showMessage({text, texts_.title(), icon});
}

}  // namespace pellmark
