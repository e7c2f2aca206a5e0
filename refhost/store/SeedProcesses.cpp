#include "refhost/store/SeedProcesses.h"

#include <charconv>
#include <cmath>
#include <numbers>
#include <span>

#include "knowledge/Records.h"
#include "refhost/store/ModelWriter.h"
#include "refhost/store/SeedTables.h"
#include "refhost/technology/Codes.h"
#include "refhost/technology/Cycles.h"

namespace norvex::seed {

using pellmark::FeatureCaseDescription;
using pellmark::TechnologySource;

struct Units {
    std::int16_t code;
    const char* suffix;                   ///< of process names
    double lengthFactor;                  ///< from millimetres
    double speedFactor;                   ///< from m/min
    double revolutionFactor;              ///< revolutions per minute from speed / (pi * diameter)
    int places;                           ///< of lengths
    double spotDrill, endMill, faceMill;  ///< usual diameters
    const char *threadType, *holeType, *slotType, *pocketType, *faceType;
    std::span<const Thread> threads;
    std::span<const SizeRange> ranges;
};

namespace {

const Units kMetric{pellmark::unit::kMetric,
                    "",
                    1,
                    1,
                    1000,
                    3,
                    10,
                    12,
                    63,
                    feature::kMetricThread,
                    feature::kMetricHole,
                    feature::kMetricSlot,
                    feature::kMetricPocket,
                    feature::kMetricFace,
                    kMetricThreads,
                    kMetricRanges};
const Units kInch{pellmark::unit::kInch,
                  " (inch)",
                  1 / 25.4,
                  3.28,
                  12,
                  4,
                  0.375,
                  0.5,
                  2.5,
                  feature::kInchThread,
                  feature::kInchHole,
                  feature::kInchSlot,
                  feature::kInchPocket,
                  feature::kInchFace,
                  kInchThreads,
                  kInchRanges};

/// With a decimal point whatever the locale, and without trailing zeros.
std::string decimal(double number, int places) {
    char digits[64];
    const auto end =
        std::to_chars(digits, digits + sizeof(digits), number, std::chars_format::fixed, places).ptr;
    std::string text(digits, end);
    if (text.find('.') == std::string::npos) return text;
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
    return text;
}

std::string rangeRule(const char* parameter, const SizeRange& range) {
    return std::string(parameter) + " >= " + decimal(range.from, 4) + " and " + parameter +
           " <= " + decimal(range.to, 4);
}

Tool carbide(const std::string& description, double diameter, int teeth = 0) {
    return {description, "solid carbide", diameter, teeth};
}

Step spotDrill(const Units& units, double speed) {
    const double diameter = units.spotDrill;
    return {"Spot drill",
            cycle::kSpotDrilling,
            carbide("NC spot drill 90 deg", diameter),
            speed * 0.6,
            diameter * 0.012,
            {{code::kToolPointAngle, "90"}},
            TechnologySource::DbDefaults};
}

Step from(TechnologySource source, Step step) {
    step.source = source;
    return step;
}

}  // namespace

SeedProcesses::SeedProcesses(SqliteKnowledgeBaseService& service, const SeedModel& model)
    : service_(service), model_(model) {}

void SeedProcesses::write() {
    for (const Units* units : {&kMetric, &kInch}) {
        writeThreads(*units);
        writeHoles(*units);
        writeSlots(*units);
        writePockets(*units);
        writeFaces(*units);
    }
    writeOrphans();
}

void SeedProcesses::writeThreads(const Units& units) {
    const double drillSpeed = 80 * units.speedFactor;
    for (const Thread& thread : units.threads) {
        const std::string size = thread.name;
        const std::string drill = decimal(thread.tappingDrill, units.places);
        const std::vector<Step> steps{
            spotDrill(units, drillSpeed),
            {"Drill " + drill,
             cycle::kDrilling,
             carbide("Tapping drill " + drill, thread.tappingDrill),
             drillSpeed,
             thread.tappingDrill * 0.018,
             {{code::kToolPointAngle, "140"}},
             TechnologySource::SfdbCalculated},
            {"Chamfer",
             cycle::kCountersinking,
             {"Countersink 90 deg", "HSS-E", thread.diameter * 1.5, 3},
             25 * units.speedFactor,
             thread.diameter * 0.005,
             {{code::kToolPointAngle, "90"}},
             TechnologySource::User},
            {"Tap " + size,
             cycle::kTapping,
             {"Machine tap " + size, "HSS-E TiN", thread.diameter, 0},
             12 * units.speedFactor,
             thread.pitch,
             {{code::kThreadPitch, decimal(thread.pitch, 4)}},
             TechnologySource::CalcoraComputed},
        };
        const std::string id = add(
            units, "Tap " + size, "Thread = \"" + size + "\" and Depth <= " + decimal(2 * thread.diameter, 3),
            "Spot drill, drill " + drill + ", chamfer and tap, up to twice the diameter deep.", steps, "PKN");
        attach(id, units, units.threadType, {size, value::kBlind});
        attach(id, units, units.threadType, {size, value::kThrough});
    }
}

void SeedProcesses::writeHoles(const Units& units) {
    for (const CuttingData& data : kCuttingData) {
        for (const SizeRange& range : units.ranges) {
            const double speed = data.drillSpeed * units.speedFactor;
            const std::string drillName = "Solid carbide drill " + decimal(range.tool, 4);
            const Step drill{"Drill",
                             cycle::kDrilling,
                             carbide(drillName, range.tool),
                             speed,
                             range.tool * data.drillFeed,
                             {{code::kToolPointAngle, "140"}, {code::kCoolant, data.coolant}}};
            const std::string id =
                add(units, "Drill " + std::string(range.name) + ", " + data.material,
                    rangeRule("Diameter", range),
                    "Solid carbide drill with internal coolant, up to five diameters deep.",
                    {spotDrill(units, speed), drill}, {data.letter});
            attach(id, units, units.holeType, {range.name, value::kDrilled});

            if (range.from != units.ranges[1].from) continue;
            Step undersize = drill;
            undersize.tool.diameter -= 0.2 * units.lengthFactor;
            const Step ream{"Ream H7",
                            cycle::kReaming,
                            carbide("Reamer H7", range.tool, 6),
                            data.reamSpeed * units.speedFactor,
                            range.tool * 0.002,
                            {{code::kDwell, "0.5"}}};
            const std::string reamed =
                add(units, "Ream H7 " + std::string(range.name) + ", " + data.material,
                    rangeRule("Diameter", range) + " and Tolerance = \"H7\"",
                    "Drill 0.2 mm (0.008 in) under size and ream. Check the first part with a plug gauge.",
                    {spotDrill(units, speed), undersize, ream}, {data.letter});
            attach(reamed, units, units.holeType, {range.name, value::kReamed});
        }
    }
    const SizeRange& large = units.ranges.back();
    const Step rough{"Drill",
                     cycle::kPeckDrilling,
                     {"Indexable drill", "carbide inserts", large.tool, 2},
                     140 * units.speedFactor,
                     large.tool * 0.003,
                     {{code::kPeckDepth, decimal(large.tool / 2, units.places)}}};
    const Step bore{"Bore H6",
                    cycle::kBoring,
                    {"Fine boring head", "carbide insert", large.tool, 1},
                    180 * units.speedFactor,
                    0.06 * units.lengthFactor,
                    {{code::kDepthOfCut, "0.15"}}};
    const std::string bored = add(
        units, "Bore H6 " + std::string(large.name), rangeRule("Diameter", large) + " and Tolerance = \"H6\"",
        "Bearing seats. Bore in one pass without stopping; measure before the last cut.", {rough, bore},
        "PK");
    attach(bored, units, units.holeType, {large.name, value::kBored});
    writeBearingSeat(units, rough, bore);
}

void SeedProcesses::writeBearingSeat(const Units& units, const Step& rough, const Step& bore) {
    const SizeRange& large = units.ranges.back();
    const Step chamfer{"Chamfer",
                       cycle::kCountersinking,
                       {"Countersink 90 deg", "HSS-E", large.tool * 1.5, 3},
                       25 * units.speedFactor,
                       large.tool * 0.005,
                       {{code::kToolPointAngle, "90"}}};
    Step deepen = from(TechnologySource::SfdbCalculated, rough);
    deepen.name = "Drill";
    Step open = from(TechnologySource::DbStep, bore);
    open.name = "Bore, rough";
    Step size = from(TechnologySource::CalcoraComputed, bore);
    Step check = from(TechnologySource::File, bore);
    check.name = "Bore, spring pass";
    const std::string id =
        add(units, "Bearing seat H6 " + std::string(large.name),
            rangeRule("Diameter", large) + " and Tolerance = \"H6\" and Depth <= " + decimal(large.to * 2, 3),
            "A seat in one set-up: spot, drill, bore twice, spring pass and chamfer.",
            {spotDrill(units, 80 * units.speedFactor), deepen, open, size, check,
             from(TechnologySource::User, chamfer)},
            "PK");
    attach(id, units, units.holeType, {large.name, value::kBored});
}

void SeedProcesses::writeSlots(const Units& units) {
    for (const SizeRange& range : units.ranges) {
        const Step mill{"Mill slot",
                        cycle::kSlotMilling,
                        carbide("Slot drill", range.tool, 2),
                        120 * units.speedFactor,
                        range.tool * 0.004,
                        {{code::kDepthOfCut, decimal(range.tool * 0.5, units.places)},
                         {code::kWidthOfCut, decimal(range.tool, units.places)}}};
        const Step finish{
            "Finish walls",
            cycle::kWallFinishing,
            carbide("End mill", range.tool * 0.8, 4),
            160 * units.speedFactor,
            range.tool * 0.005,
            {{code::kWidthOfCut, decimal(range.tool * 0.1, units.places)}, {code::kStockToLeave, "0"}}};
        const std::string id = add(units, "Slot " + std::string(range.name), rangeRule("Width", range),
                                   "Full-width slotting in layers of half the diameter, then both walls.",
                                   {mill, finish}, "PKN");
        attach(id, units, units.slotType, {range.name, value::kOpenEnds});
        attach(id, units, units.slotType, {range.name, value::kClosedEnds});
    }
}

void SeedProcesses::writePockets(const Units& units) {
    const double mill = units.endMill;
    const auto length = [&](double millimetres) {
        return decimal(millimetres * units.lengthFactor, units.places - 1);
    };
    for (const CuttingData& data : kCuttingData) {
        const Step rough{"Rough",
                         cycle::kPocketRoughing,
                         carbide("End mill 4 flutes", mill, 4),
                         data.millSpeed * units.speedFactor,
                         mill * data.millFeed,
                         {{code::kDepthOfCut, decimal(mill * 1.5, units.places)},
                          {code::kWidthOfCut, decimal(mill * 0.15, units.places)},
                          {code::kStockToLeave, decimal(0.3 * units.lengthFactor, units.places)},
                          {code::kCoolant, data.coolant}}};
        const Step walls{"Finish walls",
                         cycle::kWallFinishing,
                         carbide("End mill 6 flutes", mill * 0.5, 6),
                         data.millSpeed * 1.2 * units.speedFactor,
                         mill * 0.5 * data.millFeed,
                         {{code::kStockToLeave, "0"}}};
        const Step floor{"Finish floor",
                         cycle::kFloorFinishing,
                         carbide("End mill 4 flutes", mill, 4),
                         data.millSpeed * units.speedFactor,
                         mill * data.millFeed * 0.8,
                         {{code::kStockToLeave, "0"}}};
        const std::string roughing =
            add(units, "Pocket, rough, " + std::string(data.material),
                "Depth <= " + length(40) + " and CornerRadius >= " + length(6.5),
                "Trochoidal roughing with a small width and the full flute length.", {rough}, {data.letter});
        attach(roughing, units, units.pocketType, {value::kRough});
        const std::string finishing = add(units, "Pocket, finish, " + std::string(data.material),
                                          "CornerRadius >= " + length(3.5) + " and Ra <= 1.6",
                                          "Rough with 0.3 mm (0.012 in) to leave, then walls and floor.",
                                          {rough, walls, floor}, {data.letter});
        attach(finishing, units, units.pocketType, {value::kFine});
    }
}

void SeedProcesses::writeFaces(const Units& units) {
    const double cutter = units.faceMill;
    for (const CuttingData& data : kCuttingData) {
        const Step face{"Face mill",
                        cycle::kFaceMilling,
                        {"Face mill 45 deg", "carbide inserts", cutter, 6},
                        data.faceSpeed * units.speedFactor,
                        data.faceFeed * units.lengthFactor,
                        {{code::kDepthOfCut, decimal(2 * units.lengthFactor, units.places)},
                         {code::kWidthOfCut, decimal(cutter * 0.7, units.places)},
                         {code::kCoolant, data.coolant}}};
        const std::string id = add(units, "Face mill, " + std::string(data.material),
                                   "Width <= " + decimal(500 * units.lengthFactor, 1),
                                   "Standard of the house: 70 % of the cutter in the cut, climb milling.",
                                   {face}, {data.letter});
        attach(id, units, units.faceType, {value::kRough});
        attach(id, units, units.faceType, {value::kFine});
        // The standards that every programmer starts from must not be deleted by accident.
        if (data.letter == 'P') ModelWriter(service_.base()->connection()).protectProcess(id);
    }
}

void SeedProcesses::writeOrphans() {
    const Step deep{"Drill",
                    cycle::kPeckDrilling,
                    carbide("Deep-hole drill 20 x D", 8),
                    70,
                    0.12,
                    {{code::kCoolant, "high pressure"}}};
    add(kMetric, "Deep hole 8 mm, trial", "Diameter = 8 and Depth > 80",
        "Trial of the 20 x D drill on the horizontal machine; not released yet.", {deep}, "P");
    add(kMetric, "Thread mill M30, trial", "Thread = \"M30\"", "Needs the new thread mill; not released yet.",
        {}, "PM");
    add(kMetric, "Face mill, cast iron (before 2020)", "Width <= 500",
        "Replaced by the six-insert cutter; kept for repeat orders.", {}, "K");
    add(kInch, "Tap 1-8 UNC, draft", "Thread = \"1-8 UNC\"", "Draft without steps.", {}, "P");
    add(kInch, "Counterbore for socket head screws", "", "Where the drawing calls for a counterbore.", {},
        "PKN");
}

std::string SeedProcesses::add(const Units& units, const std::string& name, const std::string& rule,
                               const std::string& description, const std::vector<Step>& steps,
                               const std::string& classes) {
    std::string id =
        service_.processStore().addProcess({"", name + units.suffix, units.code, description, rule});
    std::int16_t priority = 1;
    for (const Step& step : steps)
        addStep(units, id, priority++, step);
    for (const char letter : classes) {
        for (const std::string& material : model_.materials(letter)) {
            service_.processStore().addMaterial(id, material);
        }
    }
    return id;
}

void SeedProcesses::addStep(const Units& units, const std::string& processId, std::int16_t priority,
                            const Step& step) {
    const std::string id = service_.stepStore().addStep({"", step.name, processId, priority, step.cycle});
    const auto value = [&](std::int32_t clCode, const std::string& text) {
        service_.stepStore().addValue({id, clCode, text});
    };
    const double revolutions = step.speed * units.revolutionFactor / (std::numbers::pi * step.tool.diameter);
    value(code::kOperationName, step.name);
    value(code::kToolDescription, step.tool.description);
    value(code::kToolMaterial, step.tool.material);
    value(code::kToolDiameter, decimal(step.tool.diameter, units.places));
    if (step.tool.teeth > 0) value(code::kToolTeeth, std::to_string(step.tool.teeth));
    value(code::kCuttingSpeed, decimal(step.speed, 0));
    value(code::kSpindleSpeed, decimal(std::round(revolutions / 10) * 10, 0));
    value(step.tool.teeth > 0 ? code::kFeedPerTooth : code::kFeedPerRevolution,
          decimal(step.feed, units.places + 1));
    for (const auto& [clCode, text] : step.more)
        value(clCode, text);
    service_.stepStore().setTechnologySource(id, step.source);
}

void SeedProcesses::attach(const std::string& processId, const Units& units,
                           const std::string& featureTypeName, const std::vector<std::string>& valueNames) {
    std::string name = featureTypeName;
    for (const std::string& valueName : valueNames)
        name += "|" + valueName;
    std::string& featureCase = featureCases_[name];
    if (featureCase.empty()) {
        FeatureCaseDescription description;
        description.featureTypeId = model_.featureType(featureTypeName);
        description.unit = units.code;
        description.processUnit = units.code;
        featureCase = service_.featureCaseStore().createFeatureCase(description);
        for (const std::string& valueName : valueNames) {
            service_.featureCaseStore().addValue(model_.featureValue(featureTypeName, valueName),
                                                 featureCase);
        }
    }
    service_.processStore().attach(processId, featureCase);
}

}  // namespace norvex::seed
