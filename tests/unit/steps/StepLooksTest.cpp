// What the source of a step's technology does to its row.
#include "steps/StepLooks.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/StepsHarness.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;

class StepLooksTest : public testing::Test, protected StepsHarness {
  protected:
    StepLooksTest() { process = base.addProcess("A"); }
    std::string addStep(const std::string& name, std::int16_t priority) {
        return base.addStep(process, name, priority, 602);
    }
    CellStyle lookOf(const std::string& id, const char* key) {
        return grid.style(grid.findRow(id), grid.colIndex(key));
    }

    std::string process;
};

struct SourceCase {
    TechnologySource source;
    const char* name;
    Color back;
    Color fore;
    const char* backSetting;
    const char* foreSetting;
};

const SourceCase kSources[] = {
    {TechnologySource::CalcoraComputed, "Calcora computed", 49344, 0, "TechSourceCalcoraComputedBackColor",
     "TechSourceCalcoraComputedForeColor"},
    {TechnologySource::SfdbCalculated, "SFDB calculated", 16711680, 16777215,
     "TechSourceSFDBCalculatedBackColor", "TechSourceSFDBCalculatedForeColor"},
    {TechnologySource::File, "File", 16777088, 4194368, "TechSourceFileBackColor", "TechSourceFileForeColor"},
    {TechnologySource::DbStep, "DB step", 8421631, 0, "TechSourceDBStepBackColor",
     "TechSourceDBStepForeColor"},
    {TechnologySource::DbDefaults, "DB defaults", 8454016, 0, "TechSourceDBDefaultsBackColor",
     "TechSourceDBDefaultsForeColor"},
    {TechnologySource::User, "User", 16777215, 0, "TechSourceUserBackColor", "TechSourceUserForecolor"},
};

TEST_F(StepLooksTest, EverySourceOfTechnologyHasItsColoursAndItsName) {
    std::vector<std::string> ids;
    for (const SourceCase& each : kSources) {
        ids.push_back(addStep(each.name, 1));
        base.setTechnologySource(ids.back(), each.source);
    }
    start();
    steps.RefreshList("");
    EXPECT_THAT(base.callsOf("technologySources"), ElementsAre("technologySources 6"));
    for (std::size_t i = 0; i < ids.size(); ++i) {
        for (const char* key :
             {"FixedRow", "_Id", "_ProcessId", "_Priority", "_Name", "_NVXCuttingCycleID"}) {
            EXPECT_EQ(lookOf(ids[i], key).back, kSources[i].back) << kSources[i].name << key;
            EXPECT_EQ(lookOf(ids[i], key).fore, kSources[i].fore) << kSources[i].name << key;
        }
        EXPECT_EQ(grid.text(grid.findRow(ids[i]), "FixedRow"), kSources[i].name);
    }
}

TEST_F(StepLooksTest, TheColoursAreThoseOfTheSettings) {
    for (std::size_t i = 0; i < std::size(kSources); ++i) {
        set(kSources[i].backSetting, std::to_string(100 + i));
        set(kSources[i].foreSetting, std::to_string(200 + i));
        const std::string id = addStep(kSources[i].name, 1);
        base.setTechnologySource(id, kSources[i].source);
    }
    start();
    for (std::size_t i = 0; i < std::size(kSources); ++i) {
        const CellStyle look = grid.style(static_cast<int>(i) + 1, 4);
        EXPECT_EQ(look.back, 100 + i) << kSources[i].name;
        EXPECT_EQ(look.fore, 200 + i) << kSources[i].name;
    }
}

TEST_F(StepLooksTest, AnUnreadableColourCountsAsItsDefault) {
    set("TechSourceDBStepBackColor", "red");
    const std::string id = addStep("a", 1);
    start();
    EXPECT_EQ(lookOf(id, "_Name").back, 8421631U);
    EXPECT_FALSE(trace.lines().empty());
}

TEST_F(StepLooksTest, AProcessWithoutStepsHasNoSourcesToAskFor) {
    start();
    steps.RefreshList("");
    EXPECT_THAT(base.calls(), ElementsAre("steps " + process, "cuttingCycles"));
    EXPECT_EQ(grid.colWidth(0), 750);
}

TEST_F(StepLooksTest, ASourceThatNobodyKnowsCountsAsAStepOfTheKnowledgeBase) {
    const std::string id = addStep("a", 1);
    base.setTechnologySource(id, static_cast<TechnologySource>(17));
    start();
    EXPECT_EQ(lookOf(id, "_Name").back, 8421631U);
    EXPECT_EQ(grid.text(1, "FixedRow"), "DB step");
}

TEST_F(StepLooksTest, TheFixedColumnIsAsWideAsItsWidestText) {
    const std::string a = addStep("a", 1);
    const std::string b = addStep("b", 2);
    base.setTechnologySource(a, TechnologySource::File);
    base.setTechnologySource(b, TechnologySource::User);
    start();
    EXPECT_EQ(grid.colWidth(0), 4 * 120 + 180);
    base.setTechnologySource(a, TechnologySource::CalcoraComputed);
    steps.RefreshList("");
    EXPECT_EQ(grid.colWidth(0), 16 * 120 + 180);
    translate("User", "\xE4\xBD\xBF\xE7\x94\xA8\xE8\x80\x85");  // three wide letters
    base.setTechnologySource(a, TechnologySource::User);
    steps.RefreshList("");
    EXPECT_EQ(grid.colWidth(0), 3 * 240 + 180);
}

TEST_F(StepLooksTest, StepsWhoseSourcesCannotBeToldAreListedAllTheSame) {
    addStep("a", 1);
    base.throwOn("technologySources");
    start();
    EXPECT_THAT(names(), ElementsAre("a"));
    EXPECT_EQ(grid.row(), 1);
    EXPECT_TRUE(trace.trapped("cProcessSteps::DecorateRows"));
    EXPECT_FALSE(grid.colComboList(5).empty());
}

}  // namespace
}  // namespace pellmark::test
