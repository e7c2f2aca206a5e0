#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "base/Error.h"
#include "base/Text.h"
#include "refhost/store/CuttingData.h"
#include "refhost/store/SqliteKnowledgeBaseService.h"
#include "refhost/technology/Codes.h"
#include "refhost/technology/OperationEditor.h"
#include "support/TemporaryFolder.h"

namespace norvex {
namespace {

using pellmark::RecordSet;
using testing::ElementsAre;

struct SampleDataTest : testing::Test {
    pellmark::test::TemporaryFolder folder;
    SqliteKnowledgeBaseService service{folder.file("base.nkb")};

    static std::vector<std::string> column(RecordSet& records, const char* name) {
        std::vector<std::string> texts;
        const std::size_t field = records.fieldIndex(name).value();
        for (std::size_t i = 0; i < records.count(); ++i)
            texts.push_back(records.text(i, field));
        return texts;
    }
    std::string processNamed(const std::string& name) {
        auto all = service.processStore().processes("");
        for (std::size_t i = 0; i < all->count(); ++i) {
            if (all->text(i, 1) == name) return all->text(i, 0);
        }
        ADD_FAILURE() << "no process " << name;
        return {};
    }
    std::string valueOf(const std::string& stepId, std::int32_t clCode) {
        auto values = service.stepStore().values(stepId);
        for (std::size_t i = 0; i < values->count(); ++i) {
            if (values->text(i, 0) == std::to_string(clCode)) return values->text(i, 1);
        }
        return {};
    }
    std::vector<std::string> toolDiameters(const std::string& processName) {
        std::vector<std::string> diameters;
        auto steps = service.stepStore().steps(processNamed(processName));
        for (const auto& id : column(*steps, "_Id"))
            diameters.push_back(valueOf(id, code::kToolDiameter));
        return diameters;
    }
};

TEST_F(SampleDataTest, HoldsSixtyProcessesOrMoreInBothUnits) {
    auto all = service.processStore().processes("");
    EXPECT_GE(all->count(), 60U);
    const auto units = column(*all, "_Unit");
    EXPECT_GE(std::count(units.begin(), units.end(), "70"), 20);
    EXPECT_GE(std::count(units.begin(), units.end(), "71"), 20);
}

TEST_F(SampleDataTest, EveryProcessHasItsOwnNameAndADescription) {
    auto all = service.processStore().processes("");
    const auto names = column(*all, "_Name");
    EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), names.size());
    EXPECT_THAT(column(*all, "_Description"), testing::Each(testing::Not("")));
}

TEST_F(SampleDataTest, MetricThreadsAreDrilledAsTheStandardSays) {
    const std::vector<std::pair<std::string, std::string>> drills{
        {"M3", "2.5"},   {"M4", "3.3"},   {"M5", "4.2"}, {"M6", "5"},   {"M8", "6.8"},
        {"M10", "8.5"},  {"M12", "10.2"}, {"M14", "12"}, {"M16", "14"}, {"M18", "15.5"},
        {"M20", "17.5"}, {"M22", "19.5"}, {"M24", "21"}};
    for (const auto& [thread, drill] : drills) {
        const auto diameters = toolDiameters("Tap " + thread);
        ASSERT_EQ(diameters.size(), 4U) << thread;
        EXPECT_EQ(diameters[1], drill) << thread;
        EXPECT_EQ("M" + diameters[3], thread);
    }
}

TEST_F(SampleDataTest, TheSpindleSpeedFollowsFromCuttingSpeedAndDiameter) {
    const auto steps = service.stepStore().steps(processNamed("Tap M8"));
    const std::string drill = steps->text(1, 0);
    EXPECT_EQ(valueOf(drill, code::kCuttingSpeed), "80");
    EXPECT_EQ(valueOf(drill, code::kSpindleSpeed), "3740");  // 80000 / (pi * 6.8)
    const auto inch = service.stepStore().steps(processNamed("Tap 1/4-20 UNC (inch)"));
    EXPECT_EQ(valueOf(inch->text(1, 0), code::kCuttingSpeed), "262");
    EXPECT_EQ(valueOf(inch->text(1, 0), code::kSpindleSpeed), "4990");  // 262.4 * 12 / (pi * 0.201)
}

TEST_F(SampleDataTest, StepsCountUpFromOneAndNameTheirCuttingCycle) {
    auto steps = service.stepStore().steps(processNamed("Tap M8"));
    EXPECT_THAT(column(*steps, "_Priority"), ElementsAre("1", "2", "3", "4"));
    const auto known = column(*service.stepStore().cuttingCycles({6, 8, 4, 101, 104}), "_Id");
    EXPECT_THAT(column(*steps, "_NVXCuttingCycleID"), testing::Each(testing::AnyOfArray(known)));
}

TEST_F(SampleDataTest, EveryCuttingCycleTypeThatIsAskedForHasACycle) {
    for (const int type : {6, 8, 4, 101, 104, 43, 45, 50, 49}) {
        EXPECT_GE(service.stepStore().cuttingCycles({type})->count(), 1U) << type;
    }
}

TEST_F(SampleDataTest, TheSixMaterialClassesComeInTheOrderOfTheStandard) {
    std::string letters;
    for (const auto& name : column(*service.featureCaseStore().materialClasses(), "_Name"))
        letters += name[0];
    EXPECT_EQ(letters, "PMKNSH");
    EXPECT_GE(service.materialStore().materials()->count(), 30U);
}

TEST_F(SampleDataTest, AThreadedHoleFindsItsProcessExactly) {
    auto& cases = service.featureCaseStore();
    auto types = cases.featureTypes(2, "", pellmark::unit::kMetric);
    ASSERT_EQ(types->count(), 1U);
    const std::string type = types->text(0, 0);
    auto values = cases.values(type);
    pellmark::FeatureCaseDescription description;
    description.featureTypeId = type;
    for (std::size_t i = 0; i < values->count(); ++i) {
        if (values->text(i, 1) == "M8" || values->text(i, 1) == "Blind") {
            description.valueIds.push_back(values->text(i, 0));
        }
    }
    ASSERT_EQ(description.valueIds.size(), 2U);
    const auto nodes = cases.processesOfValues(description, 0);
    const auto exact =
        std::count_if(nodes.begin(), nodes.end(), [](const auto& node) { return node.ExactMatch; });
    EXPECT_EQ(exact, 1);
    EXPECT_GT(nodes.size(), 10U) << "the other threads of blind holes and M8 in through holes match partly";
    EXPECT_EQ(std::count_if(nodes.begin(), nodes.end(),
                            [](const auto& node) { return node.ExactMatch && node.Name == "Tap M8"; }),
              1);
}

TEST_F(SampleDataTest, SomeProcessesAreOrphansAndSomeProtected) {
    EXPECT_EQ(service.processStore().orphanProcesses()->count(), 5U);
    EXPECT_FALSE(service.processStore().deleteProcess(processNamed("Face mill, steel")));
    EXPECT_TRUE(service.processStore().deleteProcess(processNamed("Face mill, titanium")));
}

TEST_F(SampleDataTest, TheThreeUsersDifferInTheirRights) {
    auto& rights = service.userRights();
    EXPECT_THAT(rights.users(), ElementsAre("Administrator", "Operator", "Programmer"));
    const auto allowed = [&] {
        std::string codes;
        for (const int operation : {1, 2, 3})
            codes += rights.may(operation) ? std::to_string(operation) : "-";
        return codes;
    };
    EXPECT_EQ(allowed(), "123");
    rights.setCurrentUser("programmer");
    EXPECT_EQ(rights.currentUser(), "Programmer");
    EXPECT_EQ(allowed(), "12-");
    rights.setCurrentUser("Operator");
    EXPECT_EQ(allowed(), "---");
    EXPECT_THROW(rights.setCurrentUser("Nobody"), pellmark::Error);
    EXPECT_EQ(rights.currentUser(), "Operator");
}

TEST_F(SampleDataTest, TheStepsOfABearingSeatComeFromEverywhere) {
    auto steps = service.stepStore().steps(processNamed("Bearing seat H6 12 - 25 mm"));
    using Source = pellmark::TechnologySource;
    EXPECT_THAT(service.stepStore().technologySources(column(*steps, "_Id")),
                ElementsAre(Source::DbDefaults, Source::SfdbCalculated, Source::DbStep,
                            Source::CalcoraComputed, Source::File, Source::User));
}

TEST_F(SampleDataTest, EveryValueOfEveryStepBelongsToItsCuttingCycle) {
    auto all = service.processStore().processes("");
    for (const auto& process : column(*all, "_Id")) {
        auto steps = service.stepStore().steps(process);
        for (std::size_t i = 0; i < steps->count(); ++i) {
            const auto cycle = static_cast<std::int16_t>(std::stoi(steps->text(i, 4)));
            const auto operation = Operation::withDefaults(cycle, pellmark::unit::kMetric);
            for (const auto& code : column(*service.stepStore().values(steps->text(i, 0)), "_CLFileCode")) {
                EXPECT_NE(operation.find(std::stoi(code)), nullptr)
                    << code << " of " << steps->text(i, 3) << " in cycle " << cycle;
            }
        }
    }
}

TEST_F(SampleDataTest, EveryStepIsOneThatItsEditorAccepts) {
    auto all = service.processStore().processes("");
    for (std::size_t process = 0; process < all->count(); ++process) {
        const auto unitCode = static_cast<std::int16_t>(std::stoi(all->text(process, 2)));
        auto steps = service.stepStore().steps(all->text(process, 0));
        for (std::size_t i = 0; i < steps->count(); ++i) {
            const auto cycle = static_cast<std::int16_t>(std::stoi(steps->text(i, 4)));
            auto operation = Operation::withDefaults(cycle, unitCode);
            auto values = service.stepStore().values(steps->text(i, 0));
            for (std::size_t value = 0; value < values->count(); ++value)
                operation.set(std::stoi(values->text(value, 0)), values->text(value, 1), Origin::Given);
            const auto problem = OperationEditor(operation, {}).problem();
            EXPECT_FALSE(problem.has_value())
                << all->text(process, 1) << ", " << steps->text(i, 3) << ": " << problem->reason;
        }
    }
}

TEST_F(SampleDataTest, TheTableOfSpeedsAndFeedsCoversEveryMaterialAndKindOfWork) {
    const CuttingTable table = readCuttingData(service.base()->connection());
    const auto classes = table.classes();
    ASSERT_EQ(classes.size(), 6U);
    EXPECT_EQ(classes[0], (std::pair<char, std::string>('P', "steel")));
    for (const auto& [letter, name] : classes) {
        for (const Work work : {Work::Drill, Work::Ream, Work::Tap, Work::FaceMill, Work::Mill, Work::Turn})
            EXPECT_NE(table.find(letter, work), nullptr) << name;
    }
    const CuttingRow* row = table.find('N', Work::Mill);
    EXPECT_EQ(row->speed, 400);
    EXPECT_EQ(row->feed, 0.008);
    EXPECT_TRUE(row->ofDiameter);
}

TEST_F(SampleDataTest, NumbersAreWrittenWithADecimalPoint) {
    auto steps = service.stepStore().steps(processNamed("Tap M3"));
    for (const auto& id : column(*steps, "_Id")) {
        for (const std::int32_t clCode : {code::kToolDiameter, code::kFeedPerRevolution}) {
            EXPECT_EQ(valueOf(id, clCode).find(','), std::string::npos);
        }
    }
}

}  // namespace
}  // namespace norvex
