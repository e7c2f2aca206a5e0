#pragma once

#include <cstdint>

namespace pellmark {

/// A setting that is a number: the name of its value under the settings key, and the number that stands for
/// it while it is missing.
struct NumberOption {
    const char* name;
    std::int32_t whenMissing;
};

/// The settings that are numbers; what each means is said at its property of cQDLExtSettings.
namespace option {

constexpr std::int32_t rgb(std::int32_t red, std::int32_t green, std::int32_t blue) {
    return red + 256 * green + 65536 * blue;
}

inline constexpr NumberOption kConnectionTimeout{"ConnectionTimeout", 30};
inline constexpr NumberOption kProcessMngrSaveProcessesOnExit{"ProcessMngrSaveProcessesOnExit", 0};
inline constexpr NumberOption kProcessMngrPromtToSaveDirtyProcess{"ProcessMngrPromtToSaveDirtyProcess", 1};
inline constexpr NumberOption kFilterProcessbyMaterial{"FilterProcessbyMaterial", 0};
inline constexpr NumberOption kQDLProcMngrApplyToAllFeatures{"QDLProcMngrApplyToAllFeatures", 0};
inline constexpr NumberOption kProcessSelectionOnly{"ProcessSelectionOnly", 0};
inline constexpr NumberOption kProcessRulesOnOpRebuild{"ProcessRulesOnOpRebuild", 0};
inline constexpr NumberOption kRebuildOperations{"RebuildOperations", 0};
inline constexpr NumberOption kRebuildFeaturesFromQDL{"RebuildFeaturesFromQDL", 0};
inline constexpr NumberOption kRefreshAllToolsLinkedToQDL{"RefreshAllToolsLinkedToQDL", 0};
inline constexpr NumberOption kDebugMode{"DebugMode", 0};
inline constexpr NumberOption kTechSourceCalcoraComputedBackColor{"TechSourceCalcoraComputedBackColor",
                                                                  rgb(192, 192, 0)};
inline constexpr NumberOption kTechSourceCalcoraComputedForeColor{"TechSourceCalcoraComputedForeColor",
                                                                  rgb(0, 0, 0)};
inline constexpr NumberOption kTechSourceSFDBCalculatedBackColor{"TechSourceSFDBCalculatedBackColor",
                                                                 rgb(0, 0, 255)};
inline constexpr NumberOption kTechSourceSFDBCalculatedForeColor{"TechSourceSFDBCalculatedForeColor",
                                                                 rgb(255, 255, 255)};
inline constexpr NumberOption kProcessExactMatch{"ProcessExactMatch", 32768};
inline constexpr NumberOption kKnowledgeBaseMissingDataForeColor{"KnowledgeBaseMissingDataForeColor",
                                                                 rgb(255, 0, 0)};
inline constexpr NumberOption kFeatureRecTrueRuleForeColor{"FeatureRecTrueRuleForeColor", rgb(0, 128, 0)};
inline constexpr NumberOption kProcessListStyle{"ProcessListStyle", 0};
inline constexpr NumberOption kMaxProcessReturnNum{"MaxProcessReturnNum", 99};
inline constexpr NumberOption kExportFormulasAsText{"ExportFormulasAsText", 0};
inline constexpr NumberOption kTechSourceFileBackColor{"TechSourceFileBackColor", rgb(128, 255, 255)};
inline constexpr NumberOption kTechSourceFileForeColor{"TechSourceFileForeColor", rgb(64, 0, 64)};
inline constexpr NumberOption kTechSourceDBStepBackColor{"TechSourceDBStepBackColor", rgb(255, 128, 128)};
inline constexpr NumberOption kTechSourceDBStepForeColor{"TechSourceDBStepForeColor", rgb(0, 0, 0)};
inline constexpr NumberOption kTechSourceDBDefaultsBackColor{"TechSourceDBDefaultsBackColor",
                                                             rgb(128, 255, 128)};
inline constexpr NumberOption kTechSourceDBDefaultsForeColor{"TechSourceDBDefaultsForeColor", rgb(0, 0, 0)};
inline constexpr NumberOption kTechSourceUserBackColor{"TechSourceUserBackColor", rgb(255, 255, 255)};
inline constexpr NumberOption kTechSourceUserForecolor{"TechSourceUserForecolor", rgb(0, 0, 0)};

}  // namespace option

}  // namespace pellmark
