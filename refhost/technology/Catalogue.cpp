#include "refhost/technology/Catalogue.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "knowledge/Records.h"
#include "ports/Technology.h"
#include "refhost/technology/Codes.h"

namespace norvex {

namespace {

namespace unit = pellmark::unit;

constexpr std::int16_t kInput = pellmark::TechnologyParameter::kKindInput;
constexpr std::int16_t kKept = pellmark::TechnologyParameter::kKindKept;
constexpr std::uint32_t kTurningTool = kOnTheLathe | kBoring;
constexpr std::uint32_t kRotatingTool = kMilling | kHoleMaking | kDeburring;
constexpr std::uint32_t kCutting = kEveryFamily & ~static_cast<std::uint32_t>(kProbing);

constexpr std::array kDefinitions{
    Definition{code::kOperationName, "OperationName", Quantity::Text, Group::Tool, kKept, kEveryFamily, 0, 0,
               false},
    Definition{code::kToolDescription, "Tool", Quantity::Text, Group::Tool, kKept, kEveryFamily, 0, 0, false},
    Definition{code::kToolMaterial, "Tool material", Quantity::Text, Group::Tool, kKept, kEveryFamily, 0, 0,
               false},
    Definition{code::kToolDiameter, "Tool diameter", Quantity::Length, Group::Tool, kKept,
               kRotatingTool | kOnTheLathe | kProbing, 0, 500, true},
    Definition{code::kToolPointAngle, "Point angle", Quantity::Angle, Group::Tool, kInput,
               kDrilling | kDeburring, 30, 180, false},
    Definition{code::kToolTeeth, "Number of teeth", Quantity::Count, Group::Tool, kInput, kRotatingTool, 1,
               60, false},
    Definition{code::kThreadPitch, "Thread pitch", Quantity::Length, Group::Tool, kInput,
               kTapping | kThreadTurning, 0, 25, true},
    Definition{code::kCornerRadius, "Corner radius", Quantity::Length, Group::Tool, kInput,
               kMilling | kTurningTool, 0, 100, false},
    Definition{code::kCuttingSpeed, "Cutting speed", Quantity::Speed, Group::Cutting, kInput, kCutting, 0,
               5000, true},
    Definition{code::kSpindleSpeed, "Spindle speed", Quantity::Revolutions, Group::Cutting, kInput, kCutting,
               0, 100000, true},
    Definition{code::kFeedPerRevolution, "Feed per revolution", Quantity::Feed, Group::Cutting, kInput,
               kHoleMaking | kOnTheLathe, 0, 25, true},
    Definition{code::kFeedPerTooth, "Feed per tooth", Quantity::Feed, Group::Cutting, kInput, kRotatingTool,
               0, 10, true},
    Definition{code::kFeedRate, "Feed rate", Quantity::FeedRate, Group::Cutting, kKindShown, kCutting, 0,
               100000, true},
    Definition{code::kDepthOfCut, "Depth of cut", Quantity::Length, Group::Motion, kInput,
               kMilling | kTurningTool | kDeburring, 0, 200, true},
    Definition{code::kWidthOfCut, "Stepover", Quantity::Length, Group::Motion, kInput, kMilling, 0, 500,
               true},
    Definition{code::kPeckDepth, "Peck depth", Quantity::Length, Group::Motion, kInput, kDrilling | kGrooving,
               0, 500, true},
    Definition{code::kStockToLeave, "Stock to leave", Quantity::Length, Group::Motion, kInput,
               kMilling | kTurning, 0, 50, false},
    Definition{code::kDwell, "Dwell", Quantity::Time, Group::Motion, kInput, kHoleMaking | kGrooving, 0, 60,
               false},
    Definition{code::kRetract, "Retract", Quantity::Length, Group::Motion, kInput, kEveryFamily, 0, 1000,
               true},
    Definition{code::kCoolant, "Coolant", Quantity::Choice, Group::Motion, kInput, kCutting, 0, 0, false},
};

constexpr std::array kChoices{"emulsion", "high pressure", "mist", "air", "oil", "dry"};

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

/// A figure for a part of the families. The first entry that fits counts.
struct DefaultFigure {
    std::int32_t code;
    std::uint32_t families;
    double figure;
};

constexpr std::array kDefaultFigures{
    DefaultFigure{code::kToolDiameter, kProbing, 6},
    DefaultFigure{code::kToolDiameter, kOnTheLathe, 50},  // of the part, which is what turns
    DefaultFigure{code::kToolDiameter, kMilling, 12},
    DefaultFigure{code::kToolDiameter, kEveryFamily, 10},
    DefaultFigure{code::kToolPointAngle, kDrilling, 140},
    DefaultFigure{code::kToolPointAngle, kDeburring, 90},
    DefaultFigure{code::kToolTeeth, kMilling | kDeburring, 4},
    DefaultFigure{code::kToolTeeth, kReaming, 6},
    DefaultFigure{code::kThreadPitch, kEveryFamily, 1.5},
    DefaultFigure{code::kCornerRadius, kTurningTool, 0.8},
    DefaultFigure{code::kCuttingSpeed, kTapping, 12},
    DefaultFigure{code::kCuttingSpeed, kReaming, 20},
    DefaultFigure{code::kCuttingSpeed, kDrilling, 80},
    DefaultFigure{code::kCuttingSpeed, kThreadTurning, 100},
    DefaultFigure{code::kCuttingSpeed, kEveryFamily, 160},
    DefaultFigure{code::kFeedPerRevolution, kTapping | kThreadTurning, 1.5},
    DefaultFigure{code::kFeedPerRevolution, kGrooving, 0.1},
    DefaultFigure{code::kFeedPerRevolution, kHoleMaking | kTurning, 0.2},
    DefaultFigure{code::kFeedPerTooth, kMilling | kDeburring, 0.06},
    DefaultFigure{code::kDepthOfCut, kMilling, 6},
    DefaultFigure{code::kDepthOfCut, kTurning, 2},
    DefaultFigure{code::kDepthOfCut, kEveryFamily, 0.2},
    DefaultFigure{code::kWidthOfCut, kMilling, 6},
    DefaultFigure{code::kStockToLeave, kMilling | kTurning, 0},
    DefaultFigure{code::kDwell, kReaming | kGrooving, 0.5},
    DefaultFigure{code::kRetract, kProbing, 10},
    DefaultFigure{code::kRetract, kEveryFamily, 2},
};

bool isLength(Quantity quantity) {
    return quantity == Quantity::Length || quantity == Quantity::Feed || quantity == Quantity::FeedRate;
}

double rounded(double figure, int places) {
    const double factor = std::pow(10.0, places);
    return std::round(figure * factor) / factor;
}

}  // namespace

std::span<const Definition> definitions() {
    return kDefinitions;
}

const Definition* definitionOf(std::int32_t code) {
    const auto* const found =
        std::find_if(kDefinitions.begin(), kDefinitions.end(),
                     [code](const Definition& definition) { return definition.code == code; });
    return found == kDefinitions.end() ? nullptr : found;
}

CuttingCycle cycleOf(std::int16_t id) {
    const auto* const found = std::find_if(kCuttingCycles.begin(), kCuttingCycles.end(),
                                           [id](const CuttingCycle& cycle) { return cycle.id == id; });
    return found == kCuttingCycles.end() ? CuttingCycle{id, "Operation", 0, kEveryFamily} : *found;
}

std::span<const char* const> choices() {
    return kChoices;
}

std::string unitText(Quantity quantity, std::int16_t unitCode) {
    const bool inch = unitCode == unit::kInch;
    switch (quantity) {
        case Quantity::Length:
            return inch ? "in" : "mm";
        case Quantity::Angle:
            return "\xC2\xB0";
        case Quantity::Speed:
            return inch ? "ft/min" : "m/min";
        case Quantity::Revolutions:
            return "1/min";
        case Quantity::Feed:
            return inch ? "in" : "mm";
        case Quantity::FeedRate:
            return inch ? "in/min" : "mm/min";
        case Quantity::Time:
            return "s";
        default:
            return {};
    }
}

int decimals(Quantity quantity, std::int16_t unitCode) {
    const int more = unitCode == unit::kInch ? 1 : 0;
    switch (quantity) {
        case Quantity::Length:
            return 3 + more;
        case Quantity::Feed:
            return 4 + more;
        case Quantity::FeedRate:
            return more;
        default:
            return 0;
    }
}

double inUnit(double metric, Quantity quantity, std::int16_t unitCode) {
    if (unitCode != unit::kInch) return metric;
    constexpr double kMillimetres = 25.4;
    constexpr double kFeet = 3.28;
    if (isLength(quantity)) return rounded(metric / kMillimetres, decimals(quantity, unitCode));
    if (quantity == Quantity::Speed) return rounded(metric * kFeet, 0);
    return metric;
}

double defaultFigure(std::int32_t code, Family family) {
    const auto* const found = std::find_if(
        kDefaultFigures.begin(), kDefaultFigures.end(),
        [&](const DefaultFigure& entry) { return entry.code == code && (entry.families & family) != 0; });
    // A cycle that nobody knows has no sensible figures either.
    return family == kEveryFamily || found == kDefaultFigures.end() ? kNone : found->figure;
}

const char* defaultText(std::int32_t code, Family family) {
    if (family == kEveryFamily) return "";
    if (code == code::kCoolant) return "emulsion";
    if (code == code::kToolMaterial) return family == kTapping ? "HSS-E" : "solid carbide";
    if (code != code::kToolDescription) return "";
    switch (family) {
        case kMilling:
            return "End mill";
        case kDrilling:
            return "Drill";
        case kTapping:
            return "Machine tap";
        case kReaming:
            return "Reamer";
        case kBoring:
            return "Boring bar";
        case kTurning:
            return "Turning tool";
        case kGrooving:
            return "Grooving tool";
        case kThreadTurning:
            return "Threading tool";
        case kProbing:
            return "Touch probe";
        default:
            return "Deburring tool";
    }
}

}  // namespace norvex
