#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "refhost/technology/Cycles.h"

/// What Norvex knows of its technology parameters: names, units, limits and defaults, per cutting cycle.
namespace norvex {

/// What a parameter measures; it decides the unit and how a figure is converted between the unit systems.
enum class Quantity {
    Text,
    Choice,  ///< a text out of a list
    Length,
    Angle,
    Count,
    Speed,
    Revolutions,
    Feed,  ///< per revolution or per tooth
    FeedRate,
    Time
};

/// The page of the step wizard on which a parameter stands.
enum class Group { Tool, Cutting, Motion };

struct Definition {
    std::int32_t code;
    const char* caption;
    Quantity quantity;
    Group group;
    std::int16_t kind;
    std::uint32_t families;  ///< the cutting cycles whose technology has it
    double least;            ///< metric; a figure must not be below it, or at it where aboveLeast is set
    double greatest;
    bool aboveLeast;

    bool isText() const { return quantity == Quantity::Text || quantity == Quantity::Choice; }
};

/// Shown in the editor and never stored: it follows from the others.
inline constexpr std::int16_t kKindShown = 1;

/// All parameters in the order in which people read them.
std::span<const Definition> definitions();
/// Null for a code that Norvex does not know.
const Definition* definitionOf(std::int32_t code);

/// The cycle with that id; for an unknown one a cycle that has every parameter, so that nothing which is
/// stored under it is lost.
CuttingCycle cycleOf(std::int16_t id);

/// The texts that a parameter of Quantity::Choice may have.
std::span<const char* const> choices();

/// "mm", "m/min", "1/min"; "" for what has no unit. `unitCode` is 70 for inch, anything else is metric.
std::string unitText(Quantity quantity, std::int16_t unitCode);

/// A metric figure in the given unit system, rounded to what is usual there.
double inUnit(double metric, Quantity quantity, std::int16_t unitCode);

/// How many decimals a length, a feed or a feed rate is given; none for anything else.
int decimals(Quantity quantity, std::int16_t unitCode);

/// The default of a parameter in a cycle of the family, metric; NaN for none. Texts have none here.
double defaultFigure(std::int32_t code, Family family);
/// The default of a text parameter.
const char* defaultText(std::int32_t code, Family family);

}  // namespace norvex
