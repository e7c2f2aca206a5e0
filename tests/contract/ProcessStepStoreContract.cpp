#include "contract/KnowledgeBaseFixture.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class ProcessStepStoreContract : public KnowledgeBaseContract {};

// --- steps ------------------------------------------------------------------------------------------------

TEST_P(ProcessStepStoreContract, AnAddedStepIsReadBackWhole) {
    const std::string process = addProcess("A");
    ProcessStepRecord record{"", "Drill", process, 3, 104};
    record.id = steps.addStep(record);
    EXPECT_EQ(steps.step(record.id), record);
    auto list = steps.steps(process);
    EXPECT_THAT(list->fields(), ElementsAre("_Id", "_ProcessId", "_Priority", "_Name", "_NVXCuttingCycleID"));
    EXPECT_THAT(rowsOf(*list), ElementsAre(ElementsAre(record.id, process, "3", "Drill", "104")));
    ASSERT_TRUE(list->keys().has_value());
    EXPECT_EQ(list->keys()->at(0).text(), record.id);
}

TEST_P(ProcessStepStoreContract, StepsComeByPriorityAndEqualOnesAsAdded) {
    const std::string process = addProcess("A");
    for (const auto& [name, priority] : std::vector<std::pair<std::string, std::int16_t>>{
             {"c", 10}, {"a", 2}, {"d", 10}, {"z", -1}, {"b", 2}}) {
        addStep(process, name, priority);
    }
    EXPECT_THAT(column(*steps.steps(process), "_Name"), ElementsAre("z", "a", "b", "c", "d"));
}

TEST_P(ProcessStepStoreContract, NoProcessHasNoSteps) {
    addStep(addProcess("A"), "Drill", 1);
    EXPECT_EQ(steps.steps("")->count(), 0U);
    EXPECT_EQ(steps.steps(kUnknownId)->count(), 0U);
    EXPECT_EQ(steps.steps(addProcess("B"))->count(), 0U);
}

TEST_P(ProcessStepStoreContract, AStepIsChangedInEveryFieldItsProcessIncluded) {
    const std::string from = addProcess("A");
    const std::string to = addProcess("B");
    const std::string id = addStep(from, "Drill", 1);
    const ProcessStepRecord changed{id, "Ream", to, -5, 45};
    steps.updateStep(changed);
    EXPECT_EQ(steps.step(id), changed);
    EXPECT_EQ(steps.steps(from)->count(), 0U);
    EXPECT_EQ(steps.steps(to)->count(), 1U);
}

TEST_P(ProcessStepStoreContract, StepsOfTheUnknownFail) {
    const std::string process = addProcess("A");
    const std::string id = addStep(process, "Drill", 1);
    EXPECT_EQ(thrownBy([&] { steps.step(kUnknownId); }).number, errors::kNotFound);
    EXPECT_EQ(thrownBy([&] { addStep(kUnknownId, "x", 1); }).number, errors::kNotFound);
    EXPECT_EQ(thrownBy([&] { addStep("", "x", 1); }).number, errors::kNotFound);
    EXPECT_EQ(thrownBy([&] {
                  steps.updateStep({kUnknownId, "x", process, 1, 1});
              }).number,
              errors::kNotFound);
    EXPECT_EQ(thrownBy([&] { steps.updateStep({id, "x", kUnknownId, 1, 1}); }).number, errors::kNotFound);
    EXPECT_EQ(steps.step(id).name, "Drill");
}

TEST_P(ProcessStepStoreContract, TheNameOfAStepHasALimitToo) {
    const std::string process = addProcess("A");
    const std::string id = addStep(process, repeated("n", 500), 1);
    EXPECT_EQ(thrownBy([&] { addStep(process, repeated("n", 501), 1); }).number, errors::kValueTooLong);
    EXPECT_EQ(thrownBy([&] {
                  steps.updateStep({id, repeated("n", 501), process, 1, 1});
              }).number,
              errors::kValueTooLong);
    EXPECT_EQ(steps.steps(process)->count(), 1U);
}

TEST_P(ProcessStepStoreContract, ADeletedStepTakesItsValuesAndIsGone) {
    const std::string process = addProcess("A");
    const std::string id = addStep(process, "Drill", 1);
    const std::string kept = addStep(process, "Ream", 2);
    steps.addValue({id, 5, "x"});
    EXPECT_TRUE(steps.deleteStep(id));
    EXPECT_FALSE(steps.deleteStep(id));
    EXPECT_FALSE(steps.deleteStep("nonsense"));
    EXPECT_EQ(steps.values(id)->count(), 0U);
    EXPECT_THAT(column(*steps.steps(process), "_Id"), ElementsAre(kept));
}

TEST_P(ProcessStepStoreContract, TheNextPriorityIsOneMoreThanTheHighest) {
    const std::string process = addProcess("A");
    EXPECT_EQ(steps.nextPriority(process), 1);
    EXPECT_EQ(steps.nextPriority(kUnknownId), 1);
    addStep(process, "a", 7);
    addStep(process, "b", 3);
    addStep(addProcess("B"), "c", 50);
    EXPECT_EQ(steps.nextPriority(process), 8);
    addStep(process, "d", 32767);
    EXPECT_EQ(steps.nextPriority(process), 32767);
}

TEST_P(ProcessStepStoreContract, ValuesComeByCodeAndKeepAnyText) {
    const std::string id = addStep(addProcess("A"), "Drill", 1);
    std::int32_t code = 2147483647;
    for (const std::string& text : kNastyTexts)
        steps.addValue({id, code--, text});
    steps.addValue({id, -3, repeated("long ", 2000)});
    steps.addValue({id, 432, "0.25"});
    auto values = steps.values(id);
    EXPECT_THAT(values->fields(), ElementsAre("_CLFileCode", "_Value"));
    const Rows rows = rowsOf(*values);
    ASSERT_THAT(rows, SizeIs(kNastyTexts.size() + 2));
    EXPECT_THAT(rows[0], ElementsAre("-3", repeated("long ", 2000)));
    EXPECT_THAT(rows[1], ElementsAre("432", "0.25"));
    EXPECT_THAT(rows.back(), ElementsAre("2147483647", kNastyTexts.front()));
    for (std::size_t i = 0; i < kNastyTexts.size(); ++i)
        EXPECT_EQ(rows[rows.size() - 1 - i][1], kNastyTexts[i]);
}

TEST_P(ProcessStepStoreContract, ASecondValueWithTheSameCodeIsRefused) {
    const std::string process = addProcess("A");
    const std::string id = addStep(process, "Drill", 1);
    const std::string other = addStep(process, "Ream", 2);
    steps.addValue({id, 432, "first"});
    EXPECT_EQ(thrownBy([&] { steps.addValue({id, 432, "second"}); }).number, errors::kNotUnique);
    steps.addValue({other, 432, "its own"});
    EXPECT_THAT(rowsOf(*steps.values(id)), ElementsAre(ElementsAre("432", "first")));
}

TEST_P(ProcessStepStoreContract, AValueIsChangedInPlace) {
    const std::string id = addStep(addProcess("A"), "Drill", 1);
    steps.addValue({id, 432, "first"});
    steps.updateValue({id, 432, "second"});
    EXPECT_THAT(rowsOf(*steps.values(id)), ElementsAre(ElementsAre("432", "second")));
    EXPECT_EQ(thrownBy([&] { steps.updateValue({id, 433, "x"}); }).number, errors::kNotFound);
    EXPECT_EQ(thrownBy([&] { steps.updateValue({kUnknownId, 432, "x"}); }).number, errors::kNotFound);
    EXPECT_EQ(thrownBy([&] { steps.addValue({kUnknownId, 432, "x"}); }).number, errors::kNotFound);
}

TEST_P(ProcessStepStoreContract, ASetValueIsAddedOrChanged) {
    const std::string id = addStep(addProcess("A"), "Drill", 1);
    steps.addValue({id, 7, "seven"});
    steps.setValue({id, 432, "first"});
    EXPECT_THAT(rowsOf(*steps.values(id)),
                ElementsAre(ElementsAre("7", "seven"), ElementsAre("432", "first")));
    for (const std::string& text : kNastyTexts) {
        steps.setValue({id, 432, text});
        EXPECT_THAT(rowsOf(*steps.values(id)),
                    ElementsAre(ElementsAre("7", "seven"), ElementsAre("432", text)));
    }
    EXPECT_EQ(thrownBy([&] { steps.setValue({kUnknownId, 432, "x"}); }).number, errors::kNotFound);
    EXPECT_EQ(thrownBy([&] { steps.setValue({"", 432, "x"}); }).number, errors::kNotFound);
}

TEST_P(ProcessStepStoreContract, ADeletedValueIsGoneAndAnAbsentOneIsHarmless) {
    const std::string process = addProcess("A");
    const std::string id = addStep(process, "Drill", 1);
    const std::string other = addStep(process, "Ream", 2);
    steps.addValue({id, 5, "five"});
    steps.addValue({id, 6, "six"});
    steps.addValue({other, 5, "its own"});
    steps.deleteValue(id, 5);
    steps.deleteValue(id, 5);
    steps.deleteValue(id, -1);
    steps.deleteValue(kUnknownId, 6);
    steps.deleteValue("nonsense", 6);
    EXPECT_THAT(rowsOf(*steps.values(id)), ElementsAre(ElementsAre("6", "six")));
    EXPECT_THAT(rowsOf(*steps.values(other)), ElementsAre(ElementsAre("5", "its own")));
    steps.addValue({id, 5, "again"});
    EXPECT_EQ(steps.values(id)->count(), 2U);
}

TEST_P(ProcessStepStoreContract, TheSourcesOfManyStepsComeInTheOrderAsked) {
    const std::vector<TechnologySource> all{
        TechnologySource::CalcoraComputed, TechnologySource::SfdbCalculated, TechnologySource::File,
        TechnologySource::DbStep,          TechnologySource::DbDefaults,     TechnologySource::User};
    const std::string process = addProcess("A");
    std::vector<std::string> ids;
    for (const TechnologySource source : all) {
        ids.insert(ids.begin(), addStep(process, "Drill", 1));
        subject->setTechnologySource(ids.front(), source);
    }
    EXPECT_EQ(steps.technologySources(ids), std::vector<TechnologySource>(all.rbegin(), all.rend()));
    EXPECT_THAT(steps.technologySources({}), IsEmpty());
}

TEST_P(ProcessStepStoreContract, AStepOfWhichNothingIsKnownCountsAsStoredWithTheStep) {
    const std::string id = addStep(addProcess("A"), "Drill", 1);
    const std::string known = addStep(addProcess("B"), "Ream", 1);
    subject->setTechnologySource(known, TechnologySource::User);
    EXPECT_THAT(steps.technologySources({id, kUnknownId, known, "", known}),
                ElementsAre(TechnologySource::DbStep, TechnologySource::DbStep, TechnologySource::User,
                            TechnologySource::DbStep, TechnologySource::User));
}

TEST_P(ProcessStepStoreContract, ChangingAStepInPlaceLeavesItsSource) {
    const std::string process = addProcess("A");
    const std::string id = addStep(process, "Drill", 1);
    subject->setTechnologySource(id, TechnologySource::File);
    steps.updateStep({id, "Ream", process, 2, 45});
    steps.setValue({id, 5, "x"});
    EXPECT_THAT(steps.technologySources({id}), ElementsAre(TechnologySource::File));
}

TEST_P(ProcessStepStoreContract, TheSourcesOfThousandsOfStepsAreOneCall) {
    const std::string process = addProcess("A");
    const std::string id = addStep(process, "Drill", 1);
    subject->setTechnologySource(id, TechnologySource::DbDefaults);
    const std::vector<std::string> ids(5000, id);
    EXPECT_EQ(steps.technologySources(ids),
              std::vector<TechnologySource>(5000, TechnologySource::DbDefaults));
}

TEST_P(ProcessStepStoreContract, CuttingCyclesComeInTheOrderOfTheTypesAskedFor) {
    subject->addCuttingCycle(11, "Drill", 6);
    subject->addCuttingCycle(30, "Tap", 101);
    subject->addCuttingCycle(12, "Ream", 8);
    subject->addCuttingCycle(10, "Peck", 6);
    const auto names = [&](const std::vector<int>& types) {
        return column(*steps.cuttingCycles(types), "_Name");
    };
    EXPECT_THAT(names({8, 6}), ElementsAre("Ream", "Peck", "Drill"));
    EXPECT_THAT(names({6, 43, 8}), ElementsAre("Peck", "Drill", "Ream"));
    EXPECT_THAT(names({}), IsEmpty());
    EXPECT_THAT(rowsOf(*steps.cuttingCycles({101})), ElementsAre(ElementsAre("30", "Tap")));
}

FOR_EVERY_KNOWLEDGE_BASE(ProcessStepStoreContract);

}  // namespace
}  // namespace pellmark::test
