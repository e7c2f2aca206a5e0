#include "settings/cQDLExtSettings.h"

#include <gmock/gmock.h>

#include "base/Error.h"
#include "settings/NumberOptions.h"
#include "support/MemoryFileSystem.h"
#include "support/MemoryRegistry.h"
#include "support/PortableCodePage.h"
#include "support/RecordingTrace.h"

// How the settings answer a registry that refuses. What they do over any registry is in the contract tests.
namespace pellmark::test {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::int32_t kAccessDenied = 5;
constexpr char kKey[] = "Software\\Orvane\\Norvex\\ExtensionSettings\\GlobalQDLSettings\\";

}  // namespace

class CQDLExtSettingsTest : public ::testing::Test {
  protected:
    ~CQDLExtSettingsTest() override { EXPECT_EQ(registry.openKeys(), 0) << "a key was left open"; }

    bool fileExists(const std::string& path) { return settings.FileExists(path); }

    MemoryRegistry registry;
    PortableCodePage codePage;
    MemoryFileSystem files;
    RecordingTrace trace;
    cQDLExtSettings settings{registry, codePage, files, "Norvex", trace};
};

TEST_F(CQDLExtSettingsTest, AFailingWriteIsPassedOnWithTheRegistrysError) {
    registry.refuseAccess(kAccessDenied);
    try {
        settings.setDebugMode(1);
        FAIL() << "nothing was thrown";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), 26001);
        EXPECT_EQ(error.source(), "Norvex.cRegistry");
        EXPECT_EQ(error.description(), "Failed to set registry value Key: '-2147483647',Section: '" +
                                           std::string(kKey) + "',Key: 'DebugMode' to value: ''");
    }
}

TEST_F(CQDLExtSettingsTest, WhatMayNotBeReadHasItsDefault) {
    registry.setText(Registry::kCurrentUser, kKey, "MaxProcessReturnNum", "5");
    registry.refuseAccess(kAccessDenied);
    EXPECT_EQ(settings.MaxProcessReturnNum(), 99);
    EXPECT_EQ(settings.NorvexInstallPath(), "");
}

TEST_F(CQDLExtSettingsTest, AFeedrateFactorThatCannotBeCreatedReads0AndIsTraced) {
    registry.refuseWrites(-1);
    EXPECT_EQ(settings.ZFeedrateFactor(), 0);
    EXPECT_TRUE(trace.trapped("cQDLExtSettings::ZFeedrateFactor"));
}

TEST_F(CQDLExtSettingsTest, AReadThatExpandsLeavesTheNextWriteAPlainString) {
    registry.setText(Registry::kCurrentUser, kKey, "SelectedCuttingToolGroup", "x");
    settings.setSelectedCuttingToolGroup("%TEMP%");
    EXPECT_EQ(settings.SelectedCuttingToolGroup(), "%TEMP%");
    settings.setDebugMode(1);
    EXPECT_EQ(registry.text(Registry::kCurrentUser, kKey, "DebugMode"), "1");
}

TEST_F(CQDLExtSettingsTest, ANumberThatDoesNotReadAsOneIsItsDefaultForAViewAndTracedAtEachRead) {
    registry.setText(Registry::kCurrentUser, kKey, "MaxProcessReturnNum", "many");
    EXPECT_EQ(settings.orDefault(option::kMaxProcessReturnNum), 99);
    EXPECT_THAT(trace.lines(), ElementsAre("cQDLExtSettings::MaxProcessReturnNum: error 13 from "
                                           "Convert: Type mismatch: \"many\" is not a number."));
    registry.setText(Registry::kCurrentUser, kKey, "ProcessExactMatch", "");
    EXPECT_EQ(settings.orDefault(option::kProcessExactMatch), 32768);
    EXPECT_TRUE(trace.trapped("cQDLExtSettings::ProcessExactMatch"));
}

TEST_F(CQDLExtSettingsTest, ANumberTooLargeForItsTypeIsItsDefaultForAViewAndTheGetterStillRaises) {
    registry.setText(Registry::kCurrentUser, kKey, "MaxProcessReturnNum", "2147483648");
    EXPECT_EQ(settings.orDefault(option::kMaxProcessReturnNum), 99);
    EXPECT_THROW(settings.MaxProcessReturnNum(), Error);
}

TEST_F(CQDLExtSettingsTest, ANumberThatReadsAsOneIsTheSameForAView) {
    registry.setText(Registry::kCurrentUser, kKey, "MaxProcessReturnNum", "2147483647");
    EXPECT_EQ(settings.orDefault(option::kMaxProcessReturnNum), 2147483647);
    EXPECT_EQ(settings.orDefault(option::kProcessListStyle), 0);
    EXPECT_THAT(trace.lines(), IsEmpty());
}

TEST_F(CQDLExtSettingsTest, AFileIsFoundByItsListingAFolderIsNot) {
    files.makeFile("C:\\Norvex\\a.bas");
    EXPECT_TRUE(fileExists("C:\\Norvex\\a.bas"));
    EXPECT_FALSE(fileExists("C:\\Norvex\\b.bas"));
    EXPECT_FALSE(fileExists("C:\\Norvex"));
    EXPECT_THAT(trace.lines(), IsEmpty());
}

TEST_F(CQDLExtSettingsTest, AFailingTestForAFileAnswersNoFileAndIsTraced) {
    files.breakDown(true);
    EXPECT_FALSE(fileExists("C:\\Norvex\\a.bas"));
    EXPECT_TRUE(trace.trapped("cQDLExtSettings::FileExists"));
}

}  // namespace pellmark::test
