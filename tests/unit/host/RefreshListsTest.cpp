// A person refreshes the lists of both views and changes what stands in them, as far as that needs no window.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ListsFixture.h"

namespace pellmark::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class RefreshListsTest : public ListsFixture {
  protected:
    /// A case of two processes that are found by "tap"; the first of them is selected.
    void findTwoTaps() {
        const std::string tap = base.addProcess("Tap M3");
        base.addFeatureCase(hole, {d8, m8}, {tap, base.addProcess("Tap M4")});
        openCase({d8, m8});
        press(results, 'F', true);
        resultsLine.TxtFind.setText("tap");
        results.select(results.findRow(tap), 1);
    }
};

TEST_F(RefreshListsTest, ADeletedProcessDoesNotComeBackWithTheNextLetter) {
    findTwoTaps();
    desktop.expectMessage("Permanently delete selected item(s) from the database?");
    press(results, KeyPress::kDelete);
    resultsLine.TxtFind.setText("ta");
    EXPECT_THAT(names(results), ElementsAre("Tap M4"));
}

TEST_F(RefreshListsTest, ADetachedProcessDoesNotComeBackWithTheNextLetter) {
    findTwoTaps();
    desktop.expectMessage("Delete selected process(es) from the selected Feature Case?\r\n\r\nAre you sure?");
    main.processes()->DeleteFromFeatureCase();
    resultsLine.TxtFind.setText("ta");
    EXPECT_THAT(names(results), ElementsAre("Tap M4"));
}

TEST_F(RefreshListsTest, F5ShowsWhatIsStoredNowAndKeepsTheSelection) {
    openTaps();
    selectNamed(grid, "Tap M3");
    grid.setSelected(rowNamed(grid, "Ream"), true);
    base.addProcess("A new one");
    EXPECT_TRUE(press(grid, KeyPress::kF5));
    EXPECT_EQ(names(grid).front(), "A new one");
    EXPECT_EQ(current(grid), "Tap M3");
    EXPECT_EQ(grid.selectedRows(), 2);
    EXPECT_TRUE(grid.isSelected(rowNamed(grid, "Ream")));
}

TEST_F(RefreshListsTest, F5InTheLineRefreshesTheList) {
    openTaps();
    press(grid, 'F', true);
    line.TxtFind.setText("tap");
    base.addProcess("Tap M1");
    EXPECT_TRUE(pressIn(line, KeyPress::kF5));
    EXPECT_EQ(grid.dataRows(), 4);
}

TEST_F(RefreshListsTest, ARefreshThatFailsIsTold) {
    openTaps();
    base.throwOn("processes");
    desktop.expectMessage("The knowledge base failed on purpose.");
    press(grid, KeyPress::kF5);
    EXPECT_TRUE(trace.trapped("cProcess::Refresh"));
}

TEST_F(RefreshListsTest, AListThatMeetsARowThatIsGoneIsReadAnew) {
    openTaps();
    base.processStore().deleteProcess(ids["Tap M3"]);
    const int row = grid.findRow(ids["Tap M3"]);
    grid.setText(row, field::kId, "");  // as a store answers for a row that has gone meanwhile
    grid.select(row, 1);
    EXPECT_THAT(names(grid), Not(Contains("Tap M3")));
    EXPECT_THAT(trace.lines(),
                Contains("cProcess::rowChanged: A listed process is gone: the list is read anew."));
    EXPECT_THAT(desktop.messages(), IsEmpty());
}

TEST_F(RefreshListsTest, EnterAndF2EditTheCurrentProcess) {
    openTaps();
    for (const int key : {KeyPress::kEnter, KeyPress::kF2}) {
        desktop.expectDialog("FrmAddEditProcess", [](Form& dialog) { dialog.close(); });
        EXPECT_TRUE(press(grid, key));
    }
}

TEST_F(RefreshListsTest, InsertMakesANewProcessWhereThereIsACaseForIt) {
    openTaps();
    EXPECT_FALSE(press(grid, KeyPress::kInsert));
    openCase({d8});
    desktop.expectDialog("FrmAddEditProcess", [](Form& dialog) { dialog.close(); });
    EXPECT_TRUE(press(results, KeyPress::kInsert));
}

TEST_F(RefreshListsTest, CtrlCCopiesTheSelectedRows) {
    openTaps();
    selectNamed(grid, "Tap M3");
    EXPECT_TRUE(press(grid, 'C', true));
    ASSERT_EQ(clipboard.puts.size(), 1U);
    EXPECT_THAT(clipboard.puts.front().content.text, HasSubstr("Tap M3"));
}

}  // namespace
}  // namespace pellmark::test
