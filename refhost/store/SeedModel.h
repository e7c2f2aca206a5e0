#pragma once

#include <map>
#include <string>
#include <vector>

#include "refhost/store/ModelWriter.h"

namespace norvex::seed {

/// The names under which the sample data's feature types, keys and values are known.
namespace feature {
inline constexpr const char* kMetricThread = "Threaded hole (metric)";
inline constexpr const char* kInchThread = "Threaded hole (inch)";
inline constexpr const char* kMetricHole = "Plain hole (metric)";
inline constexpr const char* kInchHole = "Plain hole (inch)";
inline constexpr const char* kMetricSlot = "Slot (metric)";
inline constexpr const char* kInchSlot = "Slot (inch)";
inline constexpr const char* kMetricPocket = "Pocket (metric)";
inline constexpr const char* kInchPocket = "Pocket (inch)";
inline constexpr const char* kMetricFace = "Face (metric)";
inline constexpr const char* kInchFace = "Face (inch)";
}  // namespace feature

namespace value {
inline constexpr const char* kBlind = "Blind";
inline constexpr const char* kThrough = "Through";
inline constexpr const char* kDrilled = "H12, drilled";
inline constexpr const char* kReamed = "H7, reamed";
inline constexpr const char* kBored = "H6, bored";
inline constexpr const char* kOpenEnds = "Open";
inline constexpr const char* kClosedEnds = "Closed";
inline constexpr const char* kRough = "Ra 6.3, roughed";
inline constexpr const char* kFine = "Ra 1.6, finished";
}  // namespace value

/// Writes the model behind the filters (materials, part types, feature types with keys and values, cutting
/// cycles) and remembers the ids that the sample processes refer to.
class SeedModel {
  public:
    explicit SeedModel(Connection& connection);

    /// The materials of an ISO material class.
    const std::vector<std::string>& materials(char classLetter) const { return materials_.at(classLetter); }
    const std::string& materialClass(char classLetter) const { return classes_.at(classLetter); }
    const std::string& featureType(const std::string& name) const { return featureTypes_.at(name); }
    const std::string& featureValue(const std::string& featureTypeName, const std::string& valueName) const;

  private:
    void writeMaterials();
    void writeFeatureTypes();
    void writeType(const std::string& name, std::int16_t nvxFeatureType, std::int16_t unitCode,
                   const std::vector<std::pair<std::string, std::vector<std::string>>>& keys);
    void writeCuttingCycles();

    ModelWriter writer_;
    std::map<char, std::string> classes_;
    std::map<char, std::vector<std::string>> materials_;
    std::map<std::string, std::string> featureTypes_;
    std::map<std::pair<std::string, std::string>, std::string> values_;
};

}  // namespace norvex::seed
