#include "win32/table/GridPeer.h"

#include "support/win32/GridPeerFixture.h"

namespace pellmark::test {
namespace {

using ::testing::ElementsAre;

using GridPeerTest = GridPeerFixture;

// --- what is shown ----------------------------------------------------------------------------------------

TEST_F(GridPeerTest, TheWindowHasOneItemPerDataRowAndShowsDisplayTexts) {
    EXPECT_EQ(::SendMessageW(list(), LVM_GETITEMCOUNT, 0, 0), 100);
    EXPECT_EQ(shownText(0, 0), L"Drill M2 no. 0");
    EXPECT_EQ(shownText(1, 1), L"Metric");
}

TEST_F(GridPeerTest, HiddenColumnsAreAbsentAndOthersStandInDisplayOrder) {
    EXPECT_EQ(shownColumns(), 4);
    grid().setColPosition(4, 0);
    grid().setColHidden(2, true);
    EXPECT_EQ(shownColumns(), 3);
    EXPECT_EQ(shownHeading(0), L"Description");
    EXPECT_EQ(shownHeading(1), L"Name");
}

TEST_F(GridPeerTest, RowsFollowTheModel) {
    form->fill(7);
    EXPECT_EQ(::SendMessageW(list(), LVM_GETITEMCOUNT, 0, 0), 7);
    grid().addRow();
    EXPECT_EQ(::SendMessageW(list(), LVM_GETITEMCOUNT, 0, 0), 8);
    grid().bind(nullptr);
    EXPECT_EQ(::SendMessageW(list(), LVM_GETITEMCOUNT, 0, 0), 0);
}

TEST_F(GridPeerTest, AMillionRowsAreReadOnlyWhereTheyAreShown) {
    class Counting : public RecordSet {
      public:
        const std::vector<std::string>& fields() const override { return fields_; }
        std::size_t count() override { return 1000000; }
        std::string text(std::size_t, std::size_t) override {
            ++reads;
            return "x";
        }
        std::optional<std::vector<Guid>> keys() override { return std::nullopt; }
        int reads = 0;

      private:
        std::vector<std::string> fields_{"_Name"};
    };
    const auto records = std::make_shared<Counting>();
    grid().bind(records);
    ::UpdateWindow(list());
    const auto page = static_cast<int>(::SendMessageW(list(), LVM_GETCOUNTPERPAGE, 0, 0));
    EXPECT_GT(records->reads, 0);
    EXPECT_LE(records->reads, 4 * (page + 2));
    records->reads = 0;
    grid().showCell(900000, 1);
    ::UpdateWindow(list());
    EXPECT_GT(topRow(), 800000);
    EXPECT_LE(records->reads, 4 * (page + 2));
}

TEST_F(GridPeerTest, ShowCellScrollsTheRowIntoView) {
    grid().showCell(90, 1);
    EXPECT_GT(topRow(), 40);
}

TEST_F(GridPeerTest, ARowThatLosesItsSelectionIsPaintedAnewToItsLeftEdge) {
    Person::click(list(), inRow(3));
    ASSERT_EQ(pixelInRow(3, 1), ::GetSysColor(COLOR_HIGHLIGHT));
    Person::click(list(), inRow(5));
    EXPECT_EQ(pixelInRow(3, 1), ::GetSysColor(COLOR_WINDOW));
    EXPECT_EQ(pixelInRow(5, 1), ::GetSysColor(COLOR_HIGHLIGHT));
}

TEST_F(GridPeerTest, AListThatBecomesShorterThanWhereItStoodShowsItsRows) {
    grid().showCell(95, 1);
    form->fill(5);
    EXPECT_EQ(topRow(), 0);
}

TEST_F(GridPeerTest, AHiddenGridStaysHiddenWhenItsColumnsChange) {
    grid().setVisible(false);
    grid().setColWidth(1, 900);
    grid().bind(nullptr);
    EXPECT_FALSE(::IsWindowVisible(list()));
}

TEST_F(GridPeerTest, CellColoursAndTheTwoSelectionsAreDrawn) {
    form->fill(3);
    grid().clearSelection();
    grid().setBackColor(2, 1, 0x00FFFF);
    EXPECT_EQ(pixelInRow(1), 0x00FFFFU);
    EXPECT_EQ(pixelInRow(2), ::GetSysColor(COLOR_WINDOW));
    grid().setSelected(3, true);
    EXPECT_EQ(pixelInRow(2), ::GetSysColor(COLOR_HIGHLIGHT));
    grid().setActiveLook(false);
    const COLORREF pale = pixelInRow(2);
    EXPECT_NE(pale, ::GetSysColor(COLOR_HIGHLIGHT));
    EXPECT_NE(pale, ::GetSysColor(COLOR_WINDOW));
}

TEST_F(GridPeerTest, ChangesAreHeardOnceWhileRedrawingIsOff) {
    {
        const Grid::RedrawOff off(grid());
        form->fill(3);
        EXPECT_EQ(::SendMessageW(list(), LVM_GETITEMCOUNT, 0, 0), 100);
    }
    EXPECT_EQ(::SendMessageW(list(), LVM_GETITEMCOUNT, 0, 0), 3);
}

TEST_F(GridPeerTest, PaintNowPaintsBeforeItReturns) {
    Person::pump();
    grid().setText(1, 1, "changed");
    ASSERT_TRUE(::GetUpdateRect(list(), nullptr, FALSE));
    grid().paintNow();
    EXPECT_FALSE(::GetUpdateRect(list(), nullptr, FALSE));
}

// --- the last column and the font -------------------------------------------------------------------------

TEST_F(GridPeerTest, TheLastColumnReachesTheEdgeWhileNobodyHasChosenWidths) {
    form->fill(3);
    EXPECT_EQ(divider(3), clientWidth());
    EXPECT_EQ(grid().colWidth(4), 2600) << "the model keeps its width";
    EXPECT_EQ(shownWidth(0), 160);
}

TEST_F(GridPeerTest, TheLastColumnFollowsTheWindowAndTheScrollBar) {
    form->fill(3);
    ::MoveWindow(reinterpret_cast<HWND>(form->handle()), 0, 0, 800, 500, TRUE);
    const int wide = clientWidth();
    EXPECT_EQ(divider(3), wide);
    form->fill(100);
    ::UpdateWindow(list());
    EXPECT_LT(clientWidth(), wide);
    EXPECT_EQ(divider(3), clientWidth());
    ::MoveWindow(reinterpret_cast<HWND>(form->handle()), 0, 0, 400, 500, TRUE);
    EXPECT_EQ(shownWidth(3), 173) << "never narrower than the model's";
}

TEST_F(GridPeerTest, WhicheverColumnIsLastIsStretched) {
    form->fill(3);
    grid().setColHidden(4, true);
    EXPECT_EQ(shownWidth(2), clientWidth() - divider(1));
    grid().setColHidden(4, false);
    grid().setColPosition(4, 1);
    EXPECT_EQ(shownWidth(0), 173);
    EXPECT_EQ(divider(3), clientWidth());
}

TEST_F(GridPeerTest, ARestoredLayoutIsShownAsItIs) {
    grid().setWidthsChosen(true);
    EXPECT_EQ(shownWidth(3), 173);
    grid().setWidthsChosen(false);
    EXPECT_EQ(divider(3), clientWidth());
}

TEST_F(GridPeerTest, AResizedColumnLeavesTheLastOneAsItWasDrawn) {
    const int drawn = shownWidth(3);
    ASSERT_GT(drawn, 173);
    Person::drag(header(), {divider(0), 8}, {divider(0) + 20, 8});
    EXPECT_NEAR(grid().colWidth(1), 2700, 60);
    EXPECT_EQ(shownWidth(3), drawn);
    EXPECT_EQ(grid().colWidth(4), drawn * 15);
    EXPECT_TRUE(grid().widthsChosen());
    ::MoveWindow(reinterpret_cast<HWND>(form->handle()), 0, 0, 900, 500, TRUE);
    EXPECT_EQ(shownWidth(3), drawn);
}

TEST_F(GridPeerTest, TheStretchedColumnItselfIsResizedFromWhereItWasDrawn) {
    const int drawn = shownWidth(3);
    Person::drag(header(), {divider(3) - 1, 8}, {divider(3) - 51, 8});
    EXPECT_NEAR(grid().colWidth(4), (drawn - 50) * 15, 60);
    EXPECT_EQ(shownWidth(3) * 15, grid().colWidth(4));
}

TEST_F(GridPeerTest, AMovedColumnLeavesTheLastOneAsItWasDrawn) {
    const int drawn = shownWidth(3);
    Person::drag(header(), {divider(0) / 2, 8}, {divider(1) + 20, 8});
    EXPECT_EQ(grid().colWidth(4), drawn * 15);
    EXPECT_EQ(shownWidth(3), drawn);
}

TEST_F(GridPeerTest, RowsAreAsHighAsTheirFont) {
    const LONG before = rowHeight();
    grid().setFont({"", 24, false, false, false, false});
    EXPECT_GT(rowHeight(), before + 10);
    EXPECT_EQ(fontInUse().lfHeight, -32) << "24 points at 96 dots per inch";
    grid().setFont({});
    EXPECT_EQ(rowHeight(), before);
}

TEST_F(GridPeerTest, AFractionOfAPointCounts) {
    grid().setFont({"", 9.75, false, false, false, false});
    EXPECT_EQ(fontInUse().lfHeight, -13);
    grid().setFont({"", 9, false, false, false, false});
    EXPECT_EQ(fontInUse().lfHeight, -12);
}

TEST_F(GridPeerTest, AFontHasItsFaceAndItsStyles) {
    const Font wanted{"Liberation Serif", 12, true, true, true, true};
    grid().setFont(wanted);
    const LOGFONTW shown = fontInUse();
    EXPECT_STREQ(shown.lfFaceName, L"Liberation Serif");
    EXPECT_EQ(shown.lfWeight, FW_BOLD);
    EXPECT_TRUE(shown.lfItalic);
    EXPECT_TRUE(shown.lfStrikeOut);
    EXPECT_TRUE(shown.lfUnderline);
    form->fill(3);
    EXPECT_STREQ(fontInUse().lfFaceName, L"Liberation Serif") << "a new list keeps it";
}

TEST_F(GridPeerTest, AFontFollowsTheResolution) {
    grid().setFont({"", 24, false, false, false, false});
    desktop.overrideDpi(192);
    ::SendMessageW(reinterpret_cast<HWND>(form->handle()), 0x02E3, 0, 0);
    EXPECT_EQ(fontInUse().lfHeight, -64);
}

// --- the other events -------------------------------------------------------------------------------------

TEST_F(GridPeerTest, ADoubleClickTellsItsRow) {
    std::vector<int> rows;
    const auto clicked = grid().doubleClicked.subscribe([&](int row) { rows.push_back(row); });
    Person::doubleClick(list(), inRow(3));
    EXPECT_THAT(rows, ElementsAre(4));
}

TEST_F(GridPeerTest, ADoubleClickOnAHeadingIsNoDataRow) {
    std::vector<int> rows;
    const auto clicked = grid().doubleClicked.subscribe([&](int row) { rows.push_back(row); });
    Person::doubleClick(header(), {40, 8});
    EXPECT_THAT(rows, ElementsAre(0));
}

TEST_F(GridPeerTest, ADoubleClickBelowTheRowsTellsNone) {
    form->fill(3);
    std::vector<int> rows;
    const auto clicked = grid().doubleClicked.subscribe([&](int row) { rows.push_back(row); });
    Person::doubleClick(list(), {40, 200});
    EXPECT_THAT(rows, ElementsAre(-1));
}

TEST_F(GridPeerTest, TheRightButtonSelectsTheRowUnderItAndThenTellsOfIt) {
    std::vector<int> rowsThen;
    std::vector<MousePress> presses;
    const auto pressed = grid().mousePressed.subscribe([&](const MousePress& press) {
        presses.push_back(press);
        rowsThen.push_back(grid().row());
    });
    Person::click(list(), inRow(6), true);
    ASSERT_EQ(presses.size(), 1U);
    EXPECT_EQ(presses[0].button, MouseButton::Right);
    EXPECT_EQ(presses[0].row, 7);
    EXPECT_EQ(presses[0].col, 1);
    EXPECT_THAT(rowsThen, ElementsAre(7));
    EXPECT_THAT(selected(), ElementsAre(7));
    EXPECT_NEAR(presses[0].at.left, 40 * 15, 15);
}

TEST_F(GridPeerTest, TheRightButtonKeepsASelectionThatHoldsTheRow) {
    grid().selectBlock(3, 0, 6, 0);
    Person::click(list(), inRow(3), true);
    EXPECT_THAT(selected(), ElementsAre(3, 4, 5, 6));
    EXPECT_EQ(grid().row(), 4);
}

TEST_F(GridPeerTest, ARightClickOnAnEmptyGridIsToldToo) {
    form->fill(0);
    std::vector<int> rows;
    const auto pressed =
        grid().mousePressed.subscribe([&](const MousePress& press) { rows.push_back(press.row); });
    Person::click(list(), {40, 100}, true);
    EXPECT_THAT(rows, ElementsAre(-1));
}

TEST_F(GridPeerTest, TheMenuKeyAsksForTheContextMenu) {
    int asked = 0;
    const auto menu = grid().contextMenuRequested.subscribe([&] { ++asked; });
    Person::press({VK_APPS});
    Person::press({VK_SHIFT, VK_F10});
    EXPECT_EQ(asked, 2);
}

TEST_F(GridPeerTest, TheDeleteKeyIsOfferedToTheHandlers) {
    std::vector<int> keys;
    const auto pressed = grid().keyPressed.subscribe([&](KeyPress& press) {
        keys.push_back(press.keyCode);
        press.handled = true;
    });
    Person::press({VK_DELETE});
    EXPECT_THAT(keys, ElementsAre(KeyPress::kDelete));
}

TEST_F(GridPeerTest, ArrivingWithTheKeyboardRaisesEntered) {
    ::SetFocus(of(form->ok));
    int entered = 0;
    const auto arrived = grid().entered.subscribe([&] { ++entered; });
    grid().setFocus();
    EXPECT_EQ(entered, 1);
    EXPECT_TRUE(hasFocus(grid()));
}

// --- headings ---------------------------------------------------------------------------------------------

TEST_F(GridPeerTest, DraggingADividerResizesTheColumn) {
    int resized = -1;
    const auto heard = grid().colResized.subscribe([&](int col) { resized = col; });
    const Twips before = grid().colWidth(1);
    Person::drag(header(), {divider(0), 8}, {divider(0) + 30, 8});
    EXPECT_EQ(resized, 1);
    EXPECT_NEAR(grid().colWidth(1), before + 30 * 15, 60);
}

TEST_F(GridPeerTest, DraggingAHeadingMovesTheColumn) {
    int moved = -1;
    const auto heard = grid().colMoved.subscribe([&](int col) { moved = col; });
    Person::drag(header(), {40, 8}, {divider(2) - 20, 8});
    EXPECT_EQ(moved, 1);
    EXPECT_THAT(grid().displayOrder(), ElementsAre(0, 2, 3, 1, 4));
    EXPECT_EQ(shownHeading(2), L"Name");
}

TEST_F(GridPeerTest, ADoubleClickOnADividerFitsTheColumnToWhatIsShown) {
    grid().setColWidth(1, 300);
    Person::doubleClick(header(), {divider(0), 8});
    EXPECT_GT(grid().colWidth(1), 1000);
    EXPECT_LT(grid().colWidth(1), 3000);
}

TEST_F(GridPeerTest, AFittedColumnLeavesItsOwnEdgeInTheWindow) {
    grid().setText(1, 1, std::string(2000, 'x'));
    Person::doubleClick(header(), {divider(0), 8});
    EXPECT_GT(divider(0), clientWidth() / 2);
    EXPECT_LT(divider(0), clientWidth());
}

}  // namespace
}  // namespace pellmark::test
