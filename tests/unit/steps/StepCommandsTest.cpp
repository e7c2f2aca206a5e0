#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "steps/FrmAddEditProcessTechStep.h"
#include "steps/cProcessSteps.h"
#include "support/StepsHarness.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::UnorderedElementsAre;

constexpr const char* kGone = "The process step does not exist any more. Somebody else has deleted it.";

class StepCommandsTest : public testing::Test, protected StepsHarness {
  protected:
    StepCommandsTest() {
        process = base.addProcess("A");
        for (const char* name : {"a", "b", "c", "d"})
            ids.push_back(base.addStep(process, name, static_cast<std::int16_t>(ids.size() + 1), 602));
        start();
    }
    void storeValue(std::int32_t code, const std::string& value) {
        base.tables().requireStep(ids[0]).values[code] = value;
    }

    std::string process;
    std::vector<std::string> ids;
};

// --- keys -------------------------------------------------------------------------------------------------

TEST_F(StepCommandsTest, EnterAndF2OpenTheWizard) {
    technology.wizard = [](FakeTechnology&) { return false; };
    for (const int code : {KeyPress::kEnter, KeyPress::kF2}) {
        technology.calls.clear();
        KeyPress key{code};
        grid.keyPressed.raise(key);
        EXPECT_TRUE(key.handled);
        EXPECT_THAT(technology.calls, testing::Contains(testing::StartsWith("runStepWizard"))) << code;
    }
}

TEST_F(StepCommandsTest, AKeyThatSomebodyElseHasHandledDoesNothing) {
    KeyPress key{KeyPress::kDelete};
    key.handled = true;
    grid.keyPressed.raise(key);
    EXPECT_THAT(base.calls(), IsEmpty());
}

TEST_F(StepCommandsTest, OtherKeysDoNothing) {
    for (const int code : {8, 27, 32, 65, 0x73}) {
        KeyPress key;
        key.keyCode = code;
        grid.keyPressed.raise(key);
        EXPECT_FALSE(key.handled) << code;
    }
    EXPECT_THAT(base.calls(), IsEmpty());
}

// --- adding -----------------------------------------------------------------------------------------------

TEST_F(StepCommandsTest, AddingOpensTheDialogAndShowsTheNewStep) {
    technology.setDefaults(FakeTechnology(602, "New one").add(1, 2.5, TechnologyParameter::kKindKept));
    technology.editor = [](FakeTechnology&) { return TechnologyService::kAccepted; };
    std::vector<std::string> told;
    const Subscription heard =
        steps.processStepsStored.subscribe([&](const std::string& id) { told.push_back(id); });
    desktop.expectDialog("frmAddEditProcessTechStep",
                         [](Form& shown) { dynamic_cast<frmAddEditProcessTechStep&>(shown).CmdOk.click(); });
    steps.AddNewWizard();
    EXPECT_THAT(names(), ElementsAre("New one", "a", "b", "c", "d"));
    EXPECT_EQ(steps.SelectedStepID(), grid.rowData(1));
    EXPECT_THAT(told, ElementsAre(process));
    EXPECT_THAT(desktop.windows(),
                testing::Contains("modal frmAddEditProcessTechStep " + std::to_string(form.handle())));
    EXPECT_THAT(trace.lines(), IsEmpty());
}

TEST_F(StepCommandsTest, ACancelledDialogLeavesTheStepsAndTheirSelection) {
    grid.select(3, 4);
    desktop.expectDialog("frmAddEditProcessTechStep", [this](Form& shown) {
        base.setTechnologySource(ids[0], TechnologySource::User);
        shown.close();
    });
    steps.AddNewWizard();
    EXPECT_EQ(steps.SelectedStepID(), ids[2]);
    EXPECT_EQ(grid.text(1, "FixedRow"), "User");
    EXPECT_THAT(base.callsOf("steps"), IsEmpty());
}

TEST_F(StepCommandsTest, AStepIsAddedToTheProcessWhoseIdTheListShowsInItsCurrentRow) {
    const std::string other = base.addProcess("B");
    listProcesses();
    processGrid.select(1, 1);
    processGrid.setText(1, field::kId, other);
    technology.editor = [](FakeTechnology&) { return TechnologyService::kAccepted; };
    desktop.expectDialog("frmAddEditProcessTechStep",
                         [](Form& shown) { dynamic_cast<frmAddEditProcessTechStep&>(shown).CmdOk.click(); });
    steps.AddNewWizard();
    EXPECT_EQ(base.tables().steps.back().record.processId, other);
}

TEST_F(StepCommandsTest, WithoutTheRightOrAProcessNoStepIsAdded) {
    base.allowed.erase(PermissionAdd);
    desktop.expectMessage("You do not have permission to add new objects to the database!");
    steps.AddNewWizard();
    base.allowed.insert(PermissionAdd);
    processGrid.bind(nullptr);
    steps.AddNewWizard();
    EXPECT_THAT(changes(), IsEmpty());
}

// --- the wizard -------------------------------------------------------------------------------------------

TEST_F(StepCommandsTest, TheWizardGetsTheStoredValuesByTheirCodes) {
    technology.setDefaults(FakeTechnology(602, "\"Default\"")
                               .add(10, 1.0)
                               .add(11, std::string("text"))
                               .add(12, Variant{})
                               .add(432, 1.0)
                               .add(1764, 1.0)
                               .add(1767, Variant{})
                               .add(13, 4.0));
    for (const auto& [code, value] : std::vector<std::pair<int, std::string>>{{10, "2.5"},
                                                                              {11, "\"M\"8"},
                                                                              {12, "0,5"},
                                                                              {432, "1\"2"},
                                                                              {1764, "007"},
                                                                              {1767, "3"},
                                                                              {99, "not in this cycle"}})
        storeValue(code, value);
    base.stepStore().updateStep({ids[0], "say \"a\"", process, 1, 602});
    bool seen = false;
    technology.wizard = [&](FakeTechnology& shown) {
        EXPECT_EQ(shown.operationName(), "say a");
        EXPECT_EQ(shown.parameterOf(10)->value(), Variant(2.5));
        EXPECT_EQ(shown.parameterOf(11)->value(), Variant(std::string("M8")));
        EXPECT_EQ(shown.parameterOf(12)->value(), Variant(0.5));
        EXPECT_EQ(shown.parameterOf(432)->value(), Variant(std::string("12")));
        EXPECT_EQ(shown.parameterOf(1764)->value(), Variant(std::string("007")));
        EXPECT_EQ(shown.parameterOf(1767)->value(), Variant(std::string("3")));
        EXPECT_EQ(shown.parameterOf(13)->value(), Variant(4.0));
        seen = true;
        return true;
    };
    base.forgetCalls();
    grid.doubleClicked.raise(1);
    EXPECT_TRUE(seen);
    EXPECT_THAT(technology.calls,
                ElementsAre("create 602 " + process, "runStepWizard " + std::to_string(form.handle())));
    EXPECT_THAT(changes(), IsEmpty()) << "nothing was changed in the wizard";
    EXPECT_THAT(trace.lines(), IsEmpty());
}

TEST_F(StepCommandsTest, WhatWasChangedIsStoredAndNothingElse) {
    technology.setDefaults(FakeTechnology(602)
                               .add(10, 1.0)
                               .add(11, std::string("text"))
                               .add(12, Variant{})
                               .add(13, 4.0)
                               .add(14, 5.0)
                               .add(15, Variant{}));
    storeValue(10, "2,500");
    storeValue(11, "\"quoted\"");
    storeValue(14, "6");
    storeValue(99, "not in this cycle");
    technology.wizard = [](FakeTechnology& shown) {
        shown.parameterOf(12)->type(std::string("new"));
        shown.parameterOf(13)->type(4.25);
        shown.parameterOf(14)->type(Variant{});
        return true;
    };
    steps.Editwizard();
    EXPECT_THAT(valuesOf(ids[0]),
                UnorderedElementsAre(Pair(10, "2,500"), Pair(11, "\"quoted\""), Pair(12, "new"),
                                     Pair(13, "4.25"), Pair(99, "not in this cycle")));
    EXPECT_THAT(changes(), ElementsAre("setStepValue " + ids[0] + " 12", "setStepValue " + ids[0] + " 13",
                                       "deleteStepValue " + ids[0] + " 14"));
    EXPECT_EQ(technology.calls.back(), "stored " + ids[0]);
    EXPECT_EQ(base.calls().back(), "technologySources 4");
    EXPECT_THAT(trace.lines(), IsEmpty());
}

TEST_F(StepCommandsTest, ACancelledWizardChangesNothing) {
    technology.setDefaults(FakeTechnology(602).add(10, 1.0));
    technology.wizard = [](FakeTechnology& shown) {
        shown.parameterOf(10)->type(9.0);
        shown.setOperationName("other");
        return false;
    };
    steps.Editwizard();
    EXPECT_THAT(changes(), IsEmpty());
    EXPECT_EQ(names()[0], "a");
}

TEST_F(StepCommandsTest, AChangedOperationNameRenamesTheStepAndNothingElseOfIt) {
    technology.wizard = [this](FakeTechnology& shown) {
        base.tables().requireStep(ids[0]).record.priority = 9;  // by somebody else
        shown.setOperationName("\"Drill deep\"");
        return true;
    };
    steps.Editwizard();
    EXPECT_EQ(base.tables().requireStep(ids[0]).record,
              (ProcessStepRecord{ids[0], "Drill deep", process, 9, 602}));
    EXPECT_EQ(grid.text(1, field::kName), "Drill deep");
    EXPECT_EQ(grid.text(1, field::kPriority), "9");
    EXPECT_THAT(technology.calls, testing::Not(testing::Contains("stored " + ids[0])));
}

TEST_F(StepCommandsTest, AFailingWizardIsToldAndChangesNothing) {
    technology.throwOn("runStepWizard", errors::kHostInterface, "The wizard broke.");
    desktop.expectMessage("The wizard broke.");
    steps.Editwizard();
    EXPECT_THAT(changes(), IsEmpty());
    EXPECT_TRUE(trace.trapped("cProcessSteps::Editwizard"));
}

TEST_F(StepCommandsTest, AStepThatIsGoneIsSaidAndItsRowGoes) {
    base.stepStore().deleteStep(ids[0]);
    desktop.expectMessage(kGone);
    steps.Editwizard();
    EXPECT_THAT(names(), ElementsAre("b", "c", "d"));
    EXPECT_THAT(technology.calls, IsEmpty());
}

TEST_F(StepCommandsTest, AStepDeletedWhileTheWizardIsOpenIsSaidAndItsRowGoes) {
    technology.setDefaults(FakeTechnology(602).add(10, 1.0));
    technology.wizard = [this](FakeTechnology& shown) {
        base.stepStore().deleteStep(ids[0]);
        steps.UpdateFromDb(ids[1]);  // the host may call back
        shown.parameterOf(10)->type(9.0);
        return true;
    };
    desktop.expectMessage(kGone);
    steps.Editwizard();
    EXPECT_THAT(names(), ElementsAre("b", "c", "d"));
}

TEST_F(StepCommandsTest, ARefusedValueIsToldAndTheStepStays) {
    technology.setDefaults(FakeTechnology(602).add(10, 1.0));
    technology.wizard = [](FakeTechnology& shown) {
        shown.parameterOf(10)->type(9.0);
        return true;
    };
    base.throwOn("setStepValue", errors::kNotFound, "There is no such thing.");
    desktop.expectMessage("There is no such thing.");
    steps.Editwizard();
    EXPECT_EQ(grid.dataRows(), 4);
}

TEST_F(StepCommandsTest, AHostThatCannotNoteASourceIsTracedAlone) {
    technology.setDefaults(FakeTechnology(602).add(10, 1.0));
    technology.wizard = [](FakeTechnology& shown) {
        shown.parameterOf(10)->type(9.0);
        return true;
    };
    technology.throwOn("stored");
    steps.Editwizard();
    EXPECT_EQ(valuesOf(ids[0])[10], "9");
    EXPECT_TRUE(trace.trapped("cProcessSteps::Editwizard"));
}

TEST_F(StepCommandsTest, WithoutTheRightOrAStepNoWizardOpens) {
    base.allowed.erase(PermissionEdit);
    desktop.expectMessage("You do not have permission to edit objects in the database!");
    steps.Editwizard();
    base.allowed.insert(PermissionEdit);
    grid.doubleClicked.raise(0);
    grid.doubleClicked.raise(-1);
    grid.bind(nullptr);
    steps.Editwizard();
    EXPECT_THAT(technology.calls, IsEmpty());
}

}  // namespace
}  // namespace pellmark::test
