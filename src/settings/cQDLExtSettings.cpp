#include "settings/cQDLExtSettings.h"

#include <utility>

#include "base/Convert.h"
#include "ports/FileTests.h"

namespace pellmark {

/// The name of a value under the settings key and the number that stands for it while it is missing.
struct NumberOption {
    const char* name;
    std::int32_t whenMissing;
};

namespace {

constexpr char kSettingsKey[] = "Software\\Orvane\\Norvex\\ExtensionSettings\\GlobalQDLSettings\\";
constexpr char kHostKey[] = "SOFTWARE\\Orvane\\NORVEX";
constexpr char kModuleFolder[] = "\\Data\\QDLVBModules";

constexpr char kZFeedrateFactor[] = "ZFeedrateFactor";
constexpr char kSelectedCuttingToolGroup[] = "SelectedCuttingToolGroup";

constexpr std::int32_t rgb(std::int32_t red, std::int32_t green, std::int32_t blue) {
    return red + 256 * green + 65536 * blue;
}

constexpr NumberOption kConnectionTimeout{"ConnectionTimeout", 30};
constexpr NumberOption kProcessMngrSaveProcessesOnExit{"ProcessMngrSaveProcessesOnExit", 0};
constexpr NumberOption kProcessMngrPromtToSaveDirtyProcess{"ProcessMngrPromtToSaveDirtyProcess", 1};
constexpr NumberOption kFilterProcessbyMaterial{"FilterProcessbyMaterial", 0};
constexpr NumberOption kQDLProcMngrApplyToAllFeatures{"QDLProcMngrApplyToAllFeatures", 0};
constexpr NumberOption kProcessSelectionOnly{"ProcessSelectionOnly", 0};
constexpr NumberOption kProcessRulesOnOpRebuild{"ProcessRulesOnOpRebuild", 0};
constexpr NumberOption kRebuildOperations{"RebuildOperations", 0};
constexpr NumberOption kRebuildFeaturesFromQDL{"RebuildFeaturesFromQDL", 0};
constexpr NumberOption kRefreshAllToolsLinkedToQDL{"RefreshAllToolsLinkedToQDL", 0};
constexpr NumberOption kDebugMode{"DebugMode", 0};
constexpr NumberOption kTechSourceCalcoraComputedBackColor{"TechSourceCalcoraComputedBackColor",
                                                           rgb(192, 192, 0)};
constexpr NumberOption kTechSourceCalcoraComputedForeColor{"TechSourceCalcoraComputedForeColor",
                                                           rgb(0, 0, 0)};
constexpr NumberOption kTechSourceSFDBCalculatedBackColor{"TechSourceSFDBCalculatedBackColor",
                                                          rgb(0, 0, 255)};
constexpr NumberOption kTechSourceSFDBCalculatedForeColor{"TechSourceSFDBCalculatedForeColor",
                                                          rgb(255, 255, 255)};
constexpr NumberOption kProcessExactMatch{"ProcessExactMatch", 32768};
constexpr NumberOption kKnowledgeBaseMissingDataForeColor{"KnowledgeBaseMissingDataForeColor",
                                                          rgb(255, 0, 0)};
constexpr NumberOption kFeatureRecTrueRuleForeColor{"FeatureRecTrueRuleForeColor", rgb(0, 128, 0)};
constexpr NumberOption kProcessListStyle{"ProcessListStyle", 0};
constexpr NumberOption kMaxProcessReturnNum{"MaxProcessReturnNum", 99};
constexpr NumberOption kTechSourceFileBackColor{"TechSourceFileBackColor", rgb(128, 255, 255)};
constexpr NumberOption kTechSourceFileForeColor{"TechSourceFileForeColor", rgb(64, 0, 64)};
constexpr NumberOption kTechSourceDBStepBackColor{"TechSourceDBStepBackColor", rgb(255, 128, 128)};
constexpr NumberOption kTechSourceDBStepForeColor{"TechSourceDBStepForeColor", rgb(0, 0, 0)};
constexpr NumberOption kTechSourceDBDefaultsBackColor{"TechSourceDBDefaultsBackColor", rgb(128, 255, 128)};
constexpr NumberOption kTechSourceDBDefaultsForeColor{"TechSourceDBDefaultsForeColor", rgb(0, 0, 0)};
constexpr NumberOption kTechSourceUserBackColor{"TechSourceUserBackColor", rgb(255, 255, 255)};
constexpr NumberOption kTechSourceUserForecolor{"TechSourceUserForecolor", rgb(0, 0, 0)};

}  // namespace

cQDLExtSettings::cQDLExtSettings(Registry& registry, const CodePage& codePage, FileSystem& files,
                                 std::string executableName, Trace& trace)
    : registry_(registry),
      codePage_(codePage),
      files_(files),
      executableName_(std::move(executableName)),
      trace_(trace),
      options_(registry, codePage, executableName_) {}

void cQDLExtSettings::select(const char* name) {
    options_.setClassKey(cRegistry::kCurrentUser);
    options_.setSectionKey(kSettingsKey);
    options_.setValueType(cRegistry::kString);
    options_.setValueKey(name);
}

Variant cQDLExtSettings::GetValue(const char* name, const Variant& defaultValue) {
    select(name);
    options_.setDefault(defaultValue);
    return options_.Value();
}

void cQDLExtSettings::SetValue(const char* name, const Variant& value) {
    select(name);
    options_.setDefault({});
    options_.setValue(value);
}

std::int32_t cQDLExtSettings::number(const NumberOption& option) {
    return toInt32(GetValue(option.name, option.whenMissing));
}

double cQDLExtSettings::ZFeedrateFactor() {
    double factor = 0;
    trap(trace_, "cQDLExtSettings::ZFeedrateFactor", [&] {
        // Two reads with the two old spellings as defaults tell a missing or old value from any other.
        const Variant withPoint = GetValue(kZFeedrateFactor, "0.5");
        const Variant withComma = GetValue(kZFeedrateFactor, "0,5");
        if (toText(withPoint) == "0.5" || toText(withComma) == "0,5") SetValue(kZFeedrateFactor, "50");
        factor = toDouble(GetValue(kZFeedrateFactor, std::int32_t{50})) / 100;
        if (!(factor > 0)) factor = 0.5;
    });
    return factor;
}

void cQDLExtSettings::setZFeedrateFactor(double percentage) {
    SetValue(kZFeedrateFactor, percentage);
}

std::int32_t cQDLExtSettings::ConnectionTimeout() {
    return number(kConnectionTimeout);
}
void cQDLExtSettings::setConnectionTimeout(std::int32_t value) {
    SetValue(kConnectionTimeout.name, value);
}

std::int32_t cQDLExtSettings::ProcessMngrSaveProcessesOnExit() {
    return number(kProcessMngrSaveProcessesOnExit);
}
void cQDLExtSettings::setProcessMngrSaveProcessesOnExit(std::int32_t value) {
    SetValue(kProcessMngrSaveProcessesOnExit.name, value);
}

std::int32_t cQDLExtSettings::ProcessMngrPromtToSaveDirtyProcess() {
    return number(kProcessMngrPromtToSaveDirtyProcess);
}
void cQDLExtSettings::setProcessMngrPromtToSaveDirtyProcess(std::int32_t value) {
    SetValue(kProcessMngrPromtToSaveDirtyProcess.name, value);
}

std::int32_t cQDLExtSettings::FilterProcessbyMaterial() {
    return number(kFilterProcessbyMaterial);
}
void cQDLExtSettings::setFilterProcessbyMaterial(std::int32_t value) {
    SetValue(kFilterProcessbyMaterial.name, value);
}

std::int32_t cQDLExtSettings::QDLProcMngrApplyToAllFeatures() {
    return number(kQDLProcMngrApplyToAllFeatures);
}
void cQDLExtSettings::setQDLProcMngrApplyToAllFeatures(std::int32_t value) {
    SetValue(kQDLProcMngrApplyToAllFeatures.name, value);
}

std::int32_t cQDLExtSettings::ProcessSelectionOnly() {
    return number(kProcessSelectionOnly);
}
void cQDLExtSettings::setProcessSelectionOnly(std::int32_t value) {
    SetValue(kProcessSelectionOnly.name, value);
}

std::int32_t cQDLExtSettings::ProcessRulesOnOpRebuild() {
    return number(kProcessRulesOnOpRebuild);
}
void cQDLExtSettings::setProcessRulesOnOpRebuild(std::int32_t value) {
    SetValue(kProcessRulesOnOpRebuild.name, value);
}

std::int32_t cQDLExtSettings::RebuildOperations() {
    return number(kRebuildOperations);
}
void cQDLExtSettings::setRebuildOperations(std::int32_t value) {
    SetValue(kRebuildOperations.name, value);
}

std::int32_t cQDLExtSettings::RebuildFeaturesFromQDL() {
    return number(kRebuildFeaturesFromQDL);
}
void cQDLExtSettings::setRebuildFeaturesFromQDL(std::int32_t value) {
    SetValue(kRebuildFeaturesFromQDL.name, value);
}

std::int32_t cQDLExtSettings::RefreshAllToolsLinkedToQDL() {
    return number(kRefreshAllToolsLinkedToQDL);
}
void cQDLExtSettings::setRefreshAllToolsLinkedToQDL(std::int32_t value) {
    SetValue(kRefreshAllToolsLinkedToQDL.name, value);
}

std::string cQDLExtSettings::SelectedCuttingToolGroup() {
    return toText(GetValue(kSelectedCuttingToolGroup, ""));
}
void cQDLExtSettings::setSelectedCuttingToolGroup(const std::string& name) {
    SetValue(kSelectedCuttingToolGroup, name);
}

std::int32_t cQDLExtSettings::DebugMode() {
    return number(kDebugMode);
}
void cQDLExtSettings::setDebugMode(std::int32_t value) {
    SetValue(kDebugMode.name, value);
}

std::int32_t cQDLExtSettings::TechSourceCalcoraComputedBackColor() {
    return number(kTechSourceCalcoraComputedBackColor);
}
void cQDLExtSettings::setTechSourceCalcoraComputedBackColor(std::int32_t value) {
    SetValue(kTechSourceCalcoraComputedBackColor.name, value);
}

std::int32_t cQDLExtSettings::TechSourceCalcoraComputedForeColor() {
    return number(kTechSourceCalcoraComputedForeColor);
}
void cQDLExtSettings::setTechSourceCalcoraComputedForeColor(std::int32_t value) {
    SetValue(kTechSourceCalcoraComputedForeColor.name, value);
}

std::int32_t cQDLExtSettings::TechSourceSFDBCalculatedBackColor() {
    return number(kTechSourceSFDBCalculatedBackColor);
}
void cQDLExtSettings::setTechSourceSFDBCalculatedBackColor(std::int32_t value) {
    SetValue(kTechSourceSFDBCalculatedBackColor.name, value);
}

std::int32_t cQDLExtSettings::TechSourceSFDBCalculatedForeColor() {
    return number(kTechSourceSFDBCalculatedForeColor);
}
void cQDLExtSettings::setTechSourceSFDBCalculatedForeColor(std::int32_t value) {
    SetValue(kTechSourceSFDBCalculatedForeColor.name, value);
}

std::int32_t cQDLExtSettings::ProcessExactMatch() {
    return number(kProcessExactMatch);
}
void cQDLExtSettings::setProcessExactMatch(std::int32_t value) {
    SetValue(kProcessExactMatch.name, value);
}

std::int32_t cQDLExtSettings::KnowledgeBaseMissingDataForeColor() {
    return number(kKnowledgeBaseMissingDataForeColor);
}
void cQDLExtSettings::setKnowledgeBaseMissingDataForeColor(std::int32_t value) {
    SetValue(kKnowledgeBaseMissingDataForeColor.name, value);
}

std::int32_t cQDLExtSettings::FeatureRecTrueRuleForeColor() {
    return number(kFeatureRecTrueRuleForeColor);
}
void cQDLExtSettings::setFeatureRecTrueRuleForeColor(std::int32_t value) {
    SetValue(kFeatureRecTrueRuleForeColor.name, value);
}

std::int32_t cQDLExtSettings::ProcessListStyle() {
    return number(kProcessListStyle);
}
void cQDLExtSettings::setProcessListStyle(std::int32_t value) {
    SetValue(kProcessListStyle.name, value);
}

std::int32_t cQDLExtSettings::MaxProcessReturnNum() {
    return number(kMaxProcessReturnNum);
}
void cQDLExtSettings::setMaxProcessReturnNum(std::int32_t value) {
    SetValue(kMaxProcessReturnNum.name, value);
}

std::int32_t cQDLExtSettings::TechSourceFileBackColor() {
    return number(kTechSourceFileBackColor);
}
void cQDLExtSettings::setTechSourceFileBackColor(std::int32_t value) {
    SetValue(kTechSourceFileBackColor.name, value);
}

std::int32_t cQDLExtSettings::TechSourceFileForeColor() {
    return number(kTechSourceFileForeColor);
}
void cQDLExtSettings::setTechSourceFileForeColor(std::int32_t value) {
    SetValue(kTechSourceFileForeColor.name, value);
}

std::int32_t cQDLExtSettings::TechSourceDBStepBackColor() {
    return number(kTechSourceDBStepBackColor);
}
void cQDLExtSettings::setTechSourceDBStepBackColor(std::int32_t value) {
    SetValue(kTechSourceDBStepBackColor.name, value);
}

std::int32_t cQDLExtSettings::TechSourceDBStepForeColor() {
    return number(kTechSourceDBStepForeColor);
}
void cQDLExtSettings::setTechSourceDBStepForeColor(std::int32_t value) {
    SetValue(kTechSourceDBStepForeColor.name, value);
}

std::int32_t cQDLExtSettings::TechSourceDBDefaultsBackColor() {
    return number(kTechSourceDBDefaultsBackColor);
}
void cQDLExtSettings::setTechSourceDBDefaultsBackColor(std::int32_t value) {
    SetValue(kTechSourceDBDefaultsBackColor.name, value);
}

std::int32_t cQDLExtSettings::TechSourceDBDefaultsForeColor() {
    return number(kTechSourceDBDefaultsForeColor);
}
void cQDLExtSettings::setTechSourceDBDefaultsForeColor(std::int32_t value) {
    SetValue(kTechSourceDBDefaultsForeColor.name, value);
}

std::int32_t cQDLExtSettings::TechSourceUserBackColor() {
    return number(kTechSourceUserBackColor);
}
void cQDLExtSettings::setTechSourceUserBackColor(std::int32_t value) {
    SetValue(kTechSourceUserBackColor.name, value);
}

std::int32_t cQDLExtSettings::TechSourceUserForecolor() {
    return number(kTechSourceUserForecolor);
}
void cQDLExtSettings::setTechSourceUserForecolor(std::int32_t value) {
    SetValue(kTechSourceUserForecolor.name, value);
}

std::string cQDLExtSettings::NorvexInstallPath() {
    cRegistry host(registry_, codePage_, executableName_);
    host.setClassKey(cRegistry::kLocalMachine);
    host.setSectionKey(kHostKey);
    host.setValueKey("CurrentPath");
    host.setValueType(cRegistry::kString);
    return toText(host.Value());
}

std::string cQDLExtSettings::QDLModuleVBFolder() {
    const std::string installPath = NorvexInstallPath();
    // Without this test the path would name a folder of whatever drive is current.
    if (installPath.empty()) return "";
    const std::string folder = installPath + kModuleFolder;
    return FolderExists(folder) ? folder : "";
}

bool cQDLExtSettings::FolderExists(const std::string& path) {
    bool exists = false;
    trap(trace_, "cQDLExtSettings::FolderExists", [&] { exists = listingFindsFolder(files_, path); });
    return exists;
}

}  // namespace pellmark
