#include "controls/Splitter.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace pellmark {

namespace {

/// `part` of `whole` as a part of another whole, rounded to the nearest.
int rescaled(int part, int whole, int otherWhole) {
    return static_cast<int>((std::int64_t{part} * otherWhole * 2 + whole) / (std::int64_t{whole} * 2));
}

}  // namespace

Twips firstPart(const Division& division, Share share) {
    if (division.room < division.leastFirst + division.leastSecond)
        return std::clamp(division.usualFirst, 0, std::max(division.room, 0));
    const Twips wanted = share ? rescaled(*share, kWholeShare, division.room) : division.usualFirst;
    return std::clamp(wanted, division.leastFirst, division.room - division.leastSecond);
}

Splitter::Splitter(Container& parent, std::string name, Bar bar)
    : Control(Kind::Splitter, &parent, std::move(name)), bar_(bar) {
    setTabStop(false);
    setTakesEscape(true);
}

void Splitter::moveTo(Twips first) {
    if (!isMovable()) return;
    const Twips within = std::clamp(first, division_.leastFirst, division_.room - division_.leastSecond);
    choose(rescaled(within, division_.room, kWholeShare));
}

void Splitter::choose(Share share) {
    if (share == share_) return;
    share_ = share;
    moved.raise();
}

}  // namespace pellmark
