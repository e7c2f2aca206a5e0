#pragma once

#include <optional>
#include <string>

#include "controls/Control.h"

namespace pellmark {

/// A length that two neighbours share, the bar between them not counted. All in twips.
struct Division {
    Twips room = 0;
    Twips leastFirst = 0;
    Twips leastSecond = 0;
    Twips usualFirst = 0;  ///< the first one's part while nobody has chosen another

    /// False where both have no more than their least.
    bool isFree() const { return room > leastFirst + leastSecond; }
    bool operator==(const Division&) const = default;
};

/// The first neighbour's part of the room in ten-thousandths; nothing while nobody has chosen one.
using Share = std::optional<int>;
inline constexpr int kWholeShare = 10000;

/// The first neighbour's length: the share or, without one, the usual length, but so that both get their
/// least. Where the room is too small for that there is nothing to choose: the usual length counts.
Twips firstPart(const Division& division, Share share);

/// The bar between two neighbours, by which a person divides the room anew. The form that lays them out tells
/// what there is to divide and listens to `moved`; a share that was chosen stays when the room changes.
class Splitter : public Control {
  public:
    /// A lying bar has its neighbours above and below, a standing one at its left and right.
    enum class Bar { Lying, Standing };

    Splitter(Container& parent, std::string name, Bar bar);

    Bar bar() const { return bar_; }
    const Share& share() const { return share_; }
    /// For what is restored; raises nothing.
    void setShare(Share share) { share_ = share; }

    /// What the last layout had to divide.
    const Division& division() const { return division_; }
    void setDivision(const Division& division) { division_ = division; }
    Twips first() const { return firstPart(division_, share_); }
    /// False where there is nothing to choose.
    bool isMovable() const { return visible() && division_.isFree(); }

    // --- what a person does ------------------------------------------------------------------------------
    /// Gives the first neighbour this length, or the nearest that leaves both their least.
    void moveTo(Twips first);
    void moveBy(Twips distance) { moveTo(first() + distance); }
    /// Takes a choice back: another one, or none.
    void choose(Share share);

    Event<> moved;

  private:
    Bar bar_;
    Share share_;
    Division division_;
};

}  // namespace pellmark
