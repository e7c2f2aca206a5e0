#include "win32/table/GridTable.h"

#include <gmock/gmock.h>

#include "base/Error.h"
#include "support/FormHarness.h"
#include "support/RecordingTrace.h"

namespace pellmark::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class GridTableTest : public ::testing::Test, protected FormHarness {
  protected:
    GridTableTest() {
        grid.setHeadings("A|B|C|D|E");
        grid.setColHidden(0, true);
        grid.setColHidden(2, true);
        grid.setRows(11);
        table.takeColumns();
    }
    std::vector<int> selected() const {
        std::vector<int> rows;
        table.eachSelected([&](int first, int last) {
            for (int row = first; row <= last; ++row)
                rows.push_back(row);
        });
        return rows;
    }

    Grid grid{form, "grid"};
    RecordingTrace trace;
    GridTable table{grid, trace};
};

TEST_F(GridTableTest, ShownColumnsAreThoseThatAreNotHidden) {
    EXPECT_EQ(table.columns(), 3);
    EXPECT_EQ(table.heading(0), "B");
    EXPECT_EQ(table.heading(1), "D");
    EXPECT_EQ(table.columnOf(4), 2);
    EXPECT_EQ(table.columnOf(2), -1);
    EXPECT_EQ(table.colOf(3), -1);
}

TEST_F(GridTableTest, AColumnMovedToTheRightTakesThePlaceOfTheOneItWasDroppedOn) {
    table.userMoved(0, 1);
    EXPECT_THAT(grid.displayOrder(), ElementsAre(0, 2, 3, 1, 4));
    EXPECT_EQ(table.heading(1), "B");
}

TEST_F(GridTableTest, AColumnMovedToTheLeftPassesHiddenOnes) {
    table.userMoved(2, 0);
    EXPECT_THAT(grid.displayOrder(), ElementsAre(0, 4, 1, 2, 3));
    EXPECT_EQ(table.heading(0), "E");
}

TEST_F(GridTableTest, RowsCountFromTheFirstBelowTheHeadings) {
    EXPECT_EQ(table.rows(), 10);
    EXPECT_EQ(table.current(), -1);
    table.setCurrent(3);
    EXPECT_EQ(grid.row(), 4);
    EXPECT_EQ(table.current(), 3);
}

TEST_F(GridTableTest, SelectingAllKeepsTheCurrentRow) {
    grid.select(5, 1);
    table.selectAll();
    EXPECT_EQ(grid.selectedRows(), 10);
    EXPECT_EQ(grid.row(), 5);
    table.clearSelection();
    EXPECT_THAT(selected(), IsEmpty());
}

TEST_F(GridTableTest, WithoutItsGridItAnswersNothingAndDoesNothing) {
    table.detach();
    table.setSelected(1, 1, true);
    table.selectAll();
    table.userResized(0, 100);
    EXPECT_EQ(table.rows(), 0);
    EXPECT_EQ(table.text(0, 0), "");
    EXPECT_EQ(table.current(), -1);
    EXPECT_FALSE(table.isSelected(0));
    EXPECT_EQ(grid.selectedRows(), 0);
}

/// A store whose pages fail from some record on.
class FailingRecords : public RecordSet {
  public:
    const std::vector<std::string>& fields() const override { return fields_; }
    std::size_t count() override { return 100; }
    std::optional<std::vector<Guid>> keys() override { return std::nullopt; }
    std::string text(std::size_t record, std::size_t) override {
        ++asked;
        if (record >= 10) throw Error(5, "Test", "the page failed");
        return "text";
    }
    int asked = 0;

  private:
    std::vector<std::string> fields_{"b"};
};

TEST_F(GridTableTest, ARowThatCannotBeReadIsShownEmptyTracedOnceAndNotAskedForAgain) {
    const auto records = std::make_shared<FailingRecords>();
    grid.setColKey(1, "b");
    grid.setColKey(3, "b");
    grid.bind(records);
    for (int painting = 0; painting < 3; ++painting) {
        EXPECT_EQ(table.text(9, 0), "text");
        EXPECT_EQ(table.text(10, 0), "");
        EXPECT_EQ(table.text(10, 1), "");
        EXPECT_EQ(table.text(11, 1), "");
    }
    EXPECT_EQ(records->asked, 3 + 2);
    EXPECT_EQ(trace.lines().size(), 1U);
    EXPECT_TRUE(trace.trapped("GridTable::text"));
    table.takeRows();
    EXPECT_EQ(table.text(10, 0), "");
    EXPECT_EQ(records->asked, 3 + 2 + 1);
    EXPECT_EQ(trace.lines().size(), 2U);
}

}  // namespace
}  // namespace pellmark::test
