#include "refhost/store/SeedModel.h"

#include "base/Text.h"
#include "knowledge/Records.h"
#include "refhost/store/SeedTables.h"
#include "refhost/technology/Cycles.h"

namespace norvex::seed {

namespace unit = pellmark::unit;

namespace {

/// Norvex's own numbers of its feature types.
constexpr std::int16_t kHole = 1;
constexpr std::int16_t kThread = 2;
constexpr std::int16_t kPocket = 3;
constexpr std::int16_t kSlot = 4;
constexpr std::int16_t kFace = 5;

template <class Table>
std::vector<std::string> namesOf(const Table& table) {
    std::vector<std::string> names;
    for (const auto& entry : table)
        names.emplace_back(entry.name);
    return names;
}

}  // namespace

SeedModel::SeedModel(Connection& connection) : writer_(connection) {
    writeMaterials();
    writer_.addPartType("Prismatic part");
    writer_.addPartType("Plate");
    writer_.addPartType("Housing");
    writer_.addPartType("Turned part");
    writeFeatureTypes();
    writeCuttingCycles();
}

const std::string& SeedModel::featureValue(const std::string& featureTypeName,
                                           const std::string& valueName) const {
    return values_.at({featureTypeName, valueName});
}

void SeedModel::writeMaterials() {
    for (const MaterialClass& entry : kMaterialClasses) {
        const std::string classId = writer_.addMaterialClass(entry.name);
        classes_[entry.letter] = classId;
        for (const std::string& name : pellmark::split(entry.materials, '|')) {
            materials_[entry.letter].push_back(writer_.addMaterial(name, classId));
        }
    }
}

void SeedModel::writeFeatureTypes() {
    writer_.addNvxFeatureType(kHole, "Hole");
    writer_.addNvxFeatureType(kThread, "Threaded hole");
    writer_.addNvxFeatureType(kPocket, "Pocket");
    writer_.addNvxFeatureType(kSlot, "Slot");
    writer_.addNvxFeatureType(kFace, "Face");
    const std::vector<std::string> bottoms{value::kBlind, value::kThrough};
    const std::vector<std::string> tolerances{value::kDrilled, value::kReamed, value::kBored};
    const std::vector<std::string> ends{value::kOpenEnds, value::kClosedEnds};
    const std::vector<std::string> finishes{value::kRough, value::kFine};
    writeType(feature::kMetricThread, kThread, unit::kMetric,
              {{"Thread", namesOf(kMetricThreads)}, {"Hole", bottoms}});
    writeType(feature::kInchThread, kThread, unit::kInch,
              {{"Thread", namesOf(kInchThreads)}, {"Hole", bottoms}});
    writeType(feature::kMetricHole, kHole, unit::kMetric,
              {{"Diameter", namesOf(kMetricRanges)}, {"Tolerance", tolerances}});
    writeType(feature::kInchHole, kHole, unit::kInch,
              {{"Diameter", namesOf(kInchRanges)}, {"Tolerance", tolerances}});
    writeType(feature::kMetricSlot, kSlot, unit::kMetric,
              {{"Width", namesOf(kMetricRanges)}, {"Ends", ends}});
    writeType(feature::kInchSlot, kSlot, unit::kInch, {{"Width", namesOf(kInchRanges)}, {"Ends", ends}});
    writeType(feature::kMetricPocket, kPocket, unit::kMetric, {{"Surface", finishes}});
    writeType(feature::kInchPocket, kPocket, unit::kInch, {{"Surface", finishes}});
    writeType(feature::kMetricFace, kFace, unit::kMetric, {{"Surface", finishes}});
    writeType(feature::kInchFace, kFace, unit::kInch, {{"Surface", finishes}});
}

void SeedModel::writeType(const std::string& name, std::int16_t nvxFeatureType, std::int16_t unitCode,
                          const std::vector<std::pair<std::string, std::vector<std::string>>>& keys) {
    const std::string typeId = writer_.addFeatureType(name, nvxFeatureType, {}, unitCode);
    featureTypes_[name] = typeId;
    for (const auto& [keyName, valueNames] : keys) {
        const std::string keyId = writer_.addKey(typeId, keyName);
        for (const std::string& valueName : valueNames) {
            values_[{name, valueName}] = writer_.addValue(keyId, valueName);
        }
    }
}

void SeedModel::writeCuttingCycles() {
    for (const CuttingCycle& entry : kCuttingCycles)
        writer_.addCuttingCycle(entry.id, entry.name, entry.type);
}

}  // namespace norvex::seed
