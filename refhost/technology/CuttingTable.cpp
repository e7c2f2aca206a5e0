#include "refhost/technology/CuttingTable.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "refhost/technology/Codes.h"
#include "refhost/texts/Sentence.h"

namespace norvex {

namespace {

namespace unit = pellmark::unit;

double rounded(double figure, int places) {
    const double factor = std::pow(10.0, places);
    return std::round(figure * factor) / factor;
}

bool cutsWithTeeth(const Operation& operation) {
    const Family family = operation.cycle().family;
    return family == kMilling || family == kDeburring;
}

std::string putFeed(Operation& operation, const CuttingRow& row) {
    const std::int32_t code = cutsWithTeeth(operation) ? code::kFeedPerTooth : code::kFeedPerRevolution;
    if (operation.find(code) == nullptr) return {};
    const std::int16_t unitCode = operation.unit();
    double feed = inUnit(row.feed, Quantity::Feed, unitCode);
    if (row.feed == 0) {
        feed = operation.figure(code::kThreadPitch);
        if (feed <= 0) return sentence("The feed of a thread is its pitch: enter the pitch first.");
    } else if (row.ofDiameter) {
        const double diameter = operation.figure(code::kToolDiameter);
        feed = rounded(row.feed * diameter, decimals(Quantity::Feed, unitCode));
        if (diameter <= 0 || !std::isfinite(feed))
            return sentence("The feed depends on the tool diameter: enter the diameter first.");
    }
    operation.set(code, feed, Origin::Table);
    return {};
}

}  // namespace

const CuttingRow* CuttingTable::find(char materialClass, Work work) const {
    const auto found = std::find_if(rows_.begin(), rows_.end(), [&](const CuttingRow& row) {
        return row.materialClass == materialClass && row.work == work;
    });
    return found == rows_.end() ? nullptr : &*found;
}

std::vector<std::pair<char, std::string>> CuttingTable::classes() const {
    std::vector<std::pair<char, std::string>> found;
    for (const CuttingRow& row : rows_) {
        const std::pair entry(row.materialClass, row.material);
        if (std::find(found.begin(), found.end(), entry) == found.end()) found.push_back(entry);
    }
    return found;
}

std::optional<Work> workOf(const CuttingCycle& cycle) {
    if (cycle.id == cycle::kFaceMilling) return Work::FaceMill;
    switch (cycle.family) {
        case kMilling:
        case kDeburring:
            return Work::Mill;
        case kDrilling:
            return Work::Drill;
        case kTapping:
        case kThreadTurning:
            return Work::Tap;
        case kReaming:
            return Work::Ream;
        case kBoring:
        case kTurning:
        case kGrooving:
            return Work::Turn;
        default:
            return std::nullopt;
    }
}

std::string takeFromTable(Operation& operation, const CuttingRow& row) {
    Operation changed = operation;
    if (changed.find(code::kCuttingSpeed) == nullptr) return sentence("This cycle does not cut.");
    if (std::string reason = putFeed(changed, row); !reason.empty()) return reason;
    changed.set(code::kCuttingSpeed, inUnit(row.speed, Quantity::Speed, operation.unit()), Origin::Table);
    operation = std::move(changed);
    return {};
}

double spindleSpeedOf(const Operation& operation) {
    const double speed = operation.figure(code::kCuttingSpeed);
    const double diameter = operation.figure(code::kToolDiameter);
    if (speed <= 0 || diameter <= 0) return 0;
    const double lengthsPerSpeed = operation.unit() == unit::kInch ? 12 : 1000;
    const double revolutions = speed * lengthsPerSpeed / (std::numbers::pi * diameter);
    if (!std::isfinite(revolutions)) return 0;
    // Machines are set to tens; a large cutter turns slowly enough for ones to matter.
    return revolutions < 100 ? std::max(std::round(revolutions), 1.0) : std::round(revolutions / 10) * 10;
}

std::string computeSpindleSpeed(Operation& operation) {
    if (operation.find(code::kSpindleSpeed) == nullptr) return sentence("This cycle does not cut.");
    const double revolutions = spindleSpeedOf(operation);
    if (revolutions == 0) return sentence("The spindle speed needs a cutting speed and a diameter.");
    operation.set(code::kSpindleSpeed, revolutions, Origin::Formula);
    return {};
}

double feedRateOf(const Operation& operation) {
    const double revolutions = operation.figure(code::kSpindleSpeed);
    const double perTooth = operation.figure(code::kFeedPerTooth) * operation.figure(code::kToolTeeth);
    const double perRevolution = operation.figure(code::kFeedPerRevolution);
    const double feed = revolutions * (perTooth > 0 ? perTooth : perRevolution);
    const double rate = rounded(feed, decimals(Quantity::FeedRate, operation.unit()));
    return std::isfinite(rate) ? rate : 0;
}

}  // namespace norvex
