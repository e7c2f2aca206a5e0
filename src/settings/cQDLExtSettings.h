#pragma once

#include <cstdint>
#include <string>

#include "base/Trace.h"
#include "base/Variant.h"
#include "ports/FileSystem.h"
#include "settings/cRegistry.h"

namespace pellmark {

namespace test {
class CQDLExtSettingsTest;
}

struct NumberOption;  // see NumberOptions.h

/// The component's global options, kept as texts under one registry key of the current user that other
/// programs read and write, too. Nothing is cached: each read and each write goes to the registry at once.
/// A flag is 0 for off and anything else for on; a colour is red + 256 * green + 65536 * blue.
///
/// Getters throw the type-mismatch or overflow error when another program stored what is not such a number;
/// setters throw the registry's error when the key cannot be written.
class cQDLExtSettings {
  public:
    /// The ports must outlive this object. `executableName` names the source of registry errors.
    cQDLExtSettings(Registry& registry, const CodePage& codePage, FileSystem& files,
                    std::string executableName, Trace& trace);

    /// A number as views, lists and logs read it: what does not read as one, or cannot be read at all, counts
    /// as the default and is traced, so that a value that another program stored wrongly stops nothing. For
    /// example orDefault(option::kDebugMode).
    std::int32_t orDefault(const NumberOption& option);

    /// Feed-rate factor for Z moves: the stored percentage divided by 100, 0.5 when nothing usable is stored.
    /// A missing value and one of the older fractional form ("0.5", "0,5") are rewritten as "50". Never
    /// throws: a failure answers what is known so far, 0 at worst.
    double ZFeedrateFactor();
    /// Stores the percentage as given: 50 is read back as 0.5.
    void setZFeedrateFactor(double percentage);

    /// Connection time-out for the knowledge base. 30 when missing.
    std::int32_t ConnectionTimeout();
    void setConnectionTimeout(std::int32_t value);

    /// Flag: save processes when the manager closes. 0 when missing.
    std::int32_t ProcessMngrSaveProcessesOnExit();
    void setProcessMngrSaveProcessesOnExit(std::int32_t value);

    /// Flag: ask before discarding a changed process. Other programs know the key under this spelling. 1 when
    /// missing.
    std::int32_t ProcessMngrPromtToSaveDirtyProcess();
    void setProcessMngrPromtToSaveDirtyProcess(std::int32_t value);

    /// Flag: filter the process list by the part material. 0 when missing.
    std::int32_t FilterProcessbyMaterial();
    void setFilterProcessbyMaterial(std::int32_t value);

    /// Flag: apply a process to all features. 0 when missing.
    std::int32_t QDLProcMngrApplyToAllFeatures();
    void setQDLProcMngrApplyToAllFeatures(std::int32_t value);

    /// Flag: process the selection only. 0 when missing.
    std::int32_t ProcessSelectionOnly();
    void setProcessSelectionOnly(std::int32_t value);

    /// Flag: evaluate process rules when operations are rebuilt. 0 when missing.
    std::int32_t ProcessRulesOnOpRebuild();
    void setProcessRulesOnOpRebuild(std::int32_t value);

    /// Flag: rebuild operations. 0 when missing.
    std::int32_t RebuildOperations();
    void setRebuildOperations(std::int32_t value);

    /// Flag: rebuild features from the knowledge base. 0 when missing.
    std::int32_t RebuildFeaturesFromQDL();
    void setRebuildFeaturesFromQDL(std::int32_t value);

    /// Flag: refresh all tools linked to the knowledge base. 0 when missing.
    std::int32_t RefreshAllToolsLinkedToQDL();
    void setRefreshAllToolsLinkedToQDL(std::int32_t value);

    /// Name of the selected cutting-tool group. UTF-8; "" when missing.
    std::string SelectedCuttingToolGroup();
    void setSelectedCuttingToolGroup(const std::string& name);

    /// Flag: diagnostic mode. 0 when missing.
    std::int32_t DebugMode();
    void setDebugMode(std::int32_t value);

    /// Back colour of a technology value whose source is Calcora-computed. 49344 when missing.
    std::int32_t TechSourceCalcoraComputedBackColor();
    void setTechSourceCalcoraComputedBackColor(std::int32_t value);

    /// Its fore colour. 0 when missing.
    std::int32_t TechSourceCalcoraComputedForeColor();
    void setTechSourceCalcoraComputedForeColor(std::int32_t value);

    /// Back colour of a technology value whose source is SFDB-calculated. 16711680 when missing.
    std::int32_t TechSourceSFDBCalculatedBackColor();
    void setTechSourceSFDBCalculatedBackColor(std::int32_t value);

    /// Its fore colour. 16777215 when missing.
    std::int32_t TechSourceSFDBCalculatedForeColor();
    void setTechSourceSFDBCalculatedForeColor(std::int32_t value);

    /// Flag: exact matching of processes to feature cases. On by default, as 32768 and not as 1. 32768 when
    /// missing.
    std::int32_t ProcessExactMatch();
    void setProcessExactMatch(std::int32_t value);

    /// Fore colour of data missing from the knowledge base. 255 when missing.
    std::int32_t KnowledgeBaseMissingDataForeColor();
    void setKnowledgeBaseMissingDataForeColor(std::int32_t value);

    /// Fore colour of a feature case whose rule evaluates true. 32768 when missing.
    std::int32_t FeatureRecTrueRuleForeColor();
    void setFeatureRecTrueRuleForeColor(std::int32_t value);

    /// Display style of the process list. 0 when missing.
    std::int32_t ProcessListStyle();
    void setProcessListStyle(std::int32_t value);

    /// Most processes returned by a search. 99 when missing.
    std::int32_t MaxProcessReturnNum();
    void setMaxProcessReturnNum(std::int32_t value);

    /// Back colour of a technology value whose source is File. 16777088 when missing.
    std::int32_t TechSourceFileBackColor();
    void setTechSourceFileBackColor(std::int32_t value);

    /// Its fore colour. 4194368 when missing.
    std::int32_t TechSourceFileForeColor();
    void setTechSourceFileForeColor(std::int32_t value);

    /// Back colour of a technology value whose source is DB step. 8421631 when missing.
    std::int32_t TechSourceDBStepBackColor();
    void setTechSourceDBStepBackColor(std::int32_t value);

    /// Its fore colour. 0 when missing.
    std::int32_t TechSourceDBStepForeColor();
    void setTechSourceDBStepForeColor(std::int32_t value);

    /// Back colour of a technology value whose source is DB defaults. 8454016 when missing.
    std::int32_t TechSourceDBDefaultsBackColor();
    void setTechSourceDBDefaultsBackColor(std::int32_t value);

    /// Its fore colour. 0 when missing.
    std::int32_t TechSourceDBDefaultsForeColor();
    void setTechSourceDBDefaultsForeColor(std::int32_t value);

    /// Back colour of a technology value whose source is User. 16777215 when missing.
    std::int32_t TechSourceUserBackColor();
    void setTechSourceUserBackColor(std::int32_t value);

    /// Its fore colour; other programs know the key under this spelling. 0 when missing.
    std::int32_t TechSourceUserForecolor();
    void setTechSourceUserForecolor(std::int32_t value);

    /// Flag: saved tables get an apostrophe before each text that a spreadsheet would run as a formula, which
    /// changes the texts for other readers of the file. 0 when missing.
    std::int32_t ExportFormulasAsText();
    void setExportFormulasAsText(std::int32_t value);

    /// The host's installation folder as the machine's registry names it; "" when missing.
    std::string NorvexInstallPath();
    /// The folder of the host's script modules; "" when the host is not installed or has no such folder.
    std::string QDLModuleVBFolder();

  private:
    Variant GetValue(const char* name, const Variant& defaultValue);
    void SetValue(const char* name, const Variant& value);
    void select(const char* name);
    std::int32_t number(const NumberOption& option);
    // The two tests of the folder properties; a failure of the file port is traced and counts as "no".
    friend class test::CQDLExtSettingsTest;
    bool FileExists(const std::string& path);
    bool FolderExists(const std::string& path);

    Registry& registry_;
    const CodePage& codePage_;
    FileSystem& files_;
    std::string executableName_;
    Trace& trace_;
    cRegistry options_;
};

}  // namespace pellmark
