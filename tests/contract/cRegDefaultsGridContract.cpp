#include <gmock/gmock.h>

#include <algorithm>

#include "contract/RegistryContract.h"

// What is stored of a grid and how it comes back: widths, order and visibility of its columns, and its font.
namespace pellmark::test {

using ::testing::ElementsAre;

TEST_P(CRegDefaultsContract, AGridsColumnsAreNumbersUnderTheirKeys) {
    grid.setColWidth(1, 1234);
    grid.setColPosition(2, 0);
    grid.setColHidden(0, true);
    layouts.SaveVSDataGrid(grid);
    EXPECT_EQ(number(kGrid, "_Name-Width"), 1234);
    EXPECT_EQ(number(kGrid, "_Unit-Position"), 0);
    EXPECT_EQ(number(kGrid, "_Id-Position"), 1);
    EXPECT_EQ(number(kGrid, "_Id-Hidden"), -1);
    EXPECT_EQ(number(kGrid, "_Name-Hidden"), 0);
}

TEST_P(CRegDefaultsContract, AGridsFontIsNameAndSizeAsTextAndFlagsAsNumbers) {
    grid.setFont({"Arial", 9.75, true, false, true, false});
    layouts.SaveVSDataGrid(grid);
    EXPECT_EQ(text(kGrid, "FontName"), "Arial");
    EXPECT_EQ(text(kGrid, "FontSize"), "9.75");
    EXPECT_EQ(number(kGrid, "FontBold"), -1);
    EXPECT_EQ(number(kGrid, "FontItalic"), 0);
    EXPECT_EQ(number(kGrid, "FontStrikethrough"), -1);
    EXPECT_EQ(number(kGrid, "FontUnderline"), 0);
    grid.setFont({"", 12, false, true, false, true});
    layouts.RestoreVSDataGrid(grid);
    EXPECT_EQ(grid.font(), (Font{"Arial", 9.75, true, false, true, false}));
}

TEST_P(CRegDefaultsContract, AGridComesBackAsItWasLeft) {
    grid.setColWidth(1, 1234);
    grid.setColPosition(2, 0);
    grid.setColHidden(0, true);
    layouts.SaveVSDataGrid(grid);
    grid.setColWidth(1, 1);
    grid.setColPosition(2, 2);
    grid.setColHidden(0, false);
    grid.setColHidden(1, true);
    layouts.RestoreVSDataGrid(grid);
    EXPECT_EQ(grid.colWidth(1), 1234);
    EXPECT_THAT(grid.displayOrder(), ElementsAre(2, 0, 1));
    EXPECT_TRUE(grid.colHidden(0));
    EXPECT_FALSE(grid.colHidden(1));
    EXPECT_TRUE(grid.widthsChosen());
}

TEST_P(CRegDefaultsContract, EveryOrderOfTheColumnsIsRestored) {
    std::vector<int> order{0, 1, 2};
    do {
        for (int position = 0; position < 3; ++position)
            grid.setColPosition(order[static_cast<std::size_t>(position)], position);
        layouts.SaveVSDataGrid(grid);
        for (int col = 0; col < 3; ++col)
            grid.setColPosition(col, col);
        layouts.RestoreVSDataGrid(grid);
        EXPECT_EQ(grid.displayOrder(), order);
    } while (std::next_permutation(order.begin(), order.end()));
}

TEST_P(CRegDefaultsContract, ALayoutOfAnOlderSetOfColumnsIsRestoredByKey) {
    grid.setColWidth(1, 1234);
    grid.setColHidden(2, true);
    grid.setColPosition(2, 0);
    layouts.SaveVSDataGrid(grid);
    Form form2(desktop, "FrmSample");
    Grid later(form2, "VSFG");
    later.setHeadings("Rule|Unit|Name|Note");
    const char* keys[] = {"_Rule", "_Unit", "_Name", ""};
    for (int col = 0; col < 4; ++col)
        later.setColKey(col, keys[col]);
    layouts.RestoreVSDataGrid(later);
    EXPECT_EQ(later.colWidth(2), 1234);
    EXPECT_EQ(later.colWidth(0), GridColumn::kDefaultWidth);
    EXPECT_TRUE(later.colHidden(1));
    EXPECT_FALSE(later.colHidden(0));
    EXPECT_EQ(later.colPosition(1), 0);
    EXPECT_LT(later.colPosition(1), later.colPosition(2));
}

TEST_P(CRegDefaultsContract, AColumnWithoutAKeyHasNoLayout) {
    grid.setColKey(0, "");
    layouts.SaveVSDataGrid(grid);
    EXPECT_NE(stored(kGrid, "-Width").outcome, Registry::kSuccess);
    EXPECT_EQ(number(kGrid, "_Unit-Position"), 2);
}

TEST_P(CRegDefaultsContract, ALayoutWithTheGridsOwnWidthsIsNobodysChoice) {
    grid.setColHidden(2, true);
    layouts.SaveVSDataGrid(grid);
    grid.setColHidden(2, false);
    layouts.RestoreVSDataGrid(grid);
    EXPECT_TRUE(grid.colHidden(2));
    EXPECT_FALSE(grid.widthsChosen());
}

TEST_P(CRegDefaultsContract, TheWidthOfAFixedColumnIsNobodysChoice) {
    grid.setFixedCols(1);
    grid.setColWidth(0, 600);
    layouts.SaveVSDataGrid(grid);
    grid.setColWidth(0, 750);
    layouts.RestoreVSDataGrid(grid);
    EXPECT_EQ(grid.colWidth(0), 600);
    EXPECT_FALSE(grid.widthsChosen());
}

TEST_P(CRegDefaultsContract, AWidthOrFontThatNoScreenCouldShowCountsAsMissing) {
    grid.setFont({"Arial", 9, false, false, false, false});
    layouts.SaveVSDataGrid(grid);
    storeNumber(kGrid, "_Name-Width", -15);
    storeNumber(kGrid, "_Unit-Width", 2147483647);
    storeText(kGrid, "FontSize", "-8");
    storeText(kGrid, "FontBold", "heavy");
    layouts.RestoreVSDataGrid(grid);
    EXPECT_EQ(grid.colWidth(1), GridColumn::kDefaultWidth);
    EXPECT_EQ(grid.colWidth(2), GridColumn::kDefaultWidth);
    EXPECT_EQ(grid.font().size, 9);
    EXPECT_FALSE(grid.font().bold);
    EXPECT_EQ(trace.lines().size(), 4U);
}

TEST_P(CRegDefaultsContract, AFontSizeMayBeANumberOrHaveADecimalComma) {
    layouts.SaveVSDataGrid(grid);
    storeNumber(kGrid, "FontSize", 11);
    layouts.RestoreVSDataGrid(grid);
    EXPECT_EQ(grid.font().size, 11);
    storeText(kGrid, "FontSize", "8,25");
    layouts.RestoreVSDataGrid(grid);
    EXPECT_EQ(grid.font().size, 8.25);
}

TEST_P(CRegDefaultsContract, ThePeerHearsOnceOfARestoredGrid) {
    grid.setColWidth(1, 1234);
    grid.setColPosition(2, 0);
    layouts.SaveVSDataGrid(grid);
    grid.setColWidth(1, 1);
    grid.setColPosition(2, 2);
    int changes = 0;
    const auto heard = grid.gridChanged.subscribe([&](const GridChange&) { ++changes; });
    layouts.RestoreVSDataGrid(grid);
    EXPECT_EQ(changes, 1);
    layouts.RestoreVSDataGrid(grid);
    EXPECT_EQ(changes, 1) << "nothing is different the second time";
}

}  // namespace pellmark::test
