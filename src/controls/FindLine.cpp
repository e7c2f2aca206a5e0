#include "controls/FindLine.h"

#include <algorithm>
#include <utility>

namespace pellmark {

namespace {

constexpr Twips kGap = 90;
constexpr Twips kLabelWidth = 1200;
constexpr Twips kTextWidth = 3600;
constexpr Twips kLeastTextWidth = 900;
constexpr Twips kFoundWidth = 2700;
constexpr Size kButton{1215, 330};
constexpr Twips kLineHeight = 255;

}  // namespace

FindLine::FindLine(Container& parent, std::string name) : Frame(parent, std::move(name)) {
    setBordered(false);
    setVisible(false);
    TxtFind.setTakesEscape(true);
}

void FindLine::open() {
    if (!isOpen()) {
        setVisible(true);
        toggled.raise();
    }
    TxtFind.setFocus();
    TxtFind.selectText();
}

void FindLine::close() {
    TxtFind.setText("");
    if (!isOpen()) return;
    setVisible(false);
    toggled.raise();
}

void FindLine::arrange(Size client) {
    // The box gives way where the room is narrow: what has been found must stay readable.
    const Twips fixed = kLabelWidth + kFoundWidth + kButton.width + 4 * kGap;
    const Twips box = std::clamp(client.width - fixed, kLeastTextWidth, kTextWidth);
    const auto centred = [](Twips height) { return (kHeight - height) / 2; };
    Twips left = kGap;
    LblFind.setBounds({left, centred(kLineHeight), kLabelWidth, kLineHeight});
    left += kLabelWidth;
    TxtFind.setBounds({left, centred(kButton.height), box, kButton.height});
    left += box + kGap;
    CmdCloseFind.setBounds({left, centred(kButton.height), kButton.width, kButton.height});
    left += kButton.width + kGap;
    LblFound.setBounds(
        {left, centred(kLineHeight), std::clamp(client.width - left, 0, 2 * kFoundWidth), kLineHeight});
}

}  // namespace pellmark
