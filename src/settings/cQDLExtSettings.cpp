#include "settings/cQDLExtSettings.h"

#include <utility>

#include "base/Convert.h"
#include "ports/FileTests.h"
#include "settings/NumberOptions.h"

namespace pellmark {

namespace {

constexpr char kSettingsKey[] = "Software\\Orvane\\Norvex\\ExtensionSettings\\GlobalQDLSettings\\";
constexpr char kHostKey[] = "SOFTWARE\\Orvane\\NORVEX";
constexpr char kModuleFolder[] = "\\Data\\QDLVBModules";

constexpr char kZFeedrateFactor[] = "ZFeedrateFactor";
constexpr char kSelectedCuttingToolGroup[] = "SelectedCuttingToolGroup";

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

std::int32_t cQDLExtSettings::orDefault(const NumberOption& option) {
    std::int32_t value = option.whenMissing;
    trap(trace_, std::string("cQDLExtSettings::") + option.name, [&] { value = number(option); });
    return value;
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
    return number(option::kConnectionTimeout);
}
void cQDLExtSettings::setConnectionTimeout(std::int32_t value) {
    SetValue(option::kConnectionTimeout.name, value);
}

std::int32_t cQDLExtSettings::ProcessMngrSaveProcessesOnExit() {
    return number(option::kProcessMngrSaveProcessesOnExit);
}
void cQDLExtSettings::setProcessMngrSaveProcessesOnExit(std::int32_t value) {
    SetValue(option::kProcessMngrSaveProcessesOnExit.name, value);
}

std::int32_t cQDLExtSettings::ProcessMngrPromtToSaveDirtyProcess() {
    return number(option::kProcessMngrPromtToSaveDirtyProcess);
}
void cQDLExtSettings::setProcessMngrPromtToSaveDirtyProcess(std::int32_t value) {
    SetValue(option::kProcessMngrPromtToSaveDirtyProcess.name, value);
}

std::int32_t cQDLExtSettings::FilterProcessbyMaterial() {
    return number(option::kFilterProcessbyMaterial);
}
void cQDLExtSettings::setFilterProcessbyMaterial(std::int32_t value) {
    SetValue(option::kFilterProcessbyMaterial.name, value);
}

std::int32_t cQDLExtSettings::QDLProcMngrApplyToAllFeatures() {
    return number(option::kQDLProcMngrApplyToAllFeatures);
}
void cQDLExtSettings::setQDLProcMngrApplyToAllFeatures(std::int32_t value) {
    SetValue(option::kQDLProcMngrApplyToAllFeatures.name, value);
}

std::int32_t cQDLExtSettings::ProcessSelectionOnly() {
    return number(option::kProcessSelectionOnly);
}
void cQDLExtSettings::setProcessSelectionOnly(std::int32_t value) {
    SetValue(option::kProcessSelectionOnly.name, value);
}

std::int32_t cQDLExtSettings::ProcessRulesOnOpRebuild() {
    return number(option::kProcessRulesOnOpRebuild);
}
void cQDLExtSettings::setProcessRulesOnOpRebuild(std::int32_t value) {
    SetValue(option::kProcessRulesOnOpRebuild.name, value);
}

std::int32_t cQDLExtSettings::RebuildOperations() {
    return number(option::kRebuildOperations);
}
void cQDLExtSettings::setRebuildOperations(std::int32_t value) {
    SetValue(option::kRebuildOperations.name, value);
}

std::int32_t cQDLExtSettings::RebuildFeaturesFromQDL() {
    return number(option::kRebuildFeaturesFromQDL);
}
void cQDLExtSettings::setRebuildFeaturesFromQDL(std::int32_t value) {
    SetValue(option::kRebuildFeaturesFromQDL.name, value);
}

std::int32_t cQDLExtSettings::RefreshAllToolsLinkedToQDL() {
    return number(option::kRefreshAllToolsLinkedToQDL);
}
void cQDLExtSettings::setRefreshAllToolsLinkedToQDL(std::int32_t value) {
    SetValue(option::kRefreshAllToolsLinkedToQDL.name, value);
}

std::string cQDLExtSettings::SelectedCuttingToolGroup() {
    return toText(GetValue(kSelectedCuttingToolGroup, ""));
}
void cQDLExtSettings::setSelectedCuttingToolGroup(const std::string& name) {
    SetValue(kSelectedCuttingToolGroup, name);
}

std::int32_t cQDLExtSettings::DebugMode() {
    return number(option::kDebugMode);
}
void cQDLExtSettings::setDebugMode(std::int32_t value) {
    SetValue(option::kDebugMode.name, value);
}

std::int32_t cQDLExtSettings::TechSourceCalcoraComputedBackColor() {
    return number(option::kTechSourceCalcoraComputedBackColor);
}
void cQDLExtSettings::setTechSourceCalcoraComputedBackColor(std::int32_t value) {
    SetValue(option::kTechSourceCalcoraComputedBackColor.name, value);
}

std::int32_t cQDLExtSettings::TechSourceCalcoraComputedForeColor() {
    return number(option::kTechSourceCalcoraComputedForeColor);
}
void cQDLExtSettings::setTechSourceCalcoraComputedForeColor(std::int32_t value) {
    SetValue(option::kTechSourceCalcoraComputedForeColor.name, value);
}

std::int32_t cQDLExtSettings::TechSourceSFDBCalculatedBackColor() {
    return number(option::kTechSourceSFDBCalculatedBackColor);
}
void cQDLExtSettings::setTechSourceSFDBCalculatedBackColor(std::int32_t value) {
    SetValue(option::kTechSourceSFDBCalculatedBackColor.name, value);
}

std::int32_t cQDLExtSettings::TechSourceSFDBCalculatedForeColor() {
    return number(option::kTechSourceSFDBCalculatedForeColor);
}
void cQDLExtSettings::setTechSourceSFDBCalculatedForeColor(std::int32_t value) {
    SetValue(option::kTechSourceSFDBCalculatedForeColor.name, value);
}

std::int32_t cQDLExtSettings::ProcessExactMatch() {
    return number(option::kProcessExactMatch);
}
void cQDLExtSettings::setProcessExactMatch(std::int32_t value) {
    SetValue(option::kProcessExactMatch.name, value);
}

std::int32_t cQDLExtSettings::KnowledgeBaseMissingDataForeColor() {
    return number(option::kKnowledgeBaseMissingDataForeColor);
}
void cQDLExtSettings::setKnowledgeBaseMissingDataForeColor(std::int32_t value) {
    SetValue(option::kKnowledgeBaseMissingDataForeColor.name, value);
}

std::int32_t cQDLExtSettings::FeatureRecTrueRuleForeColor() {
    return number(option::kFeatureRecTrueRuleForeColor);
}
void cQDLExtSettings::setFeatureRecTrueRuleForeColor(std::int32_t value) {
    SetValue(option::kFeatureRecTrueRuleForeColor.name, value);
}

std::int32_t cQDLExtSettings::ProcessListStyle() {
    return number(option::kProcessListStyle);
}
void cQDLExtSettings::setProcessListStyle(std::int32_t value) {
    SetValue(option::kProcessListStyle.name, value);
}

std::int32_t cQDLExtSettings::MaxProcessReturnNum() {
    return number(option::kMaxProcessReturnNum);
}
void cQDLExtSettings::setMaxProcessReturnNum(std::int32_t value) {
    SetValue(option::kMaxProcessReturnNum.name, value);
}

std::int32_t cQDLExtSettings::TechSourceFileBackColor() {
    return number(option::kTechSourceFileBackColor);
}
void cQDLExtSettings::setTechSourceFileBackColor(std::int32_t value) {
    SetValue(option::kTechSourceFileBackColor.name, value);
}

std::int32_t cQDLExtSettings::TechSourceFileForeColor() {
    return number(option::kTechSourceFileForeColor);
}
void cQDLExtSettings::setTechSourceFileForeColor(std::int32_t value) {
    SetValue(option::kTechSourceFileForeColor.name, value);
}

std::int32_t cQDLExtSettings::TechSourceDBStepBackColor() {
    return number(option::kTechSourceDBStepBackColor);
}
void cQDLExtSettings::setTechSourceDBStepBackColor(std::int32_t value) {
    SetValue(option::kTechSourceDBStepBackColor.name, value);
}

std::int32_t cQDLExtSettings::TechSourceDBStepForeColor() {
    return number(option::kTechSourceDBStepForeColor);
}
void cQDLExtSettings::setTechSourceDBStepForeColor(std::int32_t value) {
    SetValue(option::kTechSourceDBStepForeColor.name, value);
}

std::int32_t cQDLExtSettings::TechSourceDBDefaultsBackColor() {
    return number(option::kTechSourceDBDefaultsBackColor);
}
void cQDLExtSettings::setTechSourceDBDefaultsBackColor(std::int32_t value) {
    SetValue(option::kTechSourceDBDefaultsBackColor.name, value);
}

std::int32_t cQDLExtSettings::TechSourceDBDefaultsForeColor() {
    return number(option::kTechSourceDBDefaultsForeColor);
}
void cQDLExtSettings::setTechSourceDBDefaultsForeColor(std::int32_t value) {
    SetValue(option::kTechSourceDBDefaultsForeColor.name, value);
}

std::int32_t cQDLExtSettings::TechSourceUserBackColor() {
    return number(option::kTechSourceUserBackColor);
}
void cQDLExtSettings::setTechSourceUserBackColor(std::int32_t value) {
    SetValue(option::kTechSourceUserBackColor.name, value);
}

std::int32_t cQDLExtSettings::TechSourceUserForecolor() {
    return number(option::kTechSourceUserForecolor);
}
void cQDLExtSettings::setTechSourceUserForecolor(std::int32_t value) {
    SetValue(option::kTechSourceUserForecolor.name, value);
}

std::int32_t cQDLExtSettings::ExportFormulasAsText() {
    return number(option::kExportFormulasAsText);
}
void cQDLExtSettings::setExportFormulasAsText(std::int32_t value) {
    SetValue(option::kExportFormulasAsText.name, value);
}

std::string cQDLExtSettings::NorvexInstallPath() {
    cRegistry host(registry_, codePage_, executableName_);
    host.setClassKey(cRegistry::kLocalMachine);
    host.setSectionKey(kHostKey);
    host.setValueKey("CurrentPath");
    return toText(host.Value());
}

std::string cQDLExtSettings::QDLModuleVBFolder() {
    const std::string installPath = NorvexInstallPath();
    // Without this test the path would name a folder of whatever drive is current.
    if (installPath.empty()) return "";
    const std::string folder = installPath + kModuleFolder;
    return FolderExists(folder) ? folder : "";
}

bool cQDLExtSettings::FileExists(const std::string& path) {
    bool exists = false;
    trap(trace_, "cQDLExtSettings::FileExists", [&] { exists = listingFindsFile(files_, path); });
    return exists;
}

bool cQDLExtSettings::FolderExists(const std::string& path) {
    bool exists = false;
    trap(trace_, "cQDLExtSettings::FolderExists", [&] { exists = listingFindsFolder(files_, path); });
    return exists;
}

}  // namespace pellmark
