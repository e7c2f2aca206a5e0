#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/GridFixture.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;

class GridEditTest : public GridFixture {
  protected:
    GridEditTest() {
        fill(2);
        grid.setColEditable(1, true);
    }
};

TEST_F(GridEditTest, AnEditIsAppliedInTwoSteps) {
    std::vector<std::string> log;
    const auto after =
        grid.afterEdit.subscribe([&](int row, int col) { log.push_back(grid.text(row, col)); });
    ASSERT_TRUE(grid.beginEdit(1, 1));
    EXPECT_EQ(grid.text(1, 1), "a");
    EXPECT_TRUE(grid.commitEdit("edited"));
    EXPECT_THAT(log, ElementsAre("edited"));
    EXPECT_FALSE(grid.isEditing());
}

TEST_F(GridEditTest, AHandlerMayRefuseTheBeginning) {
    const auto veto = grid.beforeEdit.subscribe([](CellEdit& edit) { edit.cancel = true; });
    EXPECT_FALSE(grid.beginEdit(1, 1));
    EXPECT_FALSE(grid.isEditing());
}

TEST_F(GridEditTest, AHandlerMayRefuseTheValueAndTheEditGoesOn) {
    const auto veto = grid.validateEdit.subscribe([](CellEdit& edit) { edit.cancel = edit.text.empty(); });
    ASSERT_TRUE(grid.beginEdit(1, 1));
    EXPECT_FALSE(grid.commitEdit(""));
    EXPECT_TRUE(grid.isEditing());
    EXPECT_TRUE(grid.commitEdit("fine"));
    EXPECT_EQ(grid.text(1, 1), "fine");
}

TEST_F(GridEditTest, AnUnchangedValueTellsNobody) {
    int heard = 0;
    const auto after = grid.afterEdit.subscribe([&](int, int) { ++heard; });
    ASSERT_TRUE(grid.beginEdit(1, 1));
    EXPECT_TRUE(grid.commitEdit("a"));
    EXPECT_EQ(heard, 0);
}

TEST_F(GridEditTest, HeadingsAndLockedColumnsAreNotEdited) {
    EXPECT_FALSE(grid.beginEdit(0, 1));
    EXPECT_FALSE(grid.beginEdit(1, 0));
    EXPECT_FALSE(grid.beginEdit(9, 1));
}

TEST_F(GridEditTest, ARowThatIsAnotherOneByTheTimeItMayBeEditedIsNotEdited) {
    const auto host = grid.beforeEdit.subscribe([this](CellEdit&) { grid.removeRow(1); });
    EXPECT_FALSE(grid.beginEdit(1, 1));
    EXPECT_FALSE(grid.beginEdit(1, 1)) << "the last one, which is gone now";
    EXPECT_FALSE(grid.isEditing());
}

TEST_F(GridEditTest, ACellThatReadsOtherwiseByTheTimeItMayBeEditedIsNotEdited) {
    const auto host = grid.beforeEdit.subscribe([this](CellEdit&) { grid.setText(1, 1, "other"); });
    EXPECT_FALSE(grid.beginEdit(1, 1));
    EXPECT_TRUE(grid.beginEdit(1, 1));
}

TEST_F(GridEditTest, AnotherRowThatReadsTheSameByTheTimeItMayBeEditedIsNotEdited) {
    grid.setRowData(1, "first");
    grid.setRowData(2, "second");
    grid.setText(2, 1, "a");
    const auto host = grid.beforeEdit.subscribe([this](CellEdit&) { grid.removeRow(1); });
    EXPECT_FALSE(grid.beginEdit(1, 1));
}

TEST_F(GridEditTest, AnEmptyRowThatIsGoneByTheTimeItMayBeEditedIsNotEdited) {
    grid.setRowData(2, "");
    grid.setText(2, 1, "");
    const auto host = grid.beforeEdit.subscribe([this](CellEdit&) { grid.removeRow(2); });
    EXPECT_FALSE(grid.beginEdit(2, 1));
}

TEST_F(GridEditTest, AnEditThatAHandlerBeginsGoesBeforeTheOneThatItWasAskedAbout) {
    const auto host = grid.beforeEdit.subscribe([this](CellEdit& edit) {
        if (edit.row == 1) grid.beginEdit(2, 1);
    });
    EXPECT_FALSE(grid.beginEdit(1, 1));
    ASSERT_TRUE(grid.isEditing());
    EXPECT_EQ(grid.editing()->row, 2);
}

TEST_F(GridEditTest, AValueIsNotAppliedToRowsThatCameWhileItWasChecked) {
    int heard = 0;
    const auto after = grid.afterEdit.subscribe([&](int, int) { ++heard; });
    const auto host = grid.validateEdit.subscribe([this](CellEdit&) { fill(2); });
    ASSERT_TRUE(grid.beginEdit(1, 1));
    EXPECT_FALSE(grid.commitEdit("edited"));
    EXPECT_THAT(names(), ElementsAre("a", "b"));
    EXPECT_FALSE(grid.isEditing());
    EXPECT_EQ(heard, 0);
}

}  // namespace
}  // namespace pellmark::test
