// How the controllers of a feature case work together: case, processes and steps.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "steps/FrmAddEditProcessTechStep.h"
#include "support/CaseHarness.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class CaseViewTest : public testing::Test, protected CaseHarness {
  protected:
    CaseViewTest() {
        base.addCuttingCycle(602, "Drilling", 6);
        drill = base.addProcess("Drill");
        ream = base.addProcess("Ream");
        base.addFeatureCase(hole, {d8}, {drill, ream});
        centre = base.addStep(drill, "Centre", 1, 602);
        deep = base.addStep(drill, "Deep", 2, 602);
        finish = base.addStep(ream, "Finish", 1, 602);
        description.featureTypeId = hole;
        description.valueIds = {d8};
    }
    void show() {
        main.SetView(FRView::FRProcesscase);
        base.forgetCalls();
        main.caseView()->show(description);
    }
    Grid& processes() { return main.VSFGProcessCaseResults; }
    Grid& steps() { return main.VSFGProcessStep; }
    std::vector<std::string> stepNames() {
        std::vector<std::string> names;
        for (int row = 1; row < steps().rows(); ++row)
            names.push_back(steps().text(row, field::kName));
        return names;
    }
    std::vector<std::string> visibleStepColumns() {
        std::vector<std::string> headings;
        for (int col = 0; col < steps().cols(); ++col) {
            if (!steps().colHidden(col)) headings.push_back(steps().heading(col));
        }
        return headings;
    }

    std::string drill, ream, centre, deep, finish;
    CaseDescription description;
};

TEST_F(CaseViewTest, TheStepsOfTheSelectedProcessAreListedWithOneQuestion) {
    show();
    EXPECT_THAT(stepNames(), ElementsAre("Centre", "Deep"));
    EXPECT_THAT(base.callsOf("steps"), ElementsAre("steps " + drill));
    EXPECT_THAT(visibleStepColumns(), ElementsAre("", "Name", "Cutting Cycle"));
}

TEST_F(CaseViewTest, AnotherProcessShowsItsStepsWithOneQuestion) {
    show();
    base.forgetCalls();
    processes().select(2, 0);
    EXPECT_THAT(stepNames(), ElementsAre("Finish"));
    EXPECT_THAT(base.callsOf("steps"), ElementsAre("steps " + ream));
}

TEST_F(CaseViewTest, TheNamedProcessAndStepAreSelectedWithoutReadingAnythingTwice) {
    description.processGuid = drill;
    description.processStepGuid = deep;
    show();
    EXPECT_EQ(main.caseView()->processes.SelectedProcessID(), drill);
    EXPECT_EQ(main.caseView()->steps.SelectedStepID(), deep);
    EXPECT_THAT(base.callsOf("steps"), SizeIs(1));
    EXPECT_THAT(base.callsOf("processesOfValues"), SizeIs(1));
}

TEST_F(CaseViewTest, WhatIsShownIsDescribedAsTheHostWould) {
    base.addNvxFeatureType(3, "Holes");
    description.nvxFeatureType = 3;
    description.partTypeId = base.addPartType("Prismatic");
    description.unit = unit::kMetric;
    description.materialClassId = metals;
    description.processUnit = unit::kMetric;
    description.processGuid = drill;
    description.processStepGuid = deep;
    show();
    const CaseDescription now = main.caseView()->shown();
    EXPECT_EQ(static_cast<const FeatureCaseDescription&>(now), description);
    EXPECT_EQ(now.processGuid, drill);
    EXPECT_EQ(now.processStepGuid, deep);
}

TEST_F(CaseViewTest, TheFeatureTypeIsChosenAfterTheFiltersThatWouldLeaveItOut) {
    base.addNvxFeatureType(3, "Slots");
    base.addNvxFeatureType(5, "Holes");
    const std::string slot = base.addFeatureType("Slot", 3, "", unit::kMetric);
    const std::string width = base.addValue(base.addKey(slot, "Width"), "5");
    description.featureTypeId = slot;
    description.valueIds = {width};
    description.nvxFeatureType = 5;
    description.unit = unit::kInch;
    show();
    EXPECT_EQ(view().GetCurrentFeatureType(), slot);
    EXPECT_THAT(view().GetCurrentValueIds(), ElementsAre(width));
    EXPECT_EQ(view().description().nvxFeatureType, 5);
    EXPECT_EQ(view().GetFTUnit(), unit::kInch);
}

TEST_F(CaseViewTest, EachFilterIsStoredUnderItsOwnName) {
    base.addNvxFeatureType(3, "Slots");
    base.addPartType("Prismatic");
    show();
    ComboBox* const filters[] = {&main.CmbFTUnit, &main.CmbFTNvxFeatureType, &main.CmbFTPartType,
                                 &main.CmbProcessCaseUnit, &main.CmbPartMaterial};
    for (ComboBox* filter : filters) {
        filter->choose(1);
        EXPECT_EQ(registry.number(Registry::kCurrentUser,
                                  "Software\\Orvane\\Applications\\Norvex - Process Manager\\DialogSettings"
                                  "\\FrmMain",
                                  filter->name()),
                  1)
            << filter->name();
    }
}

TEST_F(CaseViewTest, AfterTheHostsChoiceAPersonsOwnIsKept) {
    description.processGuid = ream;
    description.processStepGuid = finish;
    show();
    processes().select(1, 0);
    steps().select(2, 4);
    main.CmbPartMaterial.choose(1);
    EXPECT_EQ(main.caseView()->processes.SelectedProcessID(), drill);
    EXPECT_EQ(main.caseView()->steps.SelectedStepID(), deep);
}

TEST_F(CaseViewTest, DeletingTheProcessesTakesTheirStepsFromTheScreen) {
    show();
    processes().selectBlock(1, 0, 2, 0);
    desktop.expectMessage("Permanently delete selected item(s) from the database?");
    list().Delete();
    EXPECT_THAT(stepNames(), IsEmpty());
}

TEST_F(CaseViewTest, ANewViewHasNothingOfTheOneBefore) {
    show();
    main.SetView(FRView::FRProcesscase);
    EXPECT_EQ(processes().dataRows(), 0);
    EXPECT_THAT(stepNames(), IsEmpty());
}

TEST_F(CaseViewTest, AStepThatIsAddedShowsItsProcessAsItIsStoredNow) {
    show();
    base.processStore().updateProcess({drill, "Drill deep", unit::kMetric, "", ""});  // by somebody else
    library.technology.editor = [](FakeTechnology&) { return TechnologyService::kAccepted; };
    desktop.expectDialog("frmAddEditProcessTechStep", [](Form& dialog) {
        dynamic_cast<frmAddEditProcessTechStep&>(dialog).CmdOk.click();
    });
    main.caseView()->steps.AddNewWizard();
    EXPECT_EQ(processes().text(1, field::kName), "Drill deep");
    EXPECT_THAT(stepNames(), SizeIs(3));
}

TEST_F(CaseViewTest, TheStepMenuReachesTheStepList) {
    show();
    main.load();
    const auto take = [&](const std::string& name) {
        desktop.expectMenu("mnuProcessStep", [name](Menu& menu) {
            for (const MenuItem& item : menu.items()) {
                if (item.name == name && item.enabled) item.command();
            }
        });
        steps().mousePressed.raise({MouseButton::Right, 1, 4, {}});
    };
    desktop.expectMenu("mnuProcessStep", [this](Menu& menu) {
        desktop.expectMessage("Permanently delete selected item(s) from the database?");
        for (const MenuItem& item : menu.items()) {
            if (item.name == "mnuProcessStepDelete") item.command();
        }
    });
    steps().mousePressed.raise({MouseButton::Right, 1, 4, {}});
    EXPECT_THAT(base.callsOf("deleteStep"), ElementsAre("deleteStep " + centre));
    desktop.expectMenu("mnuProcessStep", [this](Menu& menu) {
        desktop.expectDialog("frmAddEditProcessTechStep", [](Form& dialog) { dialog.close(); });
        menu.items().front().command();
    });
    steps().mousePressed.raise({MouseButton::Right, 1, 4, {}});
    fileDialogs.expectOpen(std::string());
    take("mnuProcessStepOpen");
    fileDialogs.expectSave(std::string());
    take("mnuProcessStepSave");
    library.technology.wizard = [](FakeTechnology&) { return false; };
    take("mnuProcessStepEdit");
    EXPECT_THAT(library.technology.calls, testing::Contains(testing::StartsWith("runStepWizard")));
}

}  // namespace
}  // namespace pellmark::test
