// The process list in feature-case mode: which processes it shows, in which order, and how they look.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/CaseListFixture.h"

namespace pellmark::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class CaseListTest : public CaseListFixture {};

TEST_F(CaseListTest, ColumnsFallOneToTheRightUnderTheirWidths) {
    openCase({d8});
    std::vector<std::string> columns;
    for (int col = 0; col < grid().cols(); ++col)
        columns.push_back(grid().heading(col) + " " + grid().colKey(col) + " " +
                          std::to_string(grid().colWidth(col)));
    EXPECT_THAT(columns, ElementsAre("Id _Id 4000", "FeatureCaseId _FeatureCaseId 2000", "Name _Name 1000",
                                     "Unit _Unit 2000", "Rule _Rule 4000", "Description _Description 1440"));
    EXPECT_EQ(grid().colComboList(3).text(), "#70;Inch|#71;Metric");
}

TEST_F(CaseListTest, AHeadingOfALocalisedFileIsBracketed) {
    library.translations["Name"] = "\xE5\x90\x8D\xE5\x89\x8D";  // U+540D U+524D
    library.translations["Rule"] = "Regel";
    openCase({d8});
    EXPECT_EQ(grid().heading(2), "( \xE5\x90\x8D\xE5\x89\x8D )");
    EXPECT_EQ(grid().heading(4), "Regel");
}

TEST_F(CaseListTest, TheIdColumnsAreHiddenButInDebugMode) {
    addFive();
    openCase({d8});
    EXPECT_TRUE(grid().colHidden(0));
    EXPECT_TRUE(grid().colHidden(1));
    EXPECT_FALSE(grid().colHidden(2));
    set("DebugMode", "1");
    list().RefreshList("");
    EXPECT_FALSE(grid().colHidden(0));
    EXPECT_FALSE(grid().colHidden(1));
}

TEST_F(CaseListTest, AListWithoutProcessesHasItsLayoutAsWell) {
    openCase({});
    registry.setNumber(Registry::kCurrentUser,
                       "Software\\Orvane\\Applications\\Norvex - Process Manager\\GridDefaults\\FrmMain\\"
                       "VSFGProcessCaseResults",
                       "_Name-Width", 1234);
    set("DebugMode", "1");
    list().RefreshList("");
    EXPECT_EQ(grid().dataRows(), 0);
    EXPECT_EQ(grid().colWidth(2), 1234);
    EXPECT_FALSE(grid().colHidden(0));
    EXPECT_FALSE(grid().colHidden(1));
}

TEST_F(CaseListTest, ADebugModeThatIsNoNumberCountsAsOffAndIsTraced) {
    for (const char* value : {"", "yes"}) {
        set("DebugMode", value);
        trace.clear();
        openCase({d8});
        ASSERT_NE(main.processes(), nullptr);
        EXPECT_TRUE(grid().colHidden(0));
        EXPECT_THAT(trace.lines(), Contains(HasSubstr("DebugMode")));
    }
}

TEST_F(CaseListTest, ExactMatchesComeFirstEachInTheOrderFound) {
    addFive();
    openCase({d8, m8});
    EXPECT_THAT(names(), ElementsAre("e1", "e2", "p1", "p2", "p3"));
}

TEST_F(CaseListTest, AProcessFoundBothExactlyAndPartiallyIsListedOnceAsExact) {
    const std::string both = base.addProcess("both");
    base.addFeatureCase(hole, {m8}, {both});
    const std::string exactCase = base.addFeatureCase(hole, {d8, m8}, {both});
    openCase({d8, m8});
    EXPECT_THAT(names(), ElementsAre("both"));
    EXPECT_EQ(nameStyle(both).fore, 65280U);
    EXPECT_EQ(grid().text(1, field::kFeatureCaseId), exactCase);
}

TEST_F(CaseListTest, ExactMatchesAreGreenAndPartialOnesItalic) {
    const std::string exact = base.addProcess("exact");
    const std::string partial = base.addProcess("partial");
    base.addFeatureCase(hole, {d8, m8}, {exact});
    base.addFeatureCase(hole, {d8}, {partial});
    openCase({d8, m8});
    EXPECT_EQ(nameStyle(exact).fore, 65280U);
    EXPECT_FALSE(nameStyle(exact).italic);
    EXPECT_TRUE(nameStyle(partial).italic);
    EXPECT_NE(nameStyle(partial).fore, 65280U);
}

TEST_F(CaseListTest, WhatIsShownIsWhatTheStoreHoldsNow) {
    const std::string id = base.addProcess("old", unit::kInch, "r", "d");
    base.addFeatureCase(hole, {d8}, {id});
    base.processStore().updateProcess({id, "new", unit::kMetric, "text", "rule"});
    openCase({d8});
    EXPECT_THAT(names(), ElementsAre("new"));
    EXPECT_EQ(grid().displayText(1, 3), "Metric");
    EXPECT_EQ(grid().text(1, field::kRule), "rule");
    EXPECT_EQ(grid().text(1, field::kDescription), "text");
}

TEST_F(CaseListTest, AtMostSoManyProcessesAreShownAsTheSettingSays) {
    addFive();
    const std::pair<const char*, std::vector<std::string>> expected[] = {
        {"3", {"e1", "e2", "p1"}},
        {"0", {}},
        {"-1", {}},
        {"2147483647", {"e1", "e2", "p1", "p2", "p3"}},
        {"many", {"e1", "e2", "p1", "p2", "p3"}},
    };
    for (const auto& [most, shownNames] : expected) {
        SCOPED_TRACE(most);
        set("MaxProcessReturnNum", most);
        openCase({d8, m8});
        EXPECT_EQ(names(), shownNames);
        EXPECT_EQ(list().results().size(), 5U);
    }
}

TEST_F(CaseListTest, TheCasesUnitNarrowsTheListAndNoUnitShowsBoth) {
    base.addFeatureCase(hole, {d8},
                        {base.addProcess("inch", unit::kInch), base.addProcess("metric", unit::kMetric)});
    openCase({d8}, unit::kNone);
    EXPECT_THAT(names(), ElementsAre("inch", "metric"));
    openCase({d8}, unit::kInch);
    EXPECT_THAT(names(), ElementsAre("inch"));
}

TEST_F(CaseListTest, TheLimitCountsWhatTheCasesUnitLeaves) {
    base.addFeatureCase(hole, {d8, m8},
                        {base.addProcess("e1", unit::kInch), base.addProcess("e2"), base.addProcess("e3"),
                         base.addProcess("e4")});
    set("MaxProcessReturnNum", "2");
    openCase({d8, m8});
    EXPECT_THAT(names(), ElementsAre("e2", "e3"));
}

TEST_F(CaseListTest, AProcessThatIsGoneWhenItsValuesAreReadIsNotListed) {
    const std::string gone = base.addProcess("gone");
    base.addFeatureCase(hole, {d8}, {gone, base.addProcess("there")});
    base.tables().onCall = [&](const std::string& operation) {
        if (operation == "processRecords")
            std::erase_if(base.tables().processes, [&](const auto& each) { return each.record.Id == gone; });
    };
    openCase({d8});
    base.tables().onCall = nullptr;
    EXPECT_THAT(names(), ElementsAre("there"));
    EXPECT_THAT(trace.lines(), IsEmpty());
}

TEST_F(CaseListTest, ARefreshGivesTheUnitsTheirNamesAgain) {
    base.addFeatureCase(hole, {d8}, {base.addProcess("a")});
    openCase({d8});
    grid().setColComboList(3, "");
    list().RefreshList("");
    EXPECT_EQ(grid().displayText(1, 3), "Metric");
}

TEST_F(CaseListTest, TheStyleChoosesTheQueryAndAnotherOneAsksNothing) {
    addFive();
    for (const char* style : {"0", "1"}) {
        set("ProcessListStyle", style);
        openCase({d8});
        list().RefreshList("");
        EXPECT_THAT(base.callsOf("processesOfValues"),
                    ElementsAre(std::string("processesOfValues ") + style));
        base.forgetCalls();
    }
    for (const char* style : {"2", "-1"}) {
        set("ProcessListStyle", style);
        list().RefreshList("");
        EXPECT_THAT(names(), IsEmpty());
        EXPECT_THAT(base.callsOf("processesOfValues"), IsEmpty());
    }
}

TEST_F(CaseListTest, WithoutValuesNothingIsAskedAndNothingShown) {
    addFive();
    openCase({});
    list().RefreshList("");
    EXPECT_THAT(names(), IsEmpty());
    EXPECT_THAT(base.callsOf("processesOfValues"), IsEmpty());
}

TEST_F(CaseListTest, ARecordThatDoesNotFitLeavesTheOthers) {
    addFive();
    const std::string long_ = base.addProcess("long");
    base.tables().findProcess(long_)->record.Name = std::string(501, 'n');
    base.addFeatureCase(hole, {d8}, {long_});
    openCase({d8, m8});
    EXPECT_EQ(names().size(), 5U);
    EXPECT_TRUE(trace.trapped("cProcess::RefreshList"));
}

TEST_F(CaseListTest, ARefreshKeepsTheNamedProcessOrTakesTheFirst) {
    addFive();
    openCase({d8, m8});
    list().RefreshList(grid().rowData(4));
    EXPECT_EQ(grid().row(), 4);
    list().RefreshListfeatureCase(Guid::random().text());
    EXPECT_EQ(grid().row(), 1);
}

TEST_F(CaseListTest, OneRefreshIsOneChangeOfTheCurrentProcess) {
    addFive();
    openCase({d8, m8});
    int changes = 0;
    const Subscription told = list().currentChanged.subscribe([&] { ++changes; });
    list().RefreshList("");
    EXPECT_EQ(changes, 1);
    grid().select(3, 0);
    EXPECT_EQ(changes, 2);
}

TEST_F(CaseListTest, DeletingSeveralIsOneChangeOfTheCurrentProcess) {
    addFive();
    openCase({d8, m8});
    int changes = 0;
    const Subscription told = list().currentChanged.subscribe([&] { ++changes; });
    grid().selectBlock(1, 0, 3, 0);
    changes = 0;
    desktop.expectMessage("Permanently delete selected item(s) from the database?");
    list().Delete();
    EXPECT_EQ(changes, 1);
    EXPECT_THAT(names(), ElementsAre("p2", "p3"));
}

TEST_F(CaseListTest, SetProcessGuiSelectsAndLeavesAPersonsWidths) {
    addFive();
    openCase({d8, m8});
    grid().setColWidth(2, 777);
    library.translations["Name"] = "Nom";
    list().SetProcessGui(grid().rowData(2));
    EXPECT_EQ(grid().row(), 2);
    EXPECT_EQ(grid().colWidth(2), 777);
    EXPECT_EQ(grid().heading(2), "Nom");
}

TEST_F(CaseListTest, ANewViewHasItsOwnWidthsAgainTheLastColumnIncluded) {
    openCase({d8});
    for (int col = 0; col < grid().cols(); ++col)
        grid().setColWidth(col, 99);
    openCase({d8});
    EXPECT_EQ(grid().colWidth(0), 4000);
    EXPECT_EQ(grid().colWidth(5), 1440);
}

// --- commands ----------------------------------------------------------------------------------------------

TEST_F(CaseListTest, ARightsCheckThatFailsIsToldAndNothingIsDone) {
    base.addFeatureCase(hole, {d8}, {base.addProcess("one")});
    openCase({d8});
    base.throwOn("may");
    for (const auto command :
         {&cProcess::Delete, &cProcess::DeleteFromFeatureCase, &cProcess::AddNewWizard, &cProcess::Editwizard,
          &cProcess::EditExistingProcesseswizard, &cProcess::EditMaterialsWizard}) {
        desktop.expectMessage("The knowledge base failed on purpose.");
        (list().*command)();
    }
    EXPECT_THAT(changes(), IsEmpty());
    EXPECT_THAT(desktop.windows(), IsEmpty());
}

TEST_F(CaseListTest, AnEmptyIdIsNeverSentToTheStore) {
    openCase({d8});
    grid().addRow();
    grid().select(1, 0);
    desktop.expectMessage("Permanently delete selected item(s) from the database?");
    list().Delete();
    desktop.expectMessage(kDetachQuestion);
    list().DeleteFromFeatureCase();
    list().Editwizard();
    list().EditMaterialsWizard();
    EXPECT_THAT(base.calls(), Not(Contains(HasSubstr("delete"))));
    EXPECT_THAT(base.callsOf("detach"), IsEmpty());
    EXPECT_THAT(desktop.windows(), IsEmpty());
}

TEST_F(CaseListTest, ADoubleClickOnTheFirstProcessEditsItAndOneOnTheHeadingDoesNot) {
    base.addFeatureCase(hole, {d8}, {base.addProcess("one")});
    openCase({d8});
    for (const int row : {0, -1})
        grid().doubleClicked.raise(row);
    EXPECT_THAT(desktop.windows(), IsEmpty());
    desktop.expectDialog("FrmAddEditProcess", [](Form& dialog) { dialog.close(); });
    grid().doubleClicked.raise(1);
}

}  // namespace
}  // namespace pellmark::test
