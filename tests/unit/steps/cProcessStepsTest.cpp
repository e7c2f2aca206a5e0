#include "steps/cProcessSteps.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "base/Text.h"
#include "support/StepsHarness.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CProcessStepsTest : public testing::Test, protected StepsHarness {
  protected:
    CProcessStepsTest() {
        process = base.addProcess("A");
        other = base.addProcess("B");
    }
    std::string addStep(const std::string& name, std::int16_t priority, std::int16_t cycle = 602) {
        return base.addStep(process, name, priority, cycle);
    }
    std::vector<std::string> shownColumns() {
        std::vector<std::string> keys;
        for (int col = 1; col < grid.cols(); ++col) {
            if (!grid.colHidden(col)) keys.push_back(grid.colKey(col));
        }
        return keys;
    }

    std::string process, other;
};

TEST_F(CProcessStepsTest, TheColumnsStandAsTheyAreKnown) {
    start();
    std::vector<std::string> columns;
    std::vector<Twips> widths;
    std::vector<bool> editable;
    for (int col = 0; col < grid.cols(); ++col) {
        columns.push_back(grid.heading(col) + " " + grid.colKey(col));
        widths.push_back(grid.colWidth(col));
        editable.push_back(grid.colEditable(col));
    }
    EXPECT_THAT(columns, ElementsAre(" FixedRow", "ID _Id", "ProcessID _ProcessId", "Priority _Priority",
                                     "Name _Name", "Cutting Cycle _NVXCuttingCycleID"));
    EXPECT_THAT(widths, ElementsAre(750, 1000, 1000, 1000, 4000, 2000));
    EXPECT_THAT(editable, ElementsAre(false, false, false, true, true, true));
    EXPECT_EQ(grid.fixedCols(), 1);
    EXPECT_EQ(grid.fixedRows(), 1);
    EXPECT_EQ(&steps.grid(), &grid);
}

TEST_F(CProcessStepsTest, HeadingsAreTranslated) {
    translate("Priority", "Rang|folge");
    start();
    EXPECT_EQ(grid.heading(3), "Rang folge");
    EXPECT_EQ(grid.cols(), 6);
}

TEST_F(CProcessStepsTest, OnlyNameAndCycleAreShownUnlessFaultsAreLookedFor) {
    start();
    EXPECT_THAT(shownColumns(), ElementsAre("_Name", "_NVXCuttingCycleID"));
    set("DebugMode", "1");
    steps.RefreshList("");
    EXPECT_THAT(shownColumns(), ElementsAre("_Id", "_ProcessId", "_Priority", "_Name", "_NVXCuttingCycleID"));
    EXPECT_FALSE(grid.colHidden(grid.colIndex("_ID")));
    set("DebugMode", "perhaps");
    steps.RefreshList("");
    EXPECT_THAT(shownColumns(), ElementsAre("_Name", "_NVXCuttingCycleID"));
    EXPECT_FALSE(trace.lines().empty());
}

TEST_F(CProcessStepsTest, TheStepsOfTheSelectedProcessAreListedByPriority) {
    const std::string second = addStep("Tap", 2, 402);
    const std::string first = addStep("Drill", 1);
    base.addStep(other, "Ream", 1);
    start();
    EXPECT_THAT(names(), ElementsAre("Drill", "Tap"));
    EXPECT_EQ(grid.rowData(1), first);
    EXPECT_EQ(grid.rowData(2), second);
    EXPECT_THAT(column(field::kProcessId), ElementsAre(process, process));
    EXPECT_EQ(grid.displayText(2, grid.colIndex(field::kCuttingCycleId)), "Tapping");
    EXPECT_EQ(steps.SelectedStepID(), first);
    EXPECT_THAT(trace.lines(), IsEmpty());
}

TEST_F(CProcessStepsTest, TheCyclesOfTheFiveTypesAreOfferedInTheirOrder) {
    base.addCuttingCycle(8, "Turning", 8);
    base.addCuttingCycle(1041, "Last", 104);
    start();
    EXPECT_EQ(grid.colComboList(5).text(), "#602;Drilling|#8;Turning|#402;Tapping|#1012;Milling|#1041;Last");
}

TEST_F(CProcessStepsTest, ARefreshSelectsTheNamedStepOrTheFirst) {
    addStep("a", 1);
    const std::string b = addStep("b", 2);
    start();
    steps.RefreshList(b);
    EXPECT_EQ(grid.row(), 2);
    EXPECT_EQ(grid.col(), grid.colIndex(field::kName));
    EXPECT_TRUE(grid.isSelected(2));
    EXPECT_EQ(grid.selectedRows(), 1);
    steps.SetProcessStepGui("{00000000-0000-0000-0000-0000000000FF}");
    EXPECT_EQ(grid.row(), 1);
    steps.SetProcessStepGui(b);
    EXPECT_EQ(steps.SelectedStepID(), b);
}

TEST_F(CProcessStepsTest, TheNamedStepIsScrolledTo) {
    for (int i = 0; i < 50; ++i)
        addStep("s", 1);
    const std::string last = addStep("z", 9);
    start();
    int scrolledTo = -1;
    const Subscription heard = grid.gridChanged.subscribe([&](const GridChange& change) {
        if (change.what == GridChange::What::Scroll) scrolledTo = change.row;
    });
    steps.RefreshList(last);
    EXPECT_EQ(scrolledTo, 51);
}

TEST_F(CProcessStepsTest, WithoutAProcessThereIsNothingAndNothingIsAsked) {
    addStep("a", 1);
    steps.Init(grid);
    EXPECT_FALSE(grid.hasData());
    EXPECT_THAT(base.callsOf("steps"), IsEmpty());
    EXPECT_EQ(steps.SelectedStepID(), "");

    cProcessSteps alone(services(), nullptr);
    Grid second(form, "second");
    alone.Init(second);
    EXPECT_FALSE(second.hasData());
    EXPECT_EQ(second.cols(), 6);
    EXPECT_FALSE(second.colComboList(5).empty());
    alone.AddNewWizard();
    alone.OpenPrc();
    EXPECT_THAT(changes(), IsEmpty());
    EXPECT_THAT(trace.lines(), IsEmpty());
}

TEST_F(CProcessStepsTest, AListThatIsGoneHearsItsGridNoMore) {
    addStep("a", 1);
    start();
    Grid view(form, "view");
    {
        cProcessSteps passing(services(), &processGrid);
        passing.Init(view);
    }
    base.forgetCalls();
    DragData drag;
    view.dragStarted.raise(drag);
    EXPECT_EQ(drag.text, "");
    view.doubleClicked.raise(1);
    KeyPress key;
    key.keyCode = KeyPress::kDelete;
    view.keyPressed.raise(key);
    EXPECT_FALSE(key.handled);
    EXPECT_TRUE(view.beginEdit(1, view.colIndex(field::kName)));
    view.commitEdit("x");
    EXPECT_THAT(base.calls(), IsEmpty());
}

TEST_F(CProcessStepsTest, AStepListThatWasNeverGivenAGridHasNoSelection) {
    EXPECT_EQ(steps.SelectedStepID(), "");
}

// --- following the process list ---------------------------------------------------------------------------

TEST_F(CProcessStepsTest, AnotherProcessCostsOneQueryOfItsStepsAndOneOfTheirSources) {
    addStep("a", 1);
    base.addStep(other, "b", 1);
    base.addStep(other, "c", 2);
    start();
    grid.select(1, 4);
    moveTo(2);
    EXPECT_THAT(names(), ElementsAre("b", "c"));
    EXPECT_EQ(grid.row(), 1);
    EXPECT_THAT(base.calls(), ElementsAre("steps " + other, "technologySources 2"));
}

TEST_F(CProcessStepsTest, ARefreshedProcessListKeepsTheSelectedStep) {
    addStep("a", 1);
    const std::string b = addStep("b", 2);
    start();
    steps.RefreshList(b);
    addStep("c", 3);
    listProcesses();
    base.forgetCalls();
    steps.FollowProcess();
    EXPECT_THAT(names(), ElementsAre("a", "b", "c"));
    EXPECT_EQ(steps.SelectedStepID(), b);
    EXPECT_THAT(base.calls(), ElementsAre("steps " + process, "technologySources 3"));
}

TEST_F(CProcessStepsTest, AnotherProcessBeginsAtItsFirstStepAlsoWhenTheOldOneIsInItsList) {
    const std::string a = addStep("a", 1);
    base.addStep(other, "b", 1);
    start();
    base.stepStore().updateStep({a, "a", other, 2, 602});
    moveTo(2);
    EXPECT_THAT(names(), ElementsAre("b", "a"));
    EXPECT_EQ(grid.row(), 1);
}

TEST_F(CProcessStepsTest, WithoutAProcessAnyMoreThereAreNoSteps) {
    addStep("a", 1);
    start();
    processGrid.bind(nullptr);
    steps.FollowProcess();
    EXPECT_FALSE(grid.hasData());
    EXPECT_THAT(base.calls(), IsEmpty());
}

TEST_F(CProcessStepsTest, StepsThatCannotBeReadAreNotThoseOfAnotherProcess) {
    addStep("a", 1);
    start();
    base.throwOn("steps");
    moveTo(2);
    EXPECT_FALSE(grid.hasData());
    EXPECT_TRUE(trace.trapped("cProcessSteps::FollowProcess"));
    base.stopThrowing();
    moveTo(1);
    EXPECT_THAT(names(), ElementsAre("a"));
}

TEST_F(CProcessStepsTest, CyclesThatCouldNotBeReadAreAskedForAgain) {
    base.throwOn("cuttingCycles");
    start();
    EXPECT_TRUE(trace.trapped("cProcessSteps::RefreshList"));
    EXPECT_TRUE(grid.colComboList(5).empty());
    base.stopThrowing();
    moveTo(2);
    EXPECT_FALSE(grid.colComboList(5).empty());
}

TEST_F(CProcessStepsTest, ARefreshOffersTheCyclesThatThereAreNow) {
    addStep("a", 1);
    start();
    base.addCuttingCycle(8, "Turning", 8);
    steps.Refresh();
    EXPECT_THAT(grid.colComboList(5).text(), testing::HasSubstr("#8;Turning"));
}

TEST_F(CProcessStepsTest, NothingIsDrawnUntilARefreshIsWhole) {
    addStep("a", 1);
    start();
    int drawn = 0;
    const Subscription heard = grid.gridChanged.subscribe([&](const GridChange& change) {
        if (change.what != GridChange::What::Scroll) ++drawn;
    });
    steps.RefreshList("");
    EXPECT_EQ(drawn, 1);
    moveTo(2);
    EXPECT_EQ(drawn, 2);
}

// --- one row ----------------------------------------------------------------------------------------------

TEST_F(CProcessStepsTest, ARowIsRewrittenFromTheKnowledgeBase) {
    const std::string id = addStep("a", 1);
    start();
    base.stepStore().updateStep({id, "b", other, 7, 402});
    steps.UpdateFromDb(id);
    EXPECT_EQ(grid.text(1, field::kName), "b");
    EXPECT_EQ(grid.text(1, field::kProcessId), other);
    EXPECT_EQ(grid.text(1, field::kPriority), "7");
    EXPECT_EQ(grid.text(1, field::kCuttingCycleId), "402");
    EXPECT_EQ(grid.text(1, field::kId), id);
}

TEST_F(CProcessStepsTest, AStepThatIsNotListedIsNotRead) {
    addStep("a", 1);
    const std::string elsewhere = base.addStep(other, "b", 1);
    start();
    steps.UpdateFromDb(elsewhere);
    EXPECT_THAT(base.calls(), IsEmpty());
    EXPECT_THAT(names(), ElementsAre("a"));
}

TEST_F(CProcessStepsTest, AStepThatIsGoneLosesItsRow) {
    const std::string id = addStep("a", 1);
    addStep("b", 2);
    start();
    base.stepStore().deleteStep(id);
    steps.UpdateFromDb(id);
    EXPECT_THAT(names(), ElementsAre("b"));
}

TEST_F(CProcessStepsTest, ARowThatCannotBeReadStaysAsItIs) {
    const std::string id = addStep("a", 1);
    start();
    base.throwOn("step");
    steps.UpdateFromDb(id);
    EXPECT_THAT(names(), ElementsAre("a"));
    EXPECT_TRUE(trace.trapped("cProcessSteps::UpdateFromDb"));
}

// --- dragging out -----------------------------------------------------------------------------------------

TEST_F(CProcessStepsTest, ADragOffersTheSelectionAsAFileAndAsText) {
    addStep("a", 1);
    addStep("b", 2);
    start();
    gridOps.SelectAll(grid);
    DragData drag;
    drag.files = {"left over"};
    grid.dragStarted.raise(drag);
    EXPECT_THAT(drag.files, ElementsAre("C:\\Temp\\Processes.csv"));
    const std::string text = files.contents("C:\\Temp\\Processes.csv");
    EXPECT_EQ(text, gridOps.SelectionAsDelimitedText(grid, ","));
    EXPECT_EQ(text.substr(0, text.find("\r\n")), ",Priority,Name,Cutting Cycle");
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 4);
    EXPECT_EQ(drag.text, replaced(text, ',', '\t'));
    EXPECT_TRUE(drag.copyOnly);
}

TEST_F(CProcessStepsTest, WithoutATemporaryFolderTheTextAloneIsOffered) {
    addStep("a", 1);
    start();
    for (const char* folder : {"", "C:\\no such folder\\"}) {
        files.temporary = folder;
        DragData drag;
        grid.dragStarted.raise(drag);
        EXPECT_THAT(drag.files, IsEmpty()) << folder;
        EXPECT_THAT(drag.text, testing::HasSubstr("\ta\t")) << folder;
        EXPECT_TRUE(drag.copyOnly);
    }
    EXPECT_FALSE(trace.lines().empty());
}

}  // namespace
}  // namespace pellmark::test
