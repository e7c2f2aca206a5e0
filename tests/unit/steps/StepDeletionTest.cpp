// Deleting the selected steps of the list.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "steps/cProcessSteps.h"
#include "support/StepsHarness.h"

namespace pellmark::test {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

constexpr const char* kQuestion = "Permanently delete selected item(s) from the database?";

class StepDeletionTest : public testing::Test, protected StepsHarness {
  protected:
    StepDeletionTest() {
        process = base.addProcess("A");
        for (const char* name : {"a", "b", "c", "d"})
            ids.push_back(base.addStep(process, name, static_cast<std::int16_t>(ids.size() + 1), 602));
        start();
    }
    void pressDelete() {
        KeyPress key;
        key.keyCode = KeyPress::kDelete;
        grid.keyPressed.raise(key);
        EXPECT_TRUE(key.handled);
    }
    void select(const std::vector<int>& rows) {
        grid.clearSelection();
        for (const int row : rows)
            grid.setSelected(row, true);
    }

    std::string process;
    std::vector<std::string> ids;
};

TEST_F(StepDeletionTest, SelectedStepsAreDeletedFromTheBottomUpAfterOneQuestion) {
    select({1, 4, 2});
    desktop.expectMessage(kQuestion);
    pressDelete();
    EXPECT_THAT(changes(),
                ElementsAre("deleteStep " + ids[3], "deleteStep " + ids[1], "deleteStep " + ids[0]));
    EXPECT_THAT(names(), ElementsAre("c"));
    EXPECT_TRUE(grid.isSelected(1));
    EXPECT_EQ(steps.SelectedStepID(), ids[2]);
    EXPECT_EQ(desktop.messages()[0].icon, MessageIcon::Question);
    EXPECT_EQ(desktop.messages()[0].buttons, MessageButtons::OkCancel);
    EXPECT_EQ(desktop.messages()[0].title, "Norvex - Process Manager");
    EXPECT_THAT(desktop.messages()[0].names, ElementsAre("a", "b", "d"));
    EXPECT_TRUE(desktop.messages()[0].cancelIsDefault);
    EXPECT_THAT(trace.lines(), IsEmpty());
}

TEST_F(StepDeletionTest, TheQuestionIsTranslatedAndItsTitleIsNot) {
    translate(kQuestion, "Wirklich?");
    translate("Norvex - Process Manager", "Verwaltung");
    desktop.expectMessage("Wirklich?", MessageAnswer::Cancel);
    steps.Delete();
    EXPECT_EQ(desktop.messages()[0].title, "Norvex - Process Manager");
}

TEST_F(StepDeletionTest, WhichStepARowStandsForIsNotReadFromItsCell) {
    grid.setText(2, field::kId, ids[3]);
    grid.select(2, 4);
    EXPECT_EQ(steps.SelectedStepID(), ids[1]);
    desktop.expectMessage(kQuestion);
    steps.Delete();
    EXPECT_THAT(changes(), ElementsAre("deleteStep " + ids[1]));
}

TEST_F(StepDeletionTest, ACancelDeletesNothing) {
    select({1, 2});
    desktop.expectMessage(kQuestion, MessageAnswer::Cancel);
    steps.Delete();
    EXPECT_THAT(changes(), IsEmpty());
    EXPECT_EQ(grid.dataRows(), 4);
    EXPECT_EQ(grid.selectedRows(), 2);
}

TEST_F(StepDeletionTest, WithoutTheRightNothingIsDeletedAndNothingAsked) {
    base.allowed.erase(PermissionDelete);
    desktop.expectMessage("You do not have permission to delete objects from the database!");
    steps.Delete();
    EXPECT_EQ(grid.dataRows(), 4);
}

TEST_F(StepDeletionTest, WithoutASelectionNothingIsAsked) {
    grid.clearSelection();
    steps.Delete();
    grid.bind(nullptr);
    steps.Delete();
    EXPECT_THAT(desktop.messages(), IsEmpty());
}

TEST_F(StepDeletionTest, ARefusedStepKeepsItsRowAndTheOthersGo) {
    base.refuse(ids[1]);
    select({1, 2, 3});
    desktop.expectMessage(kQuestion);
    steps.Delete();
    EXPECT_THAT(names(), ElementsAre("b", "d"));
    EXPECT_TRUE(grid.isSelected(1));
    EXPECT_EQ(grid.selectedRows(), 1);
}

TEST_F(StepDeletionTest, AStepThatSomebodyElseHasDeletedLeavesTheListAsWell) {
    select({1, 2});
    base.stepStore().deleteStep(ids[0]);
    desktop.expectMessage(kQuestion);
    steps.Delete();
    EXPECT_THAT(names(), ElementsAre("c", "d"));
}

TEST_F(StepDeletionTest, AFailureIsToldOnceAndTheOthersAreTried) {
    select({1, 2, 3});
    base.throwOn("deleteStep", errors::kKnowledgeBase, "The knowledge base is locked.");
    desktop.expectMessage(kQuestion);
    desktop.expectMessage("The knowledge base is locked.");
    steps.Delete();
    EXPECT_EQ(base.callsOf("deleteStep").size(), 3U);
    EXPECT_EQ(grid.dataRows(), 4);
    EXPECT_THAT(trace.lines(), SizeIs(3)) << "the trace knows each";
    EXPECT_THAT(trace.lines(), Each(StartsWith("cProcessSteps::Delete: error 26104")));
}

TEST_F(StepDeletionTest, WhatWasSelectedBeforeTheQuestionIsDeletedWhateverTheListShowsThen) {
    class Refreshing : public Desktop {
      public:
        Refreshing(const Operations& operations, cProcessSteps*& list) : Desktop(operations), list_(list) {}
        MessageAnswer showMessage(const MessageBox&) override {
            list_->RefreshList("");
            return MessageAnswer::Ok;
        }
        std::unique_ptr<FormPeer> createPeer(Form&) override { return nullptr; }

      private:
        cProcessSteps*& list_;
    };
    cProcessSteps* list = nullptr;
    Refreshing desk(operations, list);
    const UserInterface watched{desk, texts, help, layouts};
    const StepServices mine{watched, rights,  base,   technology, settings,
                            gridOps, dialogs, fileIO, files,      idle};
    cProcessSteps second(mine, &processGrid);
    list = &second;
    Grid view(form, "view");
    second.Init(view);
    base.addStep(process, "before all", 0);
    view.select(2, 0);
    second.Delete();
    EXPECT_THAT(changes(), ElementsAre("deleteStep " + ids[1]));
}

TEST_F(StepDeletionTest, TheLastStepLeavesAnEmptyList) {
    gridOps.SelectAll(grid);
    desktop.expectMessage(kQuestion);
    steps.Delete();
    EXPECT_FALSE(grid.hasData());
    EXPECT_EQ(steps.SelectedStepID(), "");
}

}  // namespace
}  // namespace pellmark::test
