#include "steps/StepEdits.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/StepsHarness.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kGone = "The process step does not exist any more. Somebody else has deleted it.";
constexpr const char* kBadPriority = "The priority must be a whole number from 0 to 32767";

TEST(PriorityFromTest, APriorityIsAWholeNumberWithinItsRange) {
    EXPECT_EQ(priorityFrom("0"), 0);
    EXPECT_EQ(priorityFrom("32767"), 32767);
    EXPECT_EQ(priorityFrom(" 007\t"), 7);
    for (const char* text :
         {"", " ", "-1", "-0", "32768", "99999999999", "1.5", "1,5", "x", "1x", "+1", "1 2"})
        EXPECT_EQ(priorityFrom(text), std::nullopt) << text;
}

class StepEditsTest : public testing::Test, protected StepsHarness {
  protected:
    StepEditsTest() {
        process = base.addProcess("A");
        first = base.addStep(process, "Drill", 1, 602);
        second = base.addStep(process, "Tap", 2, 402);
        start();
    }
    bool edit(int row, const char* key, const std::string& value) {
        const int col = grid.colIndex(key);
        return grid.beginEdit(row, col) && grid.commitEdit(value);
    }
    ProcessStepRecord stored(const std::string& id) { return base.tables().requireStep(id).record; }

    std::string process, first, second;
};

TEST_F(StepEditsTest, EveryEditIsWrittenAtOnceAndNothingIsReadAfterIt) {
    EXPECT_TRUE(edit(2, field::kName, "Tap M8"));
    EXPECT_EQ(stored(second), (ProcessStepRecord{second, "Tap M8", process, 2, 402}));
    EXPECT_TRUE(edit(2, field::kPriority, " 040 "));
    EXPECT_TRUE(edit(2, field::kCuttingCycleId, "1012"));
    EXPECT_EQ(stored(second), (ProcessStepRecord{second, "Tap M8", process, 40, 1012}));
    EXPECT_EQ(grid.text(2, field::kPriority), "40");
    EXPECT_EQ(grid.displayText(2, grid.colIndex(field::kCuttingCycleId)), "Milling");
    const std::vector<std::string> each{"may 1", "step " + second, "updateStep " + second};
    std::vector<std::string> calls;
    for (int edits = 0; edits < 3; ++edits)
        calls.insert(calls.end(), each.begin(), each.end());
    EXPECT_EQ(base.calls(), calls);
    EXPECT_EQ(stored(first), (ProcessStepRecord{first, "Drill", process, 1, 602}));
    EXPECT_THAT(trace.lines(), IsEmpty());
}

TEST_F(StepEditsTest, WhichStepARowStandsForIsNotReadFromItsCell) {
    grid.setText(2, field::kId, first);
    EXPECT_TRUE(edit(2, field::kName, "Tap M8"));
    EXPECT_EQ(stored(second).name, "Tap M8");
    EXPECT_EQ(stored(first).name, "Drill");
}

TEST_F(StepEditsTest, TheProcessOfAStepIsThatOfItsCell) {
    const std::string other = base.addProcess("B");
    ASSERT_TRUE(grid.beginEdit(1, grid.colIndex(field::kName)));
    grid.setText(1, field::kProcessId, other);
    EXPECT_TRUE(grid.commitEdit("Drill deep"));
    EXPECT_EQ(stored(first), (ProcessStepRecord{first, "Drill deep", other, 1, 602}));
}

TEST_F(StepEditsTest, IdsCannotBeEdited) {
    EXPECT_FALSE(edit(1, field::kId, "x"));
    EXPECT_FALSE(edit(1, field::kProcessId, "x"));
    EXPECT_FALSE(edit(1, "FixedRow", "x"));
}

TEST_F(StepEditsTest, WithoutTheRightToEditNoEditBegins) {
    base.allowed.erase(PermissionEdit);
    desktop.expectMessage("You do not have permission to edit objects in the database!");
    EXPECT_FALSE(grid.beginEdit(1, grid.colIndex(field::kName)));
    EXPECT_FALSE(grid.isEditing());
}

TEST_F(StepEditsTest, NoEditBeginsWhenTheRightsCannotBeAskedFor) {
    base.throwOn("may");
    desktop.expectMessage("The knowledge base failed on purpose.");
    EXPECT_FALSE(grid.beginEdit(1, grid.colIndex(field::kName)));
    EXPECT_TRUE(trace.trapped("cProcessSteps::BeforeEdit"));
}

TEST_F(StepEditsTest, AnImpossiblePriorityIsRefusedAndTheEditingGoesOn) {
    ASSERT_TRUE(grid.beginEdit(1, grid.colIndex(field::kPriority)));
    for (const char* value : {"soon", "-1", "32768", ""}) {
        desktop.expectMessage(kBadPriority);
        EXPECT_FALSE(grid.commitEdit(value)) << value;
        EXPECT_TRUE(grid.isEditing());
        EXPECT_EQ(grid.text(1, field::kPriority), "1");
    }
    EXPECT_EQ(desktop.messages().back().icon, MessageIcon::Information);
    EXPECT_EQ(desktop.messages().back().title, "The title");
    EXPECT_THAT(changes(), IsEmpty());
    EXPECT_TRUE(grid.commitEdit("12"));
    EXPECT_EQ(stored(first).priority, 12);
}

TEST_F(StepEditsTest, ABlankNameIsRefusedAndTheEditingGoesOn) {
    ASSERT_TRUE(grid.beginEdit(1, grid.colIndex(field::kName)));
    for (const char* value : {"", " \t"}) {
        desktop.expectMessage("Name cannot be blank");
        EXPECT_FALSE(grid.commitEdit(value));
        EXPECT_TRUE(grid.isEditing());
    }
    EXPECT_THAT(changes(), IsEmpty());
    EXPECT_TRUE(grid.commitEdit("Deburr"));
    EXPECT_EQ(stored(first).name, "Deburr");
}

/// The message box takes the keyboard away from the cell, which then offers its value a second time.
TEST_F(StepEditsTest, ARefusalIsToldOnceAlsoWhenItTakesTheKeyboardAway) {
    class NosyDesktop : public Desktop {
      public:
        NosyDesktop(const Operations& operations, Grid& grid) : Desktop(operations), grid_(grid) {}
        MessageAnswer showMessage(const MessageBox&) override {
            ++boxes;
            EXPECT_FALSE(grid_.commitEdit("-3"));
            return MessageAnswer::Ok;
        }
        std::unique_ptr<FormPeer> createPeer(Form&) override { return nullptr; }
        int boxes = 0;

      private:
        Grid& grid_;
    };
    Grid other(form, "other");
    NosyDesktop nosy(operations, other);
    StepServices services = this->services();
    const UserInterface watched{nosy, texts, help, layouts};
    const StepServices mine{watched,           services.rights,  services.knowledgeBase, services.technology,
                            services.settings, services.gridOps, services.dialogs,       services.fileIO,
                            services.files,    services.idle};
    cProcessSteps list(mine, &processGrid);
    list.Init(other);
    ASSERT_TRUE(other.beginEdit(1, other.colIndex(field::kPriority)));
    EXPECT_FALSE(other.commitEdit("-3"));
    EXPECT_EQ(nosy.boxes, 1);
    EXPECT_FALSE(other.commitEdit("-3"));
    EXPECT_EQ(nosy.boxes, 2);
}

TEST_F(StepEditsTest, ARefusedWriteIsToldAndTheCellShowsWhatIsStored) {
    ASSERT_TRUE(grid.beginEdit(1, grid.colIndex(field::kName)));
    base.stepStore().updateStep({first, "Drill deep", process, 5, 602});
    base.throwOn("updateStep", errors::kValueTooLong, "The name is too long.");
    desktop.expectMessage("The name is too long.");
    grid.commitEdit("x");
    EXPECT_EQ(grid.text(1, field::kName), "Drill deep");
    EXPECT_EQ(grid.text(1, field::kPriority), "5");
    EXPECT_EQ(desktop.messages().back().icon, MessageIcon::Critical);
    EXPECT_TRUE(trace.trapped("cProcessSteps::AfterEdit"));
}

TEST_F(StepEditsTest, AStoreThatAnswersNothingLeavesTheCellAsItWas) {
    base.throwOn("updateStep", errors::kKnowledgeBase, "No connection.");
    base.throwOn("step", errors::kKnowledgeBase, "No connection.");
    desktop.expectMessage("No connection.");
    edit(2, field::kName, "x");
    EXPECT_EQ(grid.text(2, field::kName), "Tap");
    EXPECT_EQ(grid.dataRows(), 2);
}

TEST_F(StepEditsTest, AStepThatSomebodyElseHasDeletedIsSaidAndItsRowGoes) {
    ASSERT_TRUE(grid.beginEdit(1, grid.colIndex(field::kName)));
    base.stepStore().deleteStep(first);
    desktop.expectMessage(kGone);
    grid.commitEdit("x");
    EXPECT_THAT(names(), ElementsAre("Tap"));
    EXPECT_EQ(desktop.messages().back().icon, MessageIcon::Information);
}

/// The list may be hours old.
TEST_F(StepEditsTest, WhatSomebodyElseHasChangedOfTheStepIsNotUndone) {
    base.stepStore().updateStep({first, "Drill deep", process, 1, 402});
    EXPECT_TRUE(edit(1, field::kPriority, "7"));
    EXPECT_EQ(stored(first), (ProcessStepRecord{first, "Drill deep", process, 7, 402}));
    EXPECT_EQ(grid.text(1, field::kName), "Drill deep");
}

TEST_F(StepEditsTest, ACellThatSomebodyElseHasChangedIsShownBeforeItIsEdited) {
    base.stepStore().updateStep({first, "Drill deep", process, 1, 602});
    EXPECT_FALSE(edit(1, field::kName, "Drill M8"));
    EXPECT_EQ(grid.text(1, field::kName), "Drill deep");
    EXPECT_TRUE(edit(1, field::kName, "Drill deep M8"));
    EXPECT_EQ(stored(first).name, "Drill deep M8");
}

TEST_F(StepEditsTest, NoEditBeginsOfAStepThatSomebodyElseHasDeleted) {
    base.stepStore().deleteStep(first);
    desktop.expectMessage(kGone);
    EXPECT_FALSE(grid.beginEdit(1, grid.colIndex(field::kName)));
    EXPECT_THAT(names(), ElementsAre("Tap"));
}

TEST_F(StepEditsTest, AStepThatCannotBeReadAnewCanBeEditedNevertheless) {
    base.throwOn("step");
    EXPECT_TRUE(edit(1, field::kName, "x"));
    EXPECT_EQ(stored(first).name, "x");
    EXPECT_TRUE(trace.trapped("cProcessSteps::BeforeEdit"));
}

TEST_F(StepEditsTest, AStepWhoseNumbersAreOutOfRangeIsNotWritten) {
    grid.setText(1, field::kCuttingCycleId, "40000");
    desktop.expectMessage("Overflow: 40000 is out of range.");
    edit(1, field::kName, "x");
    EXPECT_THAT(changes(), IsEmpty());
    EXPECT_EQ(grid.text(1, field::kCuttingCycleId), "602");
    grid.setText(1, field::kPriority, "-32769");
    desktop.expectMessage("Overflow: -32769 is out of range.");
    edit(1, field::kName, "x");
    ASSERT_TRUE(grid.beginEdit(1, grid.colIndex(field::kName)));
    grid.setText(1, field::kPriority, "-32768");
    grid.setText(1, field::kCuttingCycleId, "32767");
    grid.commitEdit("x");
    EXPECT_EQ(stored(first), (ProcessStepRecord{first, "x", process, -32768, 32767}));
}

TEST_F(StepEditsTest, NumbersThatTheKnowledgeBaseLeavesOpenCountAsNone) {
    base.stepStore().updateStep({first, "Drill", process, 0, 0});
    grid.setText(1, field::kPriority, "");
    grid.setText(1, field::kCuttingCycleId, "");
    EXPECT_TRUE(edit(1, field::kName, "x"));
    EXPECT_EQ(grid.text(1, field::kPriority), "");
    EXPECT_EQ(stored(first), (ProcessStepRecord{first, "x", process, 0, 0}));
}

}  // namespace
}  // namespace pellmark::test
