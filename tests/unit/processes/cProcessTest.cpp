#include "processes/cProcess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/Text.h"
#include "support/PortsHarness.h"

namespace pellmark::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// The list in all-processes mode: no feature-case view exists.
class CProcessTest : public testing::Test, protected ServicesHarness {
  protected:
    void start() {
        list.Init(grid);
        list.RefreshList("");
    }
    std::vector<std::string> names() {
        std::vector<std::string> all;
        for (int row = 1; row < grid.rows(); ++row)
            all.push_back(grid.text(row, field::kName));
        return all;
    }
    std::optional<Color> nameColor(const std::string& id) {
        return grid.style(grid.findRow(id), grid.colIndex(field::kName)).fore;
    }

    Grid grid{form, "VSFG"};
    cProcess list{person,           services.forViews().knowledgeBase,
                  services.rights,  services.settings,
                  services.gridOps, idle,
                  services.host,    nullptr};
};

TEST_F(CProcessTest, TheColumnsStandAsTheyAreKnown) {
    list.Init(grid);
    std::vector<std::string> columns;
    std::vector<Twips> widths;
    for (int col = 0; col < grid.cols(); ++col) {
        columns.push_back(grid.heading(col) + " " + grid.colKey(col));
        widths.push_back(grid.colWidth(col));
    }
    EXPECT_THAT(columns,
                ElementsAre("Id _Id", "Name _Name", "Unit _Unit", "Rule _Rule", "Description _Description"));
    EXPECT_THAT(widths, ElementsAre(4000, 2000, 1000, 2000, 4000));
    EXPECT_EQ(grid.colComboList(2).text(), "#70;Inch|#71;Metric");
}

TEST_F(CProcessTest, HeadingsAreTranslatedAndNeverBracketedInThisMode) {
    library.translations["Name"] = "\xE5\x90\x8D\xE5\x89\x8D";  // U+540D U+524D
    library.translations["Rule"] = "a|b";
    list.Init(grid);
    EXPECT_EQ(grid.heading(1), "\xE5\x90\x8D\xE5\x89\x8D");
    EXPECT_EQ(grid.heading(3), "a b");
    EXPECT_EQ(grid.cols(), 5);
}

TEST_F(CProcessTest, TheIdColumnShowsInDebugModeOnly) {
    start();
    EXPECT_TRUE(grid.colHidden(0));
    set("DebugMode", "1");
    list.RefreshList("");
    EXPECT_FALSE(grid.colHidden(0));
}

TEST_F(CProcessTest, AllProcessesAreListedByNameWithTheirUnitsShown) {
    base.addProcess("Tap M8", unit::kInch, "d = 8", "deep");
    base.addProcess("Drill", unit::kMetric);
    start();
    EXPECT_THAT(names(), ElementsAre("Drill", "Tap M8"));
    EXPECT_EQ(grid.displayText(1, 2), "Metric");
    EXPECT_EQ(grid.text(2, 2), "70");
    EXPECT_EQ(grid.text(2, 3), "d = 8");
    EXPECT_EQ(grid.text(2, 4), "deep");
}

TEST_F(CProcessTest, TheAskedForProcessIsSelected) {
    base.addProcess("a");
    const std::string id = base.addProcess("b");
    list.Init(grid);
    list.RefreshList(id);
    EXPECT_EQ(grid.row(), 2);
    EXPECT_EQ(list.SelectedProcessID(), id);
    EXPECT_EQ(grid.selectedRows(), 1);
}

TEST_F(CProcessTest, AnIdThatIsNoLongerListedSelectsTheFirstRow) {
    base.addProcess("a");
    base.addProcess("b");
    list.Init(grid);
    list.RefreshList(Guid::random().text());
    EXPECT_EQ(grid.row(), 1);
}

TEST_F(CProcessTest, AGridOfHeadingsAloneHasNoSelectedProcess) {
    EXPECT_EQ(list.SelectedProcessID(), "");
    start();
    EXPECT_EQ(list.SelectedProcessID(), "");
}

TEST_F(CProcessTest, OrphansAreRedAndTheOthersBlack) {
    const std::string orphan = base.addProcess("orphan");
    const std::string attached = base.addProcess("attached");
    const std::string type = base.addFeatureType("Hole");
    base.addFeatureCase(type, {}, {attached});
    start();
    EXPECT_EQ(nameColor(orphan), 255U);
    EXPECT_EQ(nameColor(attached), 0U);
    base.tables();
    base.processStore().attach(orphan, base.addFeatureCase(type, {}));
    list.SetOrphanColor();
    EXPECT_EQ(nameColor(orphan), 0U);
}

TEST_F(CProcessTest, TheFirstRowsArePaintedBeforeTheIdsAreRead) {
    base.addProcess("a");
    list.Init(grid);
    std::string rowDataAtPaint = "not painted";
    const auto painted = grid.paintRequested.subscribe([&] { rowDataAtPaint = grid.rowData(1); });
    list.RefreshList("");
    EXPECT_EQ(rowDataAtPaint, "");
    EXPECT_NE(grid.rowData(1), "");
}

TEST_F(CProcessTest, AFailingStoreLeavesATraceAndNoException) {
    base.throwOn("processes", errors::kKnowledgeBase, "The file is locked.");
    start();
    EXPECT_THAT(trace.lines(), Contains(HasSubstr("cProcess::RefreshList: error 26104")));
}

TEST_F(CProcessTest, ARowThatCannotBeReadCanBeSelected) {
    class Unreadable : public RecordSet {
      public:
        const std::vector<std::string>& fields() const override { return fields_; }
        std::size_t count() override { return 2; }
        std::string text(std::size_t, std::size_t) override {
            throw Error(errors::kKnowledgeBase, "test", "The file is locked.");
        }
        std::optional<std::vector<Guid>> keys() override {
            return std::vector{Guid::random(), Guid::random()};
        }

      private:
        std::vector<std::string> fields_{field::kId};
    };
    start();
    grid.bind(std::make_shared<Unreadable>());
    grid.setRowDataFromColumn(0);
    int heard = 0;
    const auto told = list.currentChanged.subscribe([&] { ++heard; });
    {
        const Grid::RedrawOff off(grid);
        grid.select(2, 0);
    }
    EXPECT_EQ(grid.row(), 2);
    EXPECT_EQ(heard, 1);
    EXPECT_THAT(trace.lines(), Contains(HasSubstr("cProcess::rowChanged: error 26104")));
}

TEST_F(CProcessTest, UpdateFromDbShowsWhatTheStoreHoldsNow) {
    const std::string id = base.addProcess("old", unit::kInch);
    start();
    base.processStore().updateProcess({id, "new", unit::kMetric, "text", "rule"});
    list.UpdateFromDb({id, "ignored", 0, "", ""});
    EXPECT_THAT(names(), ElementsAre("new"));
    EXPECT_EQ(grid.displayText(1, 2), "Metric");
    EXPECT_EQ(grid.text(1, 3), "rule");
    EXPECT_EQ(grid.text(1, 4), "text");
}

TEST_F(CProcessTest, UpdateFromDbAddsARowForANewProcess) {
    start();
    const std::string id = base.addProcess("new");
    list.UpdateFromDb({id, "", 0, "", ""});
    EXPECT_EQ(grid.rows(), 2);
    EXPECT_EQ(grid.findRow(id), 1);
    EXPECT_EQ(grid.text(1, field::kName), "new");
}

TEST_F(CProcessTest, ADragOffersTheSelectedRowsAsTabbedText) {
    base.addProcess("a", unit::kMetric, "x > 1", "first");
    base.addProcess("b", unit::kInch);
    start();
    grid.selectBlock(1, 0, 2, 4);
    DragData drag{"old", {"old.txt"}, false};
    grid.dragStarted.raise(drag);
    const std::string comma = "Name,Unit,Rule,Description\r\na,71,x > 1,first\r\nb,70,,\r\n\r\n";
    EXPECT_EQ(files.contents(files.temporaryFolder() + "Processes.csv"), comma);
    EXPECT_EQ(drag.text, replaced(comma, ',', '\t'));
    EXPECT_THAT(drag.files, IsEmpty());
    EXPECT_TRUE(drag.copyOnly);
}

TEST_F(CProcessTest, WithoutATemporaryFolderADragWritesNoFile) {
    base.addProcess("a");
    start();
    files.temporary = "";
    DragData drag;
    grid.dragStarted.raise(drag);
    EXPECT_EQ(drag.text, "Name\tUnit\tRule\tDescription\r\na\t71\t\t\r\n\r\n");
    EXPECT_FALSE(files.has("Processes.csv"));
    EXPECT_THAT(trace.lines(), IsEmpty());
}

TEST_F(CProcessTest, ARefreshGivesTheUnitsTheirNamesAgain) {
    base.addProcess("a", unit::kInch);
    start();
    grid.setColComboList(2, "");
    list.RefreshList("");
    EXPECT_EQ(grid.displayText(1, 2), "Inch");
}

TEST_F(CProcessTest, AnIdThatIsNotListedLeavesTheCurrentProcess) {
    base.addProcess("a");
    const std::string id = base.addProcess("b");
    start();
    list.RefreshList(id);
    list.SetProcessGui(Guid::random().text());
    EXPECT_EQ(list.SelectedProcessID(), id);
}

TEST_F(CProcessTest, ADragOffersItsTextThoughItsFileCannotBeWritten) {
    base.addProcess("a");
    start();
    files.breakDown(true);
    DragData drag;
    grid.dragStarted.raise(drag);
    EXPECT_EQ(drag.text, "Name\tUnit\tRule\tDescription\r\na\t71\t\t\r\n\r\n");
    EXPECT_TRUE(trace.trapped("cFileIO::WriteFile"));
}

// --- deletion ---------------------------------------------------------------------------------------------

constexpr const char* kDeleteQuestion = "Permanently delete selected item(s) from the database?";

class CProcessDeleteTest : public CProcessTest {
  protected:
    void startWith(int processes) {
        for (int i = 0; i < processes; ++i)
            ids.push_back(base.addProcess(std::string(1, static_cast<char>('a' + i))));
        start();
        base.forgetCalls();
    }
    void selectRows(std::initializer_list<int> rows) {
        grid.clearSelection();
        for (const int row : rows)
            grid.setSelected(row, true);
    }
    std::vector<std::string> ids;
};

TEST_F(CProcessDeleteTest, SelectedProcessesGoAfterOneQuestion) {
    startWith(4);
    selectRows({1, 3});
    desktop.expectMessage(kDeleteQuestion);
    list.Delete();
    EXPECT_THAT(names(), ElementsAre("b", "d"));
    EXPECT_EQ(desktop.messages().front().title, "Norvex - Process Manager");
    EXPECT_EQ(desktop.messages().front().icon, MessageIcon::Question);
    EXPECT_EQ(desktop.messages().front().buttons, MessageButtons::OkCancel);
    EXPECT_THAT(desktop.messages().front().names, ElementsAre("a", "c"));
    EXPECT_TRUE(desktop.messages().front().cancelIsDefault);
    EXPECT_EQ(grid.row(), 2);
}

TEST_F(CProcessDeleteTest, TheQuestionIsTranslated) {
    startWith(1);
    library.translations[kDeleteQuestion] = "Wirklich?";
    library.translations["Norvex - Process Manager"] = "Verwaltung";
    desktop.expectMessage("Wirklich?", MessageAnswer::Cancel);
    list.Delete();
    EXPECT_EQ(desktop.messages().back().title, "Norvex - Process Manager");
    EXPECT_EQ(grid.rows(), 2);
}

TEST_F(CProcessDeleteTest, AProcessThatTheStoreRefusesKeepsItsRow) {
    startWith(3);
    selectRows({1, 2, 3});
    base.refuse(ids[1]);
    desktop.expectMessage(kDeleteQuestion);
    list.Delete();
    EXPECT_THAT(names(), ElementsAre("b"));
}

TEST_F(CProcessDeleteTest, AProcessThatFailsKeepsItsRowAndLeavesATrace) {
    startWith(2);
    selectRows({1, 2});
    base.throwOn("deleteProcess");
    desktop.expectMessage(kDeleteQuestion);
    desktop.expectMessage(
        "The knowledge base failed. Still there:\r\nb: The knowledge base failed on purpose.\r\n"
        "a: The knowledge base failed on purpose.\r\n\r\nRemoved: 0 / 2");
    list.Delete();
    EXPECT_EQ(grid.rows(), 3);
    EXPECT_TRUE(trace.trapped("cProcess::Delete"));
}

TEST_F(CProcessDeleteTest, AProcessThatSomebodyElseHasDeletedLeavesTheListAsWell) {
    startWith(3);
    selectRows({1, 2});
    base.processStore().deleteProcess(ids[0]);
    desktop.expectMessage(kDeleteQuestion);
    list.Delete();
    EXPECT_THAT(names(), ElementsAre("c"));
}

TEST_F(CProcessDeleteTest, ACommandOnAProcessThatSomebodyElseHasDeletedSaysSoAndReadsTheListAnew) {
    startWith(3);
    for (const auto command : {&cProcess::Editwizard, &cProcess::EditMaterialsWizard}) {
        grid.select(2, 0);
        base.processStore().deleteProcess(grid.rowData(2));
        base.addProcess("new");
        desktop.expectMessage("The process does not exist any more. Somebody else has deleted it.");
        (list.*command)();
    }
    EXPECT_THAT(names(), ElementsAre("a", "new", "new"));
}

TEST_F(CProcessDeleteTest, RowsAreHandledFromTheLastSelectedToTheFirst) {
    startWith(7);
    selectRows({2, 5, 7});
    desktop.expectMessage(kDeleteQuestion);
    list.Delete();
    EXPECT_THAT(base.callsOf("deleteProcess"),
                ElementsAre("deleteProcess " + ids[6], "deleteProcess " + ids[4], "deleteProcess " + ids[1]));
}

TEST_F(CProcessDeleteTest, TheLastRowIsCurrentAndInSightAfterwardsWhicheverWasBefore) {
    startWith(4);
    grid.select(1, 0);
    selectRows({1});
    desktop.expectMessage(kDeleteQuestion);
    int inSight = 0;
    const Subscription scrolled = grid.gridChanged.subscribe([&](const GridChange& change) {
        if (change.what == GridChange::What::Scroll) inSight = change.row;
    });
    list.Delete();
    EXPECT_EQ(inSight, 3);
    EXPECT_EQ(list.SelectedProcessID(), ids[3]);
    EXPECT_TRUE(grid.isSelected(3));
}

TEST_F(CProcessDeleteTest, WhichProcessARowStandsForIsNotReadFromItsCell) {
    startWith(2);
    grid.setText(1, field::kId, ids[1]);
    selectRows({1});
    desktop.expectMessage(kDeleteQuestion);
    list.Delete();
    EXPECT_THAT(base.callsOf("deleteProcess"), ElementsAre("deleteProcess " + ids[0]));
}

TEST_F(CProcessDeleteTest, TheDeleteKeyIsTheDeleteCommand) {
    startWith(1);
    desktop.expectMessage(kDeleteQuestion);
    KeyPress other{65};
    grid.keyPressed.raise(other);
    KeyPress key{46};
    grid.keyPressed.raise(key);
    EXPECT_TRUE(key.handled);
    EXPECT_EQ(grid.rows(), 1);
    EXPECT_EQ(list.SelectedProcessID(), "");
}

TEST_F(CProcessDeleteTest, WithoutADataRowOrASelectionNothingIsAsked) {
    start();
    list.Delete();
    startWith(1);
    grid.clearSelection();
    list.Delete();
    EXPECT_THAT(base.callsOf("deleteProcess"), IsEmpty());
}

TEST_F(CProcessDeleteTest, CancelLeavesEverything) {
    startWith(2);
    desktop.expectMessage(kDeleteQuestion, MessageAnswer::Cancel);
    list.Delete();
    EXPECT_THAT(base.callsOf("deleteProcess"), IsEmpty());
    EXPECT_EQ(grid.rows(), 3);
}

TEST_F(CProcessDeleteTest, WithoutTheRightNothingIsAsked) {
    startWith(1);
    base.allowed.erase(PermissionDelete);
    desktop.expectMessage("You do not have permission to delete objects from the database!");
    list.Delete();
    EXPECT_EQ(grid.rows(), 2);
}

}  // namespace
}  // namespace pellmark::test
