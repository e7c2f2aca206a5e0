#include "controls/grid/DisplayList.h"

#include <gtest/gtest.h>

namespace pellmark::test {
namespace {

TEST(DisplayListTest, PairsStoredValuesWithShownTexts) {
    const DisplayList list("#70;Inch|#71;Metric");
    ASSERT_EQ(list.items().size(), 2U);
    EXPECT_EQ(list.shownFor("70"), "Inch");
    EXPECT_EQ(list.indexOf("71"), 1);
    EXPECT_EQ(list.indexOf("Inch"), -1);
    EXPECT_EQ(list.text(), "#70;Inch|#71;Metric");
}

TEST(DisplayListTest, APlainItemStoresWhatItShows) {
    const DisplayList list("a|#b|#1;");
    EXPECT_EQ(list.items()[0].stored, "a");
    EXPECT_EQ(list.items()[1].shown, "#b");
    EXPECT_EQ(list.shownFor("1"), "");
    EXPECT_EQ(list.shownFor("missing"), "missing");
}

TEST(DisplayListTest, AnEmptyTextIsNoList) {
    EXPECT_TRUE(DisplayList("").empty());
}

TEST(DisplayListTest, ADividerInAShownTextBecomesABlank) {
    DisplayList list;
    list.add("1", "M6|M8; fine");
    EXPECT_EQ(DisplayList(list.text()).shownFor("1"), "M6 M8; fine");
}

}  // namespace
}  // namespace pellmark::test
