#include "controls/list/ListView.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "controls/Controls.h"
#include "support/ThrownError.h"

namespace pellmark {
namespace {

using test::errorOf;
using testing::ElementsAre;

struct ListViewTest : testing::Test {
    void fill(const std::vector<std::string>& captions) {
        for (const std::string& caption : captions)
            list.add("key of " + caption, caption);
    }
    std::vector<std::string> shown() {
        std::vector<std::string> texts;
        for (int i = 0; i < list.count(); ++i)
            texts.push_back(list.text(i, 0));
        return texts;
    }
    std::vector<std::string> selected() {
        std::vector<std::string> texts;
        for (int i = 0; i < list.count(); ++i) {
            if (list.isSelected(i)) texts.push_back(list.text(i, 0));
        }
        return texts;
    }

    Container root{Control::Kind::Frame, nullptr, "frame"};
    ListView list{root, "LV1"};
};

TEST_F(ListViewTest, ShowsItsItemsInTheOrderOfTheirAdding) {
    fill({"b", "a", "c"});
    EXPECT_THAT(shown(), ElementsAre("b", "a", "c"));
    EXPECT_EQ(list.item(1).key, "key of a");
    EXPECT_EQ(list.indexOf("key of c"), 2);
}

TEST_F(ListViewTest, AWidthThatAPersonHasChosenOutlastsTheFormsLayoutAndAnotherHeading) {
    list.setColumnHeaders({{"Members", 0}, {"Notes", 0}});
    list.suggestColumnWidth(0, 2000);
    list.suggestColumnWidth(1, 2000);
    list.userResizedColumn(0, 900);
    list.setColumnHeading(0, "Mitglieder");
    list.suggestColumnWidth(0, 3000);
    list.suggestColumnWidth(1, 3000);
    EXPECT_EQ(list.columnHeaders()[0].width, 900);
    EXPECT_EQ(list.columnHeaders()[0].text, "Mitglieder");
    EXPECT_EQ(list.columnHeaders()[1].width, 3000);
}

TEST_F(ListViewTest, AStoredWidthOutlastsTheFormsLayoutEvenWhereBothAreEqual) {
    list.setColumnHeaders({{"Members", 0}});
    list.suggestColumnWidth(0, 2000);
    list.setColumnWidth(0, 2000);
    list.suggestColumnWidth(0, 3000);
    list.suggestColumnWidth(7, 3000);
    EXPECT_EQ(list.columnHeaders()[0].width, 2000);
}

TEST_F(ListViewTest, ARunOfItemsIsSelectedInOneChange) {
    fill({"a", "b", "c", "d", "e"});
    int changes = 0;
    const auto changed = list.selectionChanged.subscribe([&] { ++changes; });
    list.setSelected(1, 3, true);
    EXPECT_THAT(selected(), ElementsAre("b", "c", "d"));
    EXPECT_EQ(changes, 1);
    list.selectOnly(3, 9);
    EXPECT_THAT(selected(), ElementsAre("d", "e"));
    EXPECT_EQ(changes, 2);
    list.setSelected(-4, 3, false);
    EXPECT_THAT(selected(), ElementsAre("e"));
}

TEST_F(ListViewTest, SubItemsStandInTheColumnsBesideTheCaption) {
    list.add({"k", "caption", {"one", "two"}});
    EXPECT_EQ(list.text(0, 0), "caption");
    EXPECT_EQ(list.text(0, 2), "two");
    EXPECT_EQ(list.text(0, 3), "");
    EXPECT_EQ(list.text(0, -1), "");
    EXPECT_EQ(list.text(1, 0), "");
}

TEST_F(ListViewTest, KeysAreUniqueWithoutCase) {
    list.add("{AB}", "first");
    EXPECT_EQ(errorOf([&] { list.add("{ab}", "second"); }).number(), errors::kNotUnique);
    EXPECT_THAT(shown(), ElementsAre("first"));
    EXPECT_EQ(list.indexOf("{aB}"), 0);
    EXPECT_EQ(list.indexOf("{cd}"), -1);
}

TEST_F(ListViewTest, ARemovedItemsKeyMayBeUsedAgain) {
    fill({"a", "b", "c"});
    EXPECT_TRUE(list.remove("KEY OF A"));
    EXPECT_FALSE(list.remove("key of a"));
    fill({"a"});
    EXPECT_THAT(shown(), ElementsAre("b", "c", "a"));
    EXPECT_EQ(list.indexOf("key of c"), 1);
}

TEST_F(ListViewTest, AskingForAnItemOutsideTheListIsAnError) {
    EXPECT_EQ(errorOf([&] { list.item(0); }).number(), errors::kInvalidArgument);
    fill({"a"});
    EXPECT_EQ(errorOf([&] { list.item(-1); }).number(), errors::kInvalidArgument);
}

TEST_F(ListViewTest, ClearingForgetsItemsAndSelectionButKeepsColumnsAndSorting) {
    list.setColumnHeaders({{"Members", 2000}});
    list.setSorted(true);
    fill({"b", "a"});
    list.select(0);
    list.clear();
    EXPECT_EQ(list.count(), 0);
    EXPECT_EQ(list.selectedCount(), 0);
    EXPECT_EQ(list.current(), -1);
    EXPECT_EQ(list.columnHeaders().at(0).text, "Members");
    EXPECT_TRUE(list.sorted());
}

TEST_F(ListViewTest, SelectingMakesTheItemCurrentAndTheOnlySelectedOne) {
    fill({"a", "b", "c"});
    list.setSelected(0, true);
    list.setSelected(1, true);
    EXPECT_THAT(selected(), ElementsAre("a", "b"));
    list.select(2);
    EXPECT_THAT(selected(), ElementsAre("c"));
    EXPECT_EQ(list.current(), 2);
    list.select(7);
    EXPECT_THAT(selected(), ElementsAre());
    EXPECT_EQ(list.current(), -1);
}

TEST_F(ListViewTest, RemovingAnItemTakesItsSelectionAndFocusMarkAlongAndLeavesTheOthers) {
    fill({"a", "b", "c"});
    list.selectAll();
    list.setCurrent(1);
    list.remove("key of b");
    EXPECT_THAT(selected(), ElementsAre("a", "c"));
    EXPECT_EQ(list.selectedCount(), 2);
    EXPECT_EQ(list.current(), -1);
}

TEST_F(ListViewTest, SelectionAndFocusMarkStayWithTheirItemsWhenTheOrderChanges) {
    fill({"b", "c", "a"});
    list.select(0);
    list.setSorted(true);
    EXPECT_THAT(selected(), ElementsAre("b"));
    EXPECT_EQ(list.current(), 1);
    list.remove("key of a");
    EXPECT_EQ(list.current(), 0);
}

TEST_F(ListViewTest, SortsNaturallyAndWithoutCase) {
    fill({"drill 10", "Drill 9", "bore", "DRILL 1"});
    list.setSorted(true);
    EXPECT_THAT(shown(), ElementsAre("bore", "DRILL 1", "Drill 9", "drill 10"));
    list.setSortOrder(SortOrder::Descending);
    EXPECT_THAT(shown(), ElementsAre("drill 10", "Drill 9", "DRILL 1", "bore"));
}

TEST_F(ListViewTest, SortsByTheColumnOfTheSortKey) {
    list.add({"1", "a", {"2"}});
    list.add({"2", "b", {"1"}});
    list.setSorted(true);
    list.setSortKey(1);
    EXPECT_THAT(shown(), ElementsAre("b", "a"));
}

TEST_F(ListViewTest, EqualCaptionsKeepTheOrderOfTheirAdding) {
    list.add("1", "same");
    list.add("2", "SAME");
    list.add("3", "same");
    list.setSorted(true);
    list.setSortOrder(SortOrder::Descending);
    EXPECT_EQ(list.item(0).key, "1");
    EXPECT_EQ(list.item(2).key, "3");
}

TEST_F(ListViewTest, AnItemAddedToASortedListStandsInItsPlace) {
    list.setSorted(true);
    fill({"c", "a"});
    EXPECT_EQ(list.indexOf("key of c"), 1);
    fill({"b"});
    EXPECT_THAT(shown(), ElementsAre("a", "b", "c"));
}

TEST_F(ListViewTest, TurningSortingOffKeepsTheOrderShown) {
    fill({"c", "a", "b"});
    list.select(0);
    list.setSorted(true);
    list.setSorted(false);
    fill({"0"});
    EXPECT_THAT(shown(), ElementsAre("a", "b", "c", "0"));
    EXPECT_THAT(selected(), ElementsAre("c"));
    EXPECT_EQ(list.current(), 2);
    EXPECT_EQ(list.indexOf("key of b"), 1);
}

TEST_F(ListViewTest, AnotherFontIsToldOnce) {
    std::vector<ListChange::What> changes;
    const auto heard =
        list.listChanged.subscribe([&](const ListChange& change) { changes.push_back(change.what); });
    const Font font{"Arial", 9.75, true, false, false, false};
    list.setFont(font);
    list.setFont(font);
    EXPECT_EQ(list.font(), font);
    EXPECT_EQ(changes, std::vector{ListChange::What::Font});
}

TEST_F(ListViewTest, ColumnsNarrowToNothingButNotBelow) {
    list.setColumnHeaders({{"Members", 2000}});
    list.setColumnWidth(0, -5);
    list.setColumnWidth(1, 700);
    EXPECT_EQ(list.columnHeaders().at(0).width, 0);
    int resized = -1;
    const auto subscription = list.columnResized.subscribe([&](int col) { resized = col; });
    list.userResizedColumn(0, 900);
    EXPECT_EQ(list.columnHeaders().at(0).width, 900);
    EXPECT_EQ(resized, 0);
}

TEST_F(ListViewTest, ABatchTellsThePeerAndTheSelectionOnce) {
    fill({"a", "b", "c"});
    int changes = 0;
    int selections = 0;
    const auto onChange = list.listChanged.subscribe([&](const ListChange&) { ++changes; });
    const auto onSelection = list.selectionChanged.subscribe([&] { ++selections; });
    {
        ListView::RedrawOff off(list);
        for (int i = 0; i < 3; ++i)
            list.setSelected(i, true);
        list.remove("key of a");
        EXPECT_EQ(changes, 0);
    }
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(selections, 1);
}

TEST_F(ListViewTest, SelectingOneItemTellsWhichOne) {
    fill({"a", "b"});
    std::vector<int> items;
    const auto onChange = list.listChanged.subscribe([&](const ListChange& change) {
        if (change.what == ListChange::What::Selection) items.push_back(change.index);
    });
    list.setSelected(1, true);
    list.setSelected(1, true);
    EXPECT_THAT(items, ElementsAre(1));
}

TEST_F(ListViewTest, ScrollingIsToldAfterTheItemsOfABatch) {
    std::vector<ListChange::What> told;
    const auto onChange =
        list.listChanged.subscribe([&](const ListChange& change) { told.push_back(change.what); });
    {
        ListView::RedrawOff off(list);
        fill({"a", "b"});
        list.showItem(1);
    }
    EXPECT_THAT(told, ElementsAre(ListChange::What::All, ListChange::What::Scroll));
}

TEST_F(ListViewTest, TheWindowIsToldOnceWhichItemIsCurrent) {
    fill({"a", "b"});
    std::vector<int> told;
    const auto onChange = list.listChanged.subscribe([&](const ListChange& change) {
        if (change.what == ListChange::What::Current) told.push_back(change.index);
    });
    list.setCurrent(1);
    list.setCurrent(1);
    EXPECT_THAT(told, ElementsAre(1));
}

/// A list that moved its items at every removal, or searched for a key, would need minutes here.
TEST_F(ListViewTest, TenThousandItemsGoToAndFroAgainAndAgain) {
    constexpr int kItems = 10000;
    list.setSorted(true);
    for (int round = 0; round < 10; ++round) {
        for (int i = 0; i < kItems; ++i)
            list.add(std::to_string(i), "Process " + std::to_string(i));
        EXPECT_EQ(list.text(kItems - 1, 0), "Process 9999");
        for (int i = 0; i < kItems; ++i)
            ASSERT_TRUE(list.remove(std::to_string(i)));
        EXPECT_EQ(list.count(), 0);
    }
}

TEST_F(ListViewTest, ItemsKeepTheirPlacesWhileHolesAreClosed) {
    for (int i = 0; i < 200; ++i)
        list.add(std::to_string(i), std::to_string(i));
    list.select(199);
    for (int i = 0; i < 198; ++i)
        list.remove(std::to_string(i));
    list.add("new", "new");
    EXPECT_THAT(shown(), ElementsAre("198", "199", "new"));
    EXPECT_THAT(selected(), ElementsAre("199"));
    EXPECT_EQ(list.current(), 1);
    EXPECT_EQ(list.indexOf("new"), 2);
}

TEST_F(ListViewTest, TheWindowHearsOfAnotherOrderOnceAndOnlyWhileTheListIsSorted) {
    fill({"b", "a"});
    std::vector<ListChange::What> told;
    const auto onChange =
        list.listChanged.subscribe([&](const ListChange& change) { told.push_back(change.what); });
    list.setSortKey(1);
    list.setSortOrder(SortOrder::Descending);
    EXPECT_THAT(told, ElementsAre()) << "nothing has moved";
    list.setSorted(true);
    list.setSortKey(0);
    list.setSortOrder(SortOrder::Ascending);
    list.setSortOrder(SortOrder::Ascending);
    EXPECT_EQ(told, std::vector(3, ListChange::What::Items));
}

TEST_F(ListViewTest, TheWindowHearsOfEveryItemThatComesOrGoes) {
    int told = 0;
    const auto onChange = list.listChanged.subscribe([&](const ListChange&) { ++told; });
    fill({"a", "b"});
    EXPECT_EQ(told, 2);
    list.remove("key of a");
    EXPECT_EQ(told, 3);
    list.remove("key of a");
    EXPECT_EQ(told, 3) << "it has gone before";
    list.clear();
    EXPECT_EQ(told, 4);
}

}  // namespace
}  // namespace pellmark
