#include "host/FrmMenu.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/CaseHarness.h"
#include "util/FrmFormatColumns.h"

namespace pellmark::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

const MenuItem& itemOf(const Menu& menu, const std::string& name) {
    for (const MenuItem& item : menu.items()) {
        if (item.name == name) return item;
    }
    ADD_FAILURE() << "no item " << name;
    return menu.items().front();
}

std::vector<std::string> captionsOf(const Menu& menu) {
    std::vector<std::string> captions;
    for (const MenuItem& item : menu.items())
        captions.push_back(item.caption);
    return captions;
}

class FrmMenuTest : public testing::Test, protected CaseHarness {
  protected:
    FrmMenuTest() { mainForm().load(); }
    void press(Grid& grid, MouseButton button = MouseButton::Right) {
        grid.mousePressed.raise({button, 1, 0, {100, 200}});
    }
    /// Right-clicks and looks at the menu that opens.
    void look(Grid& grid, const std::string& name, std::function<void(Menu&)> script) {
        desktop.expectMenu(name, std::move(script));
        press(grid);
    }
    /// Right-clicks and takes a command of the menu that opens.
    void take(Grid& grid, const std::string& menu, const std::string& item) {
        look(grid, menu, [item](Menu& shown) { itemOf(shown, item).command(); });
    }
    static std::vector<std::string> visibleOf(const Menu& menu) {
        std::vector<std::string> names;
        for (const MenuItem& item : menu.items()) {
            if (item.visible && !item.isSeparator()) names.push_back(item.name);
        }
        return names;
    }
    static std::vector<std::string> enabledOf(const Menu& menu) {
        std::vector<std::string> names;
        for (const MenuItem& item : menu.items()) {
            if (item.enabled) names.push_back(item.name);
        }
        return names;
    }
    FrmMenu& menus() { return mainForm().menus(); }
    Grid& allProcesses() { return mainForm().VSFGAllProcesses; }
    Grid& results() { return mainForm().VSFGProcessCaseResults; }
};

TEST_F(FrmMenuTest, IsAHiddenFormOfSevenMenus) {
    EXPECT_EQ(menus().name(), "FrmMenu");
    EXPECT_EQ(menus().caption(), "Menus");
    EXPECT_FALSE(menus().isLoaded());
    EXPECT_EQ(menus().mnuProcess.caption(), "ProcessContext");
    EXPECT_EQ(menus().mnuProcessStep.caption(), "ProcessStepContext");
    EXPECT_EQ(menus().mnufetaureCaseContext.caption(), "FeatureCaseContext");
    EXPECT_EQ(menus().mnuDefaultStep.caption(), "DefaultStepContext");
    EXPECT_EQ(menus().mnuDefault.caption(), "DefaultContext");
    EXPECT_EQ(menus().mnuPartType.caption(), "ParttypesContext");
    EXPECT_EQ(menus().mnuFeatureType.caption(), "FeatureTypeContext");
}

TEST_F(FrmMenuTest, TheKeysOfCommandsStandBesideThemInThePersonsLanguage) {
    library.translations["Del"] = "Entf";
    base.addFeatureCase(hole, {d8}, {base.addProcess("a")});
    openCase({d8});
    const auto keys = [](const Menu& menu) {
        std::vector<std::string> all;
        for (const MenuItem& item : menu.items()) {
            if (!item.shortcut.empty()) all.push_back(item.caption + " " + item.shortcut);
        }
        return all;
    };
    look(results(), "mnuProcess", [&](Menu& menu) {
        EXPECT_THAT(keys(menu), ElementsAre("New... Ins", "Edit... F2", "Delete Entf")) << "Enter is OK here";
    });
    mainForm().CmdOK.setVisible(false);
    look(results(), "mnuProcess", [&](Menu& menu) { EXPECT_THAT(keys(menu), Contains("Edit... Enter")); });
    look(mainForm().VSFGProcessStep, "mnuProcessStep", [&](Menu& menu) {
        EXPECT_THAT(keys(menu), ElementsAre("New... Ins", "Edit... Enter", "Delete Entf"));
    });
    EXPECT_THAT(captionsOf(menus().mnuProcess), Contains("Delete")) << "captions stay as they are";
}

TEST_F(FrmMenuTest, TheProcessMenuHoldsItsCommandsInOrder) {
    EXPECT_THAT(captionsOf(menus().mnuProcess),
                ElementsAre("New...", "Edit...", "Process Members...", "-", "Delete",
                            "Delete From Feature Case", "-", "Save...", "Print...", "Format Columns..."));
    std::vector<std::string> names;
    for (const MenuItem& item : menus().mnuProcess.items())
        names.push_back(item.name);
    EXPECT_THAT(
        names, ElementsAre("mnuProcessAddNew", "mnuProcessEdit", "mnuProcessEditProcessses", "mnuProcessBar2",
                           "mnuProcessDelete", "mnuProcessDeleteFromfeatureCase", "mnuProcessBar1",
                           "mnuProcessSaveAs", "mnuProcessPrint", "mnuProcessFormatColumns"));
}

TEST_F(FrmMenuTest, TheStepMenuHoldsItsCommandsInOrder) {
    EXPECT_THAT(captionsOf(menus().mnuProcessStep),
                ElementsAre("New...", "Edit...", "-", "Delete", "-", "Open...", "Save...", "Print...",
                            "Format Columns..."));
    std::vector<std::string> names;
    for (const MenuItem& item : menus().mnuProcessStep.items())
        names.push_back(item.name);
    EXPECT_THAT(names,
                ElementsAre("mnuProcessStepAddNew", "mnuProcessStepEdit", "mnuProcessStepBar2",
                            "mnuProcessStepDelete", "mnuProcessStepBar1", "mnuProcessStepOpen",
                            "mnuProcessStepSave", "mnuProcessStepPrint", "mnuProcessStepFormatColumns"));
}

TEST_F(FrmMenuTest, TheOtherMenusAreWhole) {
    for (const Menu* menu : {&menus().mnuDefaultStep, &menus().mnuDefault, &menus().mnuPartType}) {
        EXPECT_THAT(captionsOf(*menu),
                    ElementsAre("New...", "Edit...", "Delete", "Save...", "Print...", "Format Columns..."));
    }
    EXPECT_THAT(captionsOf(menus().mnuFeatureType),
                ElementsAre("New...", "Edit...", "Edit Keys...", "Delete", "Delete From Part", "Save..."));
    EXPECT_EQ(menus().mnuFeatureType.items().at(0).name, "mnuFeatureTypeAddNewWizard");
    EXPECT_EQ(menus().mnuFeatureType.items().at(2).name, "mnuFeatureTypeEditKeys");
    EXPECT_EQ(menus().mnuFeatureType.items().at(4).name, "mnuFeatureTypeDeleteFromPart");
    EXPECT_EQ(menus().mnufetaureCaseContext.items().at(0).name, "mnuProperties");
}

TEST_F(FrmMenuTest, InTheProcessesViewTheCommandsOfAFeatureCaseAreHidden) {
    base.addProcess("Drill");
    openProcesses();
    look(allProcesses(), "mnuProcess", [](Menu& menu) {
        EXPECT_THAT(visibleOf(menu), ElementsAre("mnuProcessEdit", "mnuProcessDelete", "mnuProcessSaveAs",
                                                 "mnuProcessPrint", "mnuProcessFormatColumns"));
    });
}

TEST_F(FrmMenuTest, InTheProcessCaseViewEveryCommandIsShown) {
    openCase({d8});
    look(results(), "mnuProcess", [](Menu& menu) { EXPECT_EQ(visibleOf(menu).size(), 8U); });
}

TEST_F(FrmMenuTest, TheViewsFollowEachOther) {
    openCase({d8});
    openProcesses();
    for (Grid* grid : {&results(), &mainForm().VSFGProcessCase, &mainForm().VSFGProcessStep})
        press(*grid);
    look(allProcesses(), "mnuProcess",
         [](Menu& menu) { EXPECT_FALSE(itemOf(menu, "mnuProcessAddNew").visible); });
    openCase({d8});
    look(results(), "mnuProcess", [](Menu& menu) { EXPECT_TRUE(itemOf(menu, "mnuProcessAddNew").visible); });
}

TEST_F(FrmMenuTest, AnEmptyProcessGridLeavesNewAndTheMembersEnabled) {
    openCase({d8});
    look(results(), "mnuProcess", [](Menu& menu) {
        EXPECT_THAT(enabledOf(menu), ElementsAre("mnuProcessAddNew", "mnuProcessEditProcessses"));
    });
}

TEST_F(FrmMenuTest, AnEmptyStepListLeavesWhatBringsStepsEnabled) {
    base.addFeatureCase(hole, {d8}, {base.addProcess("Drill")});
    openCase({d8});
    look(mainForm().VSFGProcessStep, "mnuProcessStep", [](Menu& menu) {
        EXPECT_THAT(enabledOf(menu), ElementsAre("mnuProcessStepAddNew", "mnuProcessStepOpen"));
    });
}

TEST_F(FrmMenuTest, WithoutAProcessNoCommandOfTheStepsIsEnabled) {
    openCase({d8});
    look(mainForm().VSFGProcessStep, "mnuProcessStep",
         [](Menu& menu) { EXPECT_THAT(enabledOf(menu), IsEmpty()); });
}

TEST_F(FrmMenuTest, StepsEnableEveryCommandAndOnlyAnIdentifiedOneCanBeEdited) {
    const std::string process = base.addProcess("Drill");
    base.addStep(process, "Centre", 1);
    base.addFeatureCase(hole, {d8}, {process});
    openCase({d8});
    Grid& steps = mainForm().VSFGProcessStep;
    const std::vector<std::string> all{
        "mnuProcessStepAddNew", "mnuProcessStepEdit",  "mnuProcessStepDelete",       "mnuProcessStepOpen",
        "mnuProcessStepSave",   "mnuProcessStepPrint", "mnuProcessStepFormatColumns"};
    look(steps, "mnuProcessStep", [&all](Menu& menu) { EXPECT_EQ(enabledOf(menu), all); });
    steps.setRowData(1, "");
    look(steps, "mnuProcessStep", [&all](Menu& menu) {
        EXPECT_THAT(enabledOf(menu), testing::SizeIs(all.size() - 1));
        EXPECT_FALSE(itemOf(menu, "mnuProcessStepEdit").enabled);
    });
}

TEST_F(FrmMenuTest, AGridWithDataEnablesItsCommands) {
    base.addFeatureCase(hole, {d8}, {base.addProcess("Drill")});
    openCase({d8});
    look(results(), "mnuProcess", [](Menu& menu) {
        for (const char* name : {"mnuProcessAddNew", "mnuProcessEdit", "mnuProcessEditProcessses",
                                 "mnuProcessDelete", "mnuProcessDeleteFromfeatureCase"}) {
            EXPECT_TRUE(itemOf(menu, name).enabled) << name;
        }
    });
}

TEST_F(FrmMenuTest, NoItemIsEnabledThatHasNoCommand) {
    base.addFeatureCase(hole, {d8}, {base.addProcess("Drill")});
    openCase({d8});
    const auto check = [](Menu& menu) {
        for (const MenuItem& item : menu.items()) {
            EXPECT_TRUE(item.isSeparator() || !item.enabled || item.command != nullptr) << item.name;
        }
    };
    look(results(), "mnuProcess", check);
    look(mainForm().VSFGProcessStep, "mnuProcessStep", check);
    look(mainForm().VSFGProcessCase, "mnufetaureCaseContext", check);
}

TEST_F(FrmMenuTest, OtherButtonsOpenNoMenu) {
    openCase({d8});
    for (Grid* grid : {&results(), &mainForm().VSFGProcessCase, &mainForm().VSFGProcessStep}) {
        press(*grid, MouseButton::Left);
        press(*grid, MouseButton::Middle);
    }
    EXPECT_EQ(static_cast<int>(MouseButton::Right), 2);
}

TEST_F(FrmMenuTest, TheKeyboardOpensTheSameMenu) {
    openCase({d8});
    desktop.expectMenu("mnuProcess", [](Menu&) {});
    results().contextMenuRequested.raise();
    desktop.expectMenu("mnufetaureCaseContext", [](Menu&) {});
    mainForm().VSFGProcessCase.contextMenuRequested.raise();
}

TEST_F(FrmMenuTest, CaptionsAreLookedUpEachTimeAMenuOpens) {
    openCase({d8});
    library.translations["New..."] = "Neu...";
    look(results(), "mnuProcess", [](Menu& menu) { EXPECT_EQ(captionsOf(menu).front(), "Neu..."); });
    library.translations["New..."] = "Nouveau...";
    look(results(), "mnuProcess", [](Menu& menu) { EXPECT_EQ(captionsOf(menu).front(), "Nouveau..."); });
}

TEST_F(FrmMenuTest, NewOpensTheDialogForANewProcess) {
    openCase({d8});
    desktop.expectMenu("mnuProcess", [](Menu& menu) { itemOf(menu, "mnuProcessAddNew").command(); });
    desktop.expectDialog("FrmAddEditProcess", [](Form& dialog) {
        EXPECT_EQ(dialog.caption(), "Add New Process");
        dialog.close();
    });
    press(results());
}

TEST_F(FrmMenuTest, EditOpensTheDialogOnTheCurrentProcess) {
    base.addProcess("Drill");
    openProcesses();
    desktop.expectMenu("mnuProcess", [](Menu& menu) { itemOf(menu, "mnuProcessEdit").command(); });
    desktop.expectDialog("FrmAddEditProcess", [](Form& dialog) {
        EXPECT_EQ(dialog.caption(), "Edit Process");
        dialog.close();
    });
    press(allProcesses());
}

TEST_F(FrmMenuTest, ProcessMembersOpensTheDialogOfExistingProcesses) {
    openCase({d8});
    desktop.expectMenu("mnuProcess", [](Menu& menu) { itemOf(menu, "mnuProcessEditProcessses").command(); });
    desktop.expectDialog("FrmAddExistingProcess", [](Form& dialog) { dialog.close(); });
    press(results());
}

TEST_F(FrmMenuTest, DeleteAndDeleteFromFeatureCaseAskTheirOwnQuestions) {
    base.addFeatureCase(hole, {d8}, {base.addProcess("Drill")});
    openCase({d8});
    desktop.expectMenu("mnuProcess", [](Menu& menu) { itemOf(menu, "mnuProcessDelete").command(); });
    desktop.expectMessage("Permanently delete selected item(s) from the database?", MessageAnswer::Cancel);
    press(results());
    desktop.expectMenu("mnuProcess",
                       [](Menu& menu) { itemOf(menu, "mnuProcessDeleteFromfeatureCase").command(); });
    desktop.expectMessage("Delete selected process(es) from the selected Feature Case?\r\n\r\nAre you sure?",
                          MessageAnswer::Cancel);
    press(results());
    EXPECT_THAT(changes(), IsEmpty());
}

TEST_F(FrmMenuTest, SaveAsksForAFileAndWritesTheWholeProcessGrid) {
    base.addProcess("Drill");
    openProcesses();
    fileDialogs.expectSave([](const FileDialogHook&) {
        FileDialogResult chosen{true, {"C:\\Temp\\p.csv"}, "p.csv", 1, 0};
        return chosen;
    });
    take(allProcesses(), "mnuProcess", "mnuProcessSaveAs");
    EXPECT_EQ(fileDialogs.requests().at(0).owner, mainForm().handle());
    EXPECT_THAT(files.contents("C:\\Temp\\p.csv"),
                testing::MatchesRegex("Id,Name,Unit,Rule,Description\r\n\\{.*\\},Drill,.*\r\n"));
}

TEST_F(FrmMenuTest, PrintOfTheProcessesBearsTheirTitle) {
    base.addProcess("Drill");
    library.translations["Processes"] = "Prozesse";
    openProcesses();
    systemDialogs.expectPrintConfirmed();
    take(allProcesses(), "mnuProcess", "mnuProcessPrint");
    EXPECT_EQ(printer.documents.at(0).name, "Prozesse");
    EXPECT_THAT(printer.documents.at(0).texts(0), Contains("Drill"));
}

TEST_F(FrmMenuTest, PrintOfTheStepsBearsTheirTitle) {
    base.addCuttingCycle(602, "Drilling", 6);
    const std::string process = base.addProcess("Drill");
    base.addStep(process, "Centre", 1, 602);
    base.addFeatureCase(hole, {d8}, {process});
    openCase({d8});
    systemDialogs.expectPrintConfirmed();
    take(mainForm().VSFGProcessStep, "mnuProcessStep", "mnuProcessStepPrint");
    EXPECT_EQ(printer.documents.at(0).name, "Process Steps");
    EXPECT_THAT(printer.documents.at(0).texts(0), Contains("Centre"));
}

TEST_F(FrmMenuTest, SaveAndPrintNeedRows) {
    openCase({d8});
    look(results(), "mnuProcess", [](Menu& menu) {
        EXPECT_FALSE(itemOf(menu, "mnuProcessSaveAs").enabled);
        EXPECT_FALSE(itemOf(menu, "mnuProcessPrint").enabled);
    });
    base.addFeatureCase(hole, {d8}, {base.addProcess("Drill")});
    openCase({d8});
    look(results(), "mnuProcess", [](Menu& menu) {
        EXPECT_TRUE(itemOf(menu, "mnuProcessSaveAs").enabled);
        EXPECT_TRUE(itemOf(menu, "mnuProcessPrint").enabled);
    });
}

TEST_F(FrmMenuTest, FormatColumnsOpensTheChooserForTheClickedGrid) {
    const std::string drill = base.addProcess("Drill");
    base.addStep(drill, "Centre", 1);
    base.addFeatureCase(hole, {d8}, {drill});
    const auto choose = [this](Grid& grid, const char* menu, const char* item) {
        desktop.expectMenu(menu, [item](Menu& shown) {
            EXPECT_TRUE(itemOf(shown, item).enabled);
            itemOf(shown, item).command();
        });
        desktop.expectDialog("FrmFormatColumns", [](Form& dialog) {
            auto& chooser = static_cast<FrmFormatColumns&>(dialog);
            for (int i = 0; i < chooser.List.count(); ++i)
                chooser.List.setSelected(i,
                                         chooser.columns()[static_cast<std::size_t>(i)].key == field::kName);
            chooser.CmdOK.click();
        });
        press(grid);
        EXPECT_FALSE(grid.colHidden(grid.colIndex(field::kName)));
    };
    openProcesses();
    choose(allProcesses(), "mnuProcess", "mnuProcessFormatColumns");
    EXPECT_TRUE(allProcesses().colHidden(allProcesses().colIndex(field::kRule)));
    openCase({d8});
    choose(results(), "mnuProcess", "mnuProcessFormatColumns");
    EXPECT_TRUE(results().colHidden(results().colIndex(field::kRule)));
    Grid& steps = mainForm().VSFGProcessStep;
    choose(steps, "mnuProcessStep", "mnuProcessStepFormatColumns");
    EXPECT_TRUE(steps.colHidden(steps.colIndex(field::kCuttingCycleId)));
    EXPECT_FALSE(steps.colHidden(0)) << "the fixed column is not offered";
}

TEST_F(FrmMenuTest, PropertiesDescribesTheFeatureCase) {
    openCase({});
    desktop.expectMenu("mnufetaureCaseContext", [](Menu& menu) { itemOf(menu, "mnuProperties").command(); });
    desktop.expectMessage(
        "Feature Type Hole\r\n\r\nUnit: Metric\r\nNorvex Feature Type: Any\r\nPart Type: Any\r\nPart "
        "Material Class: "
        "Any");
    press(mainForm().VSFGProcessCase);
}

TEST_F(FrmMenuTest, ControlMOpensTheMaterialsOfTheCurrentProcess) {
    base.addProcess("Drill");
    openProcesses();
    desktop.expectDialog("FrmEditProcessMaterials", [](Form& dialog) { dialog.close(); });
    KeyPress key{'M', false, true};
    allProcesses().keyPressed.raise(key);
    EXPECT_TRUE(key.handled);
}

TEST_F(FrmMenuTest, MAloneIsLeftToTheGrid) {
    base.addProcess("Drill");
    openProcesses();
    KeyPress key{'M'};
    allProcesses().keyPressed.raise(key);
    EXPECT_FALSE(key.handled);
}

TEST_F(FrmMenuTest, WithoutAViewNoGridOpensAMenu) {
    openProcesses();
    main.releaseView();
    press(allProcesses());
    KeyPress key{'M', false, true};
    allProcesses().keyPressed.raise(key);
    EXPECT_FALSE(key.handled);
}

}  // namespace
}  // namespace pellmark::test
