// How a person left the views, and what of it is there again: the columns of the grids, the filters, the
// window of a pick, the last view.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/Application.h"
#include "processes/FrmAddEditProcess.h"
#include "support/CaseHarness.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kLayouts = "Software\\Orvane\\Applications\\Norvex - Process Manager\\";

class ViewLayoutsTest : public testing::Test, protected CaseHarness {
  protected:
    static std::string key(const std::string& rest) { return kLayouts + rest; }
    std::optional<std::int32_t> stored(const std::string& place, const std::string& name) {
        return registry.number(Registry::kCurrentUser, key(place), name);
    }
    Grid& all() { return main.VSFGAllProcesses; }
    Grid& results() { return main.VSFGProcessCaseResults; }
    Grid& steps() { return main.VSFGProcessStep; }
    Grid& values() { return main.VSFGProcessCase; }
    static int col(const Grid& grid, const char* key) { return grid.colIndex(key); }
    /// A form of its own, as the next start of the host makes it.
    std::unique_ptr<FrmMain> nextStart(FRView view) {
        auto later = std::make_unique<FrmMain>(services.forViews());
        later->SetView(view);
        return later;
    }
};

// --- grids -----------------------------------------------------------------------------------------------

TEST_F(ViewLayoutsTest, AResizedColumnIsStoredAtOnceAndThereAtTheNextStart) {
    openProcesses();
    all().userResizedColumn(col(all(), field::kRule), 1234);
    EXPECT_EQ(stored("GridDefaults\\FrmMain\\VSFGAllProcesses", "_Rule-Width"), 1234);
    const auto later = nextStart(FRView::FRProcesses);
    EXPECT_EQ(later->VSFGAllProcesses.colWidth(col(all(), field::kRule)), 1234);
    EXPECT_TRUE(later->VSFGAllProcesses.widthsChosen());
}

TEST_F(ViewLayoutsTest, AMovedColumnIsStoredAtOnceAndThereAtTheNextStart) {
    openProcesses();
    all().userMovedColumn(col(all(), field::kDescription), 0);
    const auto later = nextStart(FRView::FRProcesses);
    EXPECT_THAT(later->VSFGAllProcesses.displayOrder(), ElementsAre(4, 0, 1, 2, 3));
}

TEST_F(ViewLayoutsTest, EachGridOfTheCaseViewHasALayoutOfItsOwn) {
    openCase({d8});
    results().userResizedColumn(col(results(), field::kName), 1111);
    steps().userResizedColumn(col(steps(), field::kName), 2222);
    values().userResizedColumn(0, 2468);
    values().userResizedColumn(1, 3333);
    values().userMovedColumn(1, 0);
    const auto later = nextStart(FRView::FRProcesscase);
    EXPECT_EQ(later->VSFGProcessCaseResults.colWidth(col(results(), field::kName)), 1111);
    EXPECT_EQ(later->VSFGProcessStep.colWidth(col(steps(), field::kName)), 2222);
    EXPECT_EQ(later->VSFGProcessCase.colWidth(0), 2468);
    EXPECT_EQ(later->VSFGProcessCase.colWidth(1), 3333);
    EXPECT_THAT(later->VSFGProcessCase.displayOrder(), ElementsAre(1, 0));
    EXPECT_EQ(stored("GridDefaults\\FrmMain\\VSFGProcessCase", "Value-Width"), 3333);
}

TEST_F(ViewLayoutsTest, ALayoutSurvivesSelectingAProcessAnEmptyListAndAnotherLanguage) {
    base.addFeatureCase(hole, {d8}, {base.addProcess("Drill")});
    openCase({d8});
    const int name = col(results(), field::kName);
    results().userResizedColumn(name, 1111);
    results().userMovedColumn(name, 0);
    list().SetProcessGui("");
    EXPECT_EQ(results().colWidth(name), 1111);
    view().SetValuesGui({d10, m8});
    EXPECT_FALSE(results().hasData());
    EXPECT_EQ(results().colWidth(name), 1111);
    EXPECT_EQ(results().colPosition(name), 0);
    library.translations["Name"] = "Nom";
    mainForm().SetView(FRView::FRProcesscase);
    EXPECT_EQ(results().heading(name), "Nom");
    EXPECT_EQ(results().colWidth(name), 1111);
    EXPECT_EQ(results().colPosition(name), 0);
}

TEST_F(ViewLayoutsTest, TheColumnsAreThereBeforeTheFirstRowsArePainted) {
    base.addProcess("Drill");
    openProcesses();
    all().userResizedColumn(col(all(), field::kName), 1234);
    const auto later = std::make_unique<FrmMain>(services.forViews());
    Grid& grid = later->VSFGAllProcesses;
    Twips atFirstPaint = 0;
    const auto painted =
        grid.paintRequested.subscribe([&] { atFirstPaint = grid.colWidth(grid.colIndex(field::kName)); });
    later->SetView(FRView::FRProcesses);
    EXPECT_EQ(grid.colWidth(grid.colIndex(field::kName)), 1234);
    later->processes()->RefreshList("");
    EXPECT_EQ(atFirstPaint, 1234);
}

TEST_F(ViewLayoutsTest, ARefreshTakesOverWhatAnotherWindowHasStored) {
    base.addProcess("Drill");
    openProcesses();
    all().userResizedColumn(col(all(), field::kName), 1234);
    registry.setNumber(Registry::kCurrentUser, key("GridDefaults\\FrmMain\\VSFGAllProcesses"), "_Name-Width",
                       4321);
    list().RefreshList("");
    EXPECT_EQ(all().colWidth(col(all(), field::kName)), 4321);
}

TEST_F(ViewLayoutsTest, InternalColumnsStayHiddenWhateverIsStored) {
    openProcesses();
    all().userResizedColumn(col(all(), field::kName), 1234);
    registry.setNumber(Registry::kCurrentUser, key("GridDefaults\\FrmMain\\VSFGAllProcesses"), "_Id-Hidden",
                       0);
    list().RefreshList("");
    EXPECT_TRUE(all().colHidden(col(all(), field::kId)));
    EXPECT_TRUE(nextStart(FRView::FRProcesses)->VSFGAllProcesses.colHidden(0));
}

TEST_F(ViewLayoutsTest, TheStepsKeepTheirColumnsFromProcessToProcess) {
    base.addFeatureCase(hole, {d8}, {base.addProcess("Drill"), base.addProcess("Ream")});
    openCase({d8});
    const int name = col(steps(), field::kName);
    steps().userResizedColumn(name, 2222);
    results().select(2, 0);
    EXPECT_EQ(steps().colWidth(name), 2222);
}

TEST_F(ViewLayoutsTest, WithoutALayoutNothingIsCreatedByLooking) {
    openProcesses();
    openCase({d8});
    EXPECT_FALSE(registry.hasKey(Registry::kCurrentUser, key("GridDefaults")));
    EXPECT_FALSE(registry.hasKey(Registry::kCurrentUser, key("DialogSettings")));
}

// --- filters and view ------------------------------------------------------------------------------------

TEST_F(ViewLayoutsTest, TheLastViewIsRemembered) {
    mainForm().SetView(FRView::FRProcesscase);
    EXPECT_EQ(stored("GlobalSettings", "View"), 1);
    mainForm().SetViewByUserClick(FRView::FRProcesses);
    EXPECT_EQ(stored("GlobalSettings", "View"), 0);
}

TEST_F(ViewLayoutsTest, EachFilterIsStoredByAClickAndThereAtTheNextOpening) {
    for (const char* name : {"A", "B", "C"}) {
        base.addNvxFeatureType(static_cast<std::int16_t>(*name), name);
        base.addPartType(name);
        base.addMaterialClass(name);
    }
    const std::pair<ComboBox FrmMain::*, int> filters[] = {{&FrmMain::CmbFTUnit, 2},
                                                           {&FrmMain::CmbFTNvxFeatureType, 1},
                                                           {&FrmMain::CmbFTPartType, 3},
                                                           {&FrmMain::CmbProcessCaseUnit, 1},
                                                           {&FrmMain::CmbPartMaterial, 2}};
    mainForm().SetView(FRView::FRProcesscase);
    for (const auto& [filter, index] : filters) {
        const std::string& name = (main.*filter).name();
        EXPECT_FALSE(stored("DialogSettings\\FrmMain", name));
        (main.*filter).choose(index);
        EXPECT_EQ(stored("DialogSettings\\FrmMain", name), index) << name;
    }
    const auto later = nextStart(FRView::FRProcesscase);
    for (const auto& [filter, index] : filters)
        EXPECT_EQ(((*later).*filter).index(), index) << (main.*filter).name();
    EXPECT_EQ(later->caseView()->featureCase.GetFTUnit(), unit::kMetric);
    EXPECT_EQ(later->caseView()->featureCase.GetPcUnit(), unit::kInch);
}

TEST_F(ViewLayoutsTest, WhatTheHostChoosesIsNotWhatAPersonChose) {
    openCase({d8}, unit::kInch);
    EXPECT_FALSE(stored("DialogSettings\\FrmMain", "CmbFTUnit"));
}

TEST_F(ViewLayoutsTest, AnIndexFromALongerListLeavesTheFilterOpen) {
    for (const std::int32_t stale : {7, -1, 2147483647}) {
        registry.setNumber(Registry::kCurrentUser, key("DialogSettings\\FrmMain"), "CmbPartMaterial", stale);
        mainForm().SetView(FRView::FRProcesscase);
        EXPECT_EQ(main.CmbPartMaterial.index(), 0);
    }
}

TEST_F(ViewLayoutsTest, TheUnitOfAStoredProcessIsRemembered) {
    const std::string id = base.addProcess("Drill", unit::kInch);
    FrmAddEditProcess dialog(person, base, services.settings, *host, nullptr, id, nullptr);
    dialog.load();
    dialog.CmbUnit.choose(1);
    EXPECT_FALSE(stored("DialogSettings\\FrmAddEditProcess", "CmbUnit"));
    dialog.CmdOk_Click();
    EXPECT_EQ(stored("DialogSettings\\FrmAddEditProcess", "CmbUnit"), 1);
}

// --- the window of the main form -------------------------------------------------------------------------

class PickLayoutsTest : public testing::Test, protected PortsHarness {
  protected:
    static std::string key() { return std::string(kLayouts) + "DialogSettings\\FrmMain"; }
    std::unique_ptr<Application> app = std::make_unique<Application>(platform());
};

TEST_F(PickLayoutsTest, APickOpensWhereTheLastOneWasLeft) {
    for (const bool confirmed : {false, true}) {
        desktop.expectDialog("FrmMain", [confirmed](Form& form) {
            form.setBounds({confirmed ? 300 : 100, 200, 12000, 9000});
            confirmed ? static_cast<FrmMain&>(form).CmdOk_Click()
                      : static_cast<FrmMain&>(form).CmdCancel_Click();
        });
        app->OpenProcess(host, 9, {});
        app = std::make_unique<Application>(platform());
        desktop.expectDialog("FrmMain", [confirmed](Form& form) {
            EXPECT_EQ(form.bounds(), (Rect{confirmed ? 300 : 100, 200, 12000, 9000}));
            form.close();
        });
        app->OpenProcess(host, 9, {});
    }
}

TEST_F(PickLayoutsTest, AnEmbeddedFormHasNoPlacementOfItsOwn) {
    app->ShowWindowProcessesView(host, "");
    desktop.loaded("FrmMain")->setBounds({1, 2, 3000, 4000});
    app.reset();
    EXPECT_FALSE(registry.number(Registry::kCurrentUser, key(), "Left"));
}

TEST_F(PickLayoutsTest, APickDoesNotMoveTheEmbeddedViewThatItInterrupts) {
    app->ShowWindowProcessesView(host, "");
    desktop.expectDialog("FrmMain", [](Form& form) {
        form.setBounds({100, 200, 12000, 9000});
        form.close();
    });
    app->OpenProcess(host, 9, {});
    EXPECT_EQ(registry.number(Registry::kCurrentUser, key(), "Width"), 12000);
    app.reset();
    EXPECT_EQ(registry.number(Registry::kCurrentUser, key(), "Width"), 12000);
    EXPECT_THAT(desktop.windows(), testing::Contains("embed FrmMain 7").Times(2));
}

TEST_F(PickLayoutsTest, AnInterruptedViewHasItsColumnsAndItsOpenFiltersAgain) {
    base.addFeatureType("Hole");
    app->ShowWindowProcessCaseView(host, {});
    auto& form = static_cast<FrmMain&>(*desktop.loaded("FrmMain"));
    form.VSFGProcessCaseResults.userResizedColumn(2, 1111);
    ASSERT_EQ(form.CmbFTUnit.index(), 0);
    desktop.expectDialog("FrmMain", [](Form& pick) {
        static_cast<FrmMain&>(pick).CmbFTUnit.choose(2);
        pick.close();
    });
    app->OpenProcess(host, 9, {});
    EXPECT_EQ(form.CmbFTUnit.index(), 0) << "the filter of the pick is not that of the view";
    EXPECT_EQ(form.VSFGProcessCaseResults.colWidth(2), 1111);
    EXPECT_EQ(registry.number(Registry::kCurrentUser, key(), "CmbFTUnit"), 2);
}

TEST_F(PickLayoutsTest, EditProcessWhichShowsNoMainFormStoresNoPlacementOfIt) {
    desktop.expectDialog("FrmAddEditProcess", [](Form& form) { form.close(); });
    app->EditProcess(host, 9, {});
    EXPECT_FALSE(registry.number(Registry::kCurrentUser, key(), "Left"));
}

}  // namespace
}  // namespace pellmark::test
