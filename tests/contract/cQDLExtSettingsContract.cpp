#include <gmock/gmock.h>

#include "base/Error.h"
#include "contract/RegistryContract.h"

namespace pellmark::test {

namespace {

using ::testing::IsEmpty;

constexpr char kKey[] = "Software\\Orvane\\Norvex\\ExtensionSettings\\GlobalQDLSettings";
constexpr char kHostKey[] = "SOFTWARE\\Orvane\\NORVEX";

struct NumberProperty {
    const char* name;
    std::int32_t (cQDLExtSettings::*get)();
    void (cQDLExtSettings::*set)(std::int32_t);
    std::int32_t whenMissing;
};

constexpr NumberProperty kNumberProperties[] = {
    {"ConnectionTimeout", &cQDLExtSettings::ConnectionTimeout, &cQDLExtSettings::setConnectionTimeout, 30},
    {"ProcessMngrSaveProcessesOnExit", &cQDLExtSettings::ProcessMngrSaveProcessesOnExit,
     &cQDLExtSettings::setProcessMngrSaveProcessesOnExit, 0},
    {"ProcessMngrPromtToSaveDirtyProcess", &cQDLExtSettings::ProcessMngrPromtToSaveDirtyProcess,
     &cQDLExtSettings::setProcessMngrPromtToSaveDirtyProcess, 1},
    {"FilterProcessbyMaterial", &cQDLExtSettings::FilterProcessbyMaterial,
     &cQDLExtSettings::setFilterProcessbyMaterial, 0},
    {"QDLProcMngrApplyToAllFeatures", &cQDLExtSettings::QDLProcMngrApplyToAllFeatures,
     &cQDLExtSettings::setQDLProcMngrApplyToAllFeatures, 0},
    {"ProcessSelectionOnly", &cQDLExtSettings::ProcessSelectionOnly,
     &cQDLExtSettings::setProcessSelectionOnly, 0},
    {"ProcessRulesOnOpRebuild", &cQDLExtSettings::ProcessRulesOnOpRebuild,
     &cQDLExtSettings::setProcessRulesOnOpRebuild, 0},
    {"RebuildOperations", &cQDLExtSettings::RebuildOperations, &cQDLExtSettings::setRebuildOperations, 0},
    {"RebuildFeaturesFromQDL", &cQDLExtSettings::RebuildFeaturesFromQDL,
     &cQDLExtSettings::setRebuildFeaturesFromQDL, 0},
    {"RefreshAllToolsLinkedToQDL", &cQDLExtSettings::RefreshAllToolsLinkedToQDL,
     &cQDLExtSettings::setRefreshAllToolsLinkedToQDL, 0},
    {"DebugMode", &cQDLExtSettings::DebugMode, &cQDLExtSettings::setDebugMode, 0},
    {"TechSourceCalcoraComputedBackColor", &cQDLExtSettings::TechSourceCalcoraComputedBackColor,
     &cQDLExtSettings::setTechSourceCalcoraComputedBackColor, 49344},
    {"TechSourceCalcoraComputedForeColor", &cQDLExtSettings::TechSourceCalcoraComputedForeColor,
     &cQDLExtSettings::setTechSourceCalcoraComputedForeColor, 0},
    {"TechSourceSFDBCalculatedBackColor", &cQDLExtSettings::TechSourceSFDBCalculatedBackColor,
     &cQDLExtSettings::setTechSourceSFDBCalculatedBackColor, 16711680},
    {"TechSourceSFDBCalculatedForeColor", &cQDLExtSettings::TechSourceSFDBCalculatedForeColor,
     &cQDLExtSettings::setTechSourceSFDBCalculatedForeColor, 16777215},
    {"ProcessExactMatch", &cQDLExtSettings::ProcessExactMatch, &cQDLExtSettings::setProcessExactMatch, 32768},
    {"KnowledgeBaseMissingDataForeColor", &cQDLExtSettings::KnowledgeBaseMissingDataForeColor,
     &cQDLExtSettings::setKnowledgeBaseMissingDataForeColor, 255},
    {"FeatureRecTrueRuleForeColor", &cQDLExtSettings::FeatureRecTrueRuleForeColor,
     &cQDLExtSettings::setFeatureRecTrueRuleForeColor, 32768},
    {"ProcessListStyle", &cQDLExtSettings::ProcessListStyle, &cQDLExtSettings::setProcessListStyle, 0},
    {"MaxProcessReturnNum", &cQDLExtSettings::MaxProcessReturnNum, &cQDLExtSettings::setMaxProcessReturnNum,
     99},
    {"ExportFormulasAsText", &cQDLExtSettings::ExportFormulasAsText,
     &cQDLExtSettings::setExportFormulasAsText, 0},
    {"TechSourceFileBackColor", &cQDLExtSettings::TechSourceFileBackColor,
     &cQDLExtSettings::setTechSourceFileBackColor, 16777088},
    {"TechSourceFileForeColor", &cQDLExtSettings::TechSourceFileForeColor,
     &cQDLExtSettings::setTechSourceFileForeColor, 4194368},
    {"TechSourceDBStepBackColor", &cQDLExtSettings::TechSourceDBStepBackColor,
     &cQDLExtSettings::setTechSourceDBStepBackColor, 8421631},
    {"TechSourceDBStepForeColor", &cQDLExtSettings::TechSourceDBStepForeColor,
     &cQDLExtSettings::setTechSourceDBStepForeColor, 0},
    {"TechSourceDBDefaultsBackColor", &cQDLExtSettings::TechSourceDBDefaultsBackColor,
     &cQDLExtSettings::setTechSourceDBDefaultsBackColor, 8454016},
    {"TechSourceDBDefaultsForeColor", &cQDLExtSettings::TechSourceDBDefaultsForeColor,
     &cQDLExtSettings::setTechSourceDBDefaultsForeColor, 0},
    {"TechSourceUserBackColor", &cQDLExtSettings::TechSourceUserBackColor,
     &cQDLExtSettings::setTechSourceUserBackColor, 16777215},
    {"TechSourceUserForecolor", &cQDLExtSettings::TechSourceUserForecolor,
     &cQDLExtSettings::setTechSourceUserForecolor, 0},
};

std::string zeroTerminated(std::string text) {
    return text + '\0';
}

}  // namespace

RegistryHarness::Stored CQDLExtSettingsContract::written(const std::string& name) {
    return stored(kKey, name);
}

void CQDLExtSettingsContract::storeText(const std::string& name, const std::string& text) {
    store(kKey, name, 1, zeroTerminated(text));
}

void CQDLExtSettingsContract::installHost(const std::string& folder) {
    store(kHostKey, "CurrentPath", 1, zeroTerminated(folder), Registry::kLocalMachine);
}

TEST_P(CQDLExtSettingsContract, ACleanProfileReadsTheDefaultsAndCreatesNothing) {
    for (const NumberProperty& property : kNumberProperties) {
        EXPECT_EQ((settings.*property.get)(), property.whenMissing) << property.name;
    }
    EXPECT_EQ(settings.SelectedCuttingToolGroup(), "");
    EXPECT_FALSE(keyExists("Software\\Orvane"));
}

TEST_P(CQDLExtSettingsContract, EveryNumberIsStoredAsDecimalTextUnderItsNameAndReadBack) {
    std::int32_t value = 1000;
    for (const NumberProperty& property : kNumberProperties) {
        (settings.*property.set)(++value);
        EXPECT_EQ(written(property.name).type, 1U) << property.name;
        EXPECT_EQ(written(property.name).text(), zeroTerminated(std::to_string(value))) << property.name;
        EXPECT_EQ((settings.*property.get)(), value) << property.name;
    }
}

TEST_P(CQDLExtSettingsContract, TheCuttingToolGroupIsStoredAsItsText) {
    settings.setSelectedCuttingToolGroup("Bohrer \xC3\x98 8");
    EXPECT_EQ(written("SelectedCuttingToolGroup").text(), zeroTerminated("Bohrer \xD8 8"));
    EXPECT_EQ(settings.SelectedCuttingToolGroup(), "Bohrer \xC3\x98 8");
}

TEST_P(CQDLExtSettingsContract, AValueWrittenByAnotherProgramIsSeenAtOnce) {
    EXPECT_EQ(settings.MaxProcessReturnNum(), 99);
    storeText("MaxProcessReturnNum", "7");
    EXPECT_EQ(settings.MaxProcessReturnNum(), 7);
}

TEST_P(CQDLExtSettingsContract, AValueStoredAsANumberIsReadToo) {
    store(kKey, "ConnectionTimeout", 4, std::string("\x3C\0\0\0", 4));
    EXPECT_EQ(settings.ConnectionTimeout(), 60);
    store(kKey, "SelectedCuttingToolGroup", 4, std::string("\x3C\0\0\0", 4));
    EXPECT_EQ(settings.SelectedCuttingToolGroup(), "60");
}

TEST_P(CQDLExtSettingsContract, ATextThatIsNoNumberIsATypeMismatch) {
    storeText("DebugMode", "yes");
    try {
        settings.DebugMode();
        FAIL() << "nothing was thrown";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), errors::kTypeMismatch);
    }
}

TEST_P(CQDLExtSettingsContract, AMissingFeedrateFactorReadsOneHalfAndIsCreatedAs50) {
    EXPECT_EQ(settings.ZFeedrateFactor(), 0.5);
    EXPECT_EQ(written("ZFeedrateFactor").text(), zeroTerminated("50"));
    EXPECT_EQ(settings.ZFeedrateFactor(), 0.5);
    EXPECT_THAT(trace.lines(), IsEmpty());
}

TEST_P(CQDLExtSettingsContract, AFeedrateFactorOfTheOlderFormIsRewrittenWithEitherDecimalSeparator) {
    for (const char* const older : {"0,5", "0.5"}) {
        storeText("ZFeedrateFactor", older);
        EXPECT_EQ(settings.ZFeedrateFactor(), 0.5);
        EXPECT_EQ(written("ZFeedrateFactor").text(), zeroTerminated("50"));
    }
}

TEST_P(CQDLExtSettingsContract, AFeedrateFactorIsReadAsAPercentage) {
    storeText("ZFeedrateFactor", "25");
    EXPECT_EQ(settings.ZFeedrateFactor(), 0.25);
    storeText("ZFeedrateFactor", "12,5");
    EXPECT_EQ(settings.ZFeedrateFactor(), 0.125);
    EXPECT_EQ(written("ZFeedrateFactor").text(), zeroTerminated("12,5"));
}

TEST_P(CQDLExtSettingsContract, AFeedrateFactorThatIsNotAboveZeroReadsOneHalfAndStays) {
    for (const char* const useless : {"0", "-10"}) {
        storeText("ZFeedrateFactor", useless);
        EXPECT_EQ(settings.ZFeedrateFactor(), 0.5);
        EXPECT_EQ(written("ZFeedrateFactor").text(), zeroTerminated(useless));
    }
}

TEST_P(CQDLExtSettingsContract, AFeedrateFactorThatIsNoNumberReads0AndIsTraced) {
    storeText("ZFeedrateFactor", "half");
    EXPECT_EQ(settings.ZFeedrateFactor(), 0);
    EXPECT_TRUE(trace.trapped("cQDLExtSettings::ZFeedrateFactor"));
}

TEST_P(CQDLExtSettingsContract, AFeedrateFactorIsStoredAsGivenAndOneHalfIsTakenForTheOlderForm) {
    settings.setZFeedrateFactor(75);
    EXPECT_EQ(written("ZFeedrateFactor").text(), zeroTerminated("75"));
    EXPECT_EQ(settings.ZFeedrateFactor(), 0.75);
    settings.setZFeedrateFactor(0.5);
    EXPECT_EQ(written("ZFeedrateFactor").text(), zeroTerminated("0.5"));
    EXPECT_EQ(settings.ZFeedrateFactor(), 0.5);
    EXPECT_EQ(written("ZFeedrateFactor").text(), zeroTerminated("50"));
}

TEST_P(CQDLExtSettingsContract, TheInstallationFolderIsWhatTheMachineNames) {
    EXPECT_EQ(settings.NorvexInstallPath(), "");
    installHost("C:\\Norvex");
    EXPECT_EQ(settings.NorvexInstallPath(), "C:\\Norvex");
}

TEST_P(CQDLExtSettingsContract, TheModuleFolderIsEmptyWithoutAnInstalledHost) {
    files.makeFolder("\\Data\\QDLVBModules");
    EXPECT_EQ(settings.QDLModuleVBFolder(), "");
}

TEST_P(CQDLExtSettingsContract, TheModuleFolderIsEmptyUntilItExists) {
    installHost("C:\\Norvex");
    EXPECT_EQ(settings.QDLModuleVBFolder(), "");
    files.makeFolder("C:\\Norvex\\Data\\QDLVBModules");
    EXPECT_EQ(settings.QDLModuleVBFolder(), "C:\\Norvex\\Data\\QDLVBModules");
}

TEST_P(CQDLExtSettingsContract, AFailingTestForTheModuleFolderAnswersNoFolderAndIsTraced) {
    installHost("C:\\Norvex");
    files.breakDown(true);
    EXPECT_EQ(settings.QDLModuleVBFolder(), "");
    EXPECT_TRUE(trace.trapped("cQDLExtSettings::FolderExists"));
}

}  // namespace pellmark::test
