#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// The records that cross the boundary to the host's knowledge base, and the names of their fields.
/// Ids are GUID text in registry form, compared without case; "" means none. Text is UTF-8.
namespace pellmark {

namespace unit {
inline constexpr std::int16_t kNone = -1;
inline constexpr std::int16_t kInch = 70;
inline constexpr std::int16_t kMetric = 71;
}  // namespace unit

/// Display list of every `_Unit` column: stored value, shown text. Not translated.
inline constexpr const char* kUnitComboList = "#70;Inch|#71;Metric";

/// Field names, which are also the column keys of the grids.
namespace field {
inline constexpr const char* kId = "_Id";
inline constexpr const char* kFeatureCaseId = "_FeatureCaseId";
inline constexpr const char* kName = "_Name";
inline constexpr const char* kUnit = "_Unit";
inline constexpr const char* kRule = "_Rule";
inline constexpr const char* kDescription = "_Description";
inline constexpr const char* kProcessId = "_ProcessId";
inline constexpr const char* kPriority = "_Priority";
inline constexpr const char* kCuttingCycleId = "_NVXCuttingCycleID";
inline constexpr const char* kClFileCode = "_CLFileCode";
inline constexpr const char* kValue = "_Value";
inline constexpr const char* kMaterialId = "_MaterialId";
inline constexpr const char* kPartMaterialGroupId = "_PartMaterialGroupId";
inline constexpr const char* kKeyId = "_KeyId";
inline constexpr const char* kDefaultTechId = "_DefaultTechId";
inline constexpr const char* kStandardId = "QDL_StandardId";
}  // namespace field

/// Greatest lengths in UTF-16 units.
namespace limit {
inline constexpr std::size_t kName = 500;
inline constexpr std::size_t kRule = 250;
inline constexpr std::size_t kDescription = 1000;
}  // namespace limit

/// A process found for a feature case.
struct pNode {
    std::string id;
    std::string FeatureCaseId;  ///< the feature case through which it was found
    std::string Name;
    std::int16_t unit = 0;  ///< unit::kInch or unit::kMetric
    std::string Rule;
    std::string Description;
    bool ExactMatch = false;
    bool operator==(const pNode&) const = default;
};

/// One process as the store hands it out and takes it back.
struct ProcessRecord {
    std::string Id;
    std::string Name;
    std::int16_t Unit = 0;
    std::string Description;
    std::string Rule;
    bool operator==(const ProcessRecord&) const = default;
};

/// What describes a feature case: the host's query and the create call take it whole.
struct FeatureCaseDescription {
    std::string featureTypeId;          ///< "" or "-1" when none is chosen
    std::vector<std::string> valueIds;  ///< at most one per key of the feature type
    std::int16_t nvxFeatureType = -1;
    std::string partTypeId;
    std::int16_t unit = unit::kNone;  ///< of the feature case
    std::string materialClassId;
    std::int16_t processUnit = unit::kNone;
    bool operator==(const FeatureCaseDescription&) const = default;
};

/// How the host describes a feature case, and what is to be selected in it. The defaults are those of the
/// omitted optional parameters: -1 and "" leave a selection as it is.
struct CaseDescription : FeatureCaseDescription {
    std::string processGuid;
    std::string processStepGuid;
};

/// A feature case that has the asked-for feature type, and whether its values are exactly the asked-for.
struct FeatureCaseMatch {
    std::string featureCaseId;
    std::string featureTypeId;
    bool exactMatch = false;
    bool operator==(const FeatureCaseMatch&) const = default;
};

/// One technology step of a process.
struct ProcessStepRecord {
    std::string id;
    std::string name;
    std::string processId;
    std::int16_t priority = 0;
    std::int16_t cuttingCycleId = 0;
    bool operator==(const ProcessStepRecord&) const = default;
};

/// Where the technology of a step comes from; the codes are the host's.
enum class TechnologySource : std::int16_t {
    CalcoraComputed = 0,  ///< a formula has computed a value of it
    SfdbCalculated = 1,   ///< a value of it is taken from the table of speeds and feeds
    File = 2,             ///< read from a process file
    DbStep = 3,           ///< stored with the step
    DbDefaults = 4,       ///< the host's defaults, unchanged
    User = 5              ///< a person has changed a value of it
};

/// One technology value of a step.
struct StepValueRecord {
    std::string stepId;
    std::int32_t clFileCode = 0;  ///< unique within the step
    std::string value;
    bool operator==(const StepValueRecord&) const = default;
};

}  // namespace pellmark
