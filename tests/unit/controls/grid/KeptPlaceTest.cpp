#include "controls/grid/KeptPlace.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "knowledge/MemoryRecordSet.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class KeptPlaceTest : public testing::Test {
  protected:
    void show(const std::vector<std::string>& ids) {
        grid.setHeadings("Id|Name");
        grid.setColKey(0, "_Id");
        auto records = std::make_shared<MemoryRecordSet>(std::vector<std::string>{"_Id"});
        for (const std::string& id : ids)
            records->addRow({id});
        grid.bind(records);
        grid.setRowDataFromColumn(0);
    }
    std::vector<std::string> selected() const {
        std::vector<std::string> ids;
        for (int i = 0; i < grid.selectedRows(); ++i)
            ids.push_back(grid.rowData(grid.selectedRow(i)));
        return ids;
    }

    Container root{Control::Kind::Frame, nullptr, "root"};
    Grid grid{root, "grid"};
    int top = 1;
    Subscription asked = grid.topRowAsked.subscribe([this](int& row) { row = top; });
    std::vector<int> tops;
    Subscription scrolled = grid.gridChanged.subscribe([this](const GridChange& change) {
        if (change.what == GridChange::What::Top) tops.push_back(change.row);
    });
};

TEST_F(KeptPlaceTest, TheSelectionComesBackInItsOrderWithItsCurrentRowAndColumn) {
    show({"a", "b", "c", "d"});
    grid.select(3, 1);
    grid.setSelected(1, true);
    grid.setSelected(4, true);
    KeptPlace place(grid);
    EXPECT_EQ(place.currentId(), "c");
    show({"d", "new", "c", "a"});
    place.restoreSelection();
    EXPECT_THAT(selected(), ElementsAre("c", "a", "d"));
    EXPECT_EQ(grid.row(), 3);
    EXPECT_EQ(grid.col(), 1);
}

TEST_F(KeptPlaceTest, ACurrentRowThatIsNotSelectedStaysSo) {
    show({"a", "b", "c"});
    grid.select(2, 0);
    grid.setCurrent(1, 0);
    KeptPlace place(grid);
    show({"c", "b", "a"});
    place.restoreSelection();
    EXPECT_THAT(selected(), ElementsAre("b"));
    EXPECT_EQ(grid.row(), 3);
}

TEST_F(KeptPlaceTest, WhereTheCurrentRowHasGoneTheFirstSelectedOneIsCurrent) {
    show({"a", "b", "c"});
    grid.select(2, 0);
    grid.setSelected(3, true);
    KeptPlace place(grid);
    show({"a", "c"});
    place.restoreSelection();
    EXPECT_THAT(selected(), ElementsAre("c"));
    EXPECT_EQ(grid.row(), 2);
}

TEST_F(KeptPlaceTest, WhereNothingIsLeftTheSelectionStaysAsItIs) {
    show({"a", "b"});
    grid.select(2, 0);
    KeptPlace place(grid);
    show({"x", "y"});
    grid.select(1, 0);
    place.restoreSelection();
    EXPECT_THAT(selected(), ElementsAre("x"));
    show({});
    place.restoreSelection();
    EXPECT_THAT(selected(), IsEmpty());
}

TEST_F(KeptPlaceTest, TheRowAtTheUpperEdgeComesBackThere) {
    show({"a", "b", "c", "d"});
    top = 3;
    KeptPlace place(grid);
    show({"new", "a", "b", "c", "d"});
    place.restoreScroll();
    EXPECT_THAT(tops, ElementsAre(4));
    show({"a"});
    place.restoreScroll();
    EXPECT_EQ(tops.size(), 1U);
}

TEST_F(KeptPlaceTest, ScrollingWaitsForTheRowsThatAreShownTogetherWithIt) {
    show({"a", "b"});
    std::vector<GridChange::What> changes;
    const auto seen =
        grid.gridChanged.subscribe([&](const GridChange& change) { changes.push_back(change.what); });
    {
        const Grid::RedrawOff off(grid);
        grid.setTopRow(2);
        show({"a", "b", "c"});
        grid.showCell(3, 0);
    }
    EXPECT_THAT(changes, ElementsAre(GridChange::What::All, GridChange::What::Top, GridChange::What::Scroll));
}

TEST_F(KeptPlaceTest, OfMoreRowsThanAPersonHasLookedAtTheCurrentOneIsKept) {
    std::vector<std::string> many;
    for (int i = 0; i < 10'001; ++i)
        many.push_back("r" + std::to_string(i));
    show(many);
    grid.select(5, 0);
    grid.selectAll();
    KeptPlace place(grid);
    show(many);
    place.restoreSelection();
    EXPECT_THAT(selected(), ElementsAre("r4"));
}

}  // namespace
}  // namespace pellmark::test
