#include "util/cListViewOps.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/Error.h"
#include "controls/Controls.h"

namespace pellmark {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct CListViewOpsTest : testing::Test {
    CListViewOpsTest() {
        for (const char* caption : {"a", "b", "c", "d"})
            source.add(std::string("{") + caption + "}", caption);
    }
    static std::vector<std::string> shown(const ListView& list) {
        std::vector<std::string> texts;
        for (int i = 0; i < list.count(); ++i)
            texts.push_back(list.text(i, 0));
        return texts;
    }

    Container root{Control::Kind::Frame, nullptr, "frame"};
    ListView source{root, "LV1"};
    ListView target{root, "LV2"};
};

TEST_F(CListViewOpsTest, MovesTheSelectedItemsInOrderWithKeyAndCaption) {
    source.setSelected(2, true);
    source.setSelected(0, true);
    cListViewOps::MoveListItems(source, target, false);
    EXPECT_THAT(shown(source), ElementsAre("b", "d"));
    EXPECT_THAT(shown(target), ElementsAre("a", "c"));
    EXPECT_EQ(target.item(1).key, "{c}");
}

TEST_F(CListViewOpsTest, OnlyKeyAndCaptionGoAlong) {
    source.add({"{e}", "e", {"Metric", "8"}});
    source.select(4);
    cListViewOps::MoveListItems(source, target, false);
    EXPECT_EQ(target.item(0).text, "e");
    EXPECT_THAT(target.item(0).subItems, IsEmpty());
}

TEST_F(CListViewOpsTest, MovesEveryItemWhenAllAreAskedFor) {
    source.select(1);
    cListViewOps::MoveListItems(source, target, true);
    EXPECT_THAT(shown(source), IsEmpty());
    EXPECT_THAT(shown(target), ElementsAre("a", "b", "c", "d"));
    EXPECT_EQ(target.selectedCount(), 0);
}

TEST_F(CListViewOpsTest, SelectsTheFirstItemThatIsLeftSoThatTheNextClickHasATarget) {
    source.select(3);
    cListViewOps::MoveListItems(source, target, false);
    EXPECT_TRUE(source.isSelected(0));
    EXPECT_EQ(source.selectedCount(), 1);
    cListViewOps::MoveListItems(source, target, false);
    EXPECT_THAT(shown(target), ElementsAre("d", "a"));
}

TEST_F(CListViewOpsTest, TheTargetOfTheNextClickIsScrolledTo) {
    int scrolledTo = -1;
    const Subscription heard = source.listChanged.subscribe([&](const ListChange& change) {
        if (change.what == ListChange::What::Scroll) scrolledTo = change.index;
    });
    source.select(3);
    cListViewOps::MoveListItems(source, target, false);
    EXPECT_EQ(scrolledTo, 0);
}

TEST_F(CListViewOpsTest, WithoutASelectionNothingChangesInEitherList) {
    cListViewOps::MoveListItems(source, target, false);
    EXPECT_THAT(shown(source), ElementsAre("a", "b", "c", "d"));
    EXPECT_EQ(source.selectedCount(), 0);
    EXPECT_EQ(target.count(), 0);
}

TEST_F(CListViewOpsTest, AnEmptySourceMovesNothing) {
    source.clear();
    cListViewOps::MoveListItems(source, target, true);
    EXPECT_EQ(target.count(), 0);
}

TEST_F(CListViewOpsTest, AKeyThatTheTargetHasStopsTheMoveBeforeAnythingMoved) {
    target.add("{C}", "other");
    try {
        cListViewOps::MoveListItems(source, target, true);
        ADD_FAILURE() << "nothing was thrown";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), errors::kNotUnique);
        EXPECT_EQ(error.source(), "Pellmark.cListViewOps");
    }
    EXPECT_EQ(source.count(), 4);
    EXPECT_EQ(target.count(), 1);
}

TEST_F(CListViewOpsTest, MovesTenThousandSelectedItemsAtOnce) {
    source.clear();
    for (int i = 0; i < 10000; ++i)
        source.add(std::to_string(i), "Process " + std::to_string(i));
    source.setSorted(true);
    target.setSorted(true);
    source.selectAll();
    source.setSelected(5000, false);
    cListViewOps::MoveListItems(source, target, false);
    EXPECT_EQ(target.count(), 9999);
    EXPECT_THAT(shown(source), ElementsAre("Process 5000"));
}

TEST_F(CListViewOpsTest, ClickingTheSameColumnTwiceSortsAscendingThenDescending) {
    cListViewOps::SortColumn(source, 0);
    EXPECT_TRUE(source.sorted());
    EXPECT_EQ(source.sortOrder(), SortOrder::Ascending);
    cListViewOps::SortColumn(source, 0);
    EXPECT_EQ(source.sortOrder(), SortOrder::Descending);
    EXPECT_THAT(shown(source), ElementsAre("d", "c", "b", "a"));
    cListViewOps::SortColumn(source, 0);
    EXPECT_THAT(shown(source), ElementsAre("a", "b", "c", "d"));
}

TEST_F(CListViewOpsTest, AnotherColumnSortsAscendingAgain) {
    cListViewOps::SortColumn(source, 0);
    cListViewOps::SortColumn(source, 0);
    cListViewOps::SortColumn(source, 1);
    EXPECT_EQ(source.sortKey(), 1);
    EXPECT_EQ(source.sortOrder(), SortOrder::Ascending);
}

TEST_F(CListViewOpsTest, TheFirstClickSortsAlsoWhereTheSortKeyIsThatColumnFromTheStart) {
    ASSERT_EQ(source.sortKey(), 0);
    ASSERT_FALSE(source.sorted());
    source.setSortOrder(SortOrder::Descending);
    cListViewOps::SortColumn(source, 0);
    EXPECT_EQ(source.sortOrder(), SortOrder::Ascending);
}

}  // namespace
}  // namespace pellmark
