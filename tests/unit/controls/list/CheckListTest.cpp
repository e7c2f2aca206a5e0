#include "controls/list/CheckList.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/FormHarness.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CheckListTest : public testing::Test, protected FormHarness {
  protected:
    CheckListTest() {
        list.addItem("Name", 1);
        list.addItem("Unit", 4);
        heard = list.selectionChanged.subscribe([this](int index) { changed.push_back(index); });
    }
    CheckList list{form, "List"};
    std::vector<int> changed;
    Subscription heard;
};

TEST_F(CheckListTest, ItemsKeepTheirOrderAndTheirData) {
    ASSERT_EQ(list.count(), 2);
    EXPECT_EQ(list.items()[0].text, "Name");
    EXPECT_EQ(list.items()[1].itemData, 4);
}

TEST_F(CheckListTest, EachItemIsSelectedByItself) {
    EXPECT_FALSE(list.isSelected(0));
    list.setSelected(0, true);
    list.setSelected(1, true);
    EXPECT_TRUE(list.isSelected(0));
    EXPECT_TRUE(list.isSelected(1));
    list.setSelected(0, false);
    EXPECT_FALSE(list.isSelected(0));
    EXPECT_THAT(changed, ElementsAre(0, 1, 0));
}

TEST_F(CheckListTest, NobodyHearsOfWhatWasSelectedAlready) {
    list.setSelected(1, true);
    list.setSelected(1, true);
    list.setSelected(0, false);
    EXPECT_THAT(changed, ElementsAre(1));
}

TEST_F(CheckListTest, OutsideTheListNothingIsSelected) {
    list.setSelected(-1, true);
    list.setSelected(2, true);
    EXPECT_FALSE(list.isSelected(-1));
    EXPECT_FALSE(list.isSelected(2));
    EXPECT_THAT(changed, IsEmpty());
}

TEST_F(CheckListTest, AClearedListTellsThatItsItemsChanged) {
    int times = 0;
    const auto items = list.itemsChanged.subscribe([&] { ++times; });
    list.clear();
    EXPECT_EQ(list.count(), 0);
    list.addItem("Rule", 7);
    EXPECT_EQ(times, 2);
    EXPECT_FALSE(list.isSelected(0));
}

}  // namespace
}  // namespace pellmark::test
