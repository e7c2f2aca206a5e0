#include "win32/table/GridPeer.h"

#include <gmock/gmock.h>

#include "support/win32/PeerHarness.h"

namespace pellmark::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class GridPeerTest : public ::testing::Test, protected PeerHarness {
  protected:
    GridPeerTest() {
        embed();
        list_ = of(grid());
        focus(grid());
    }
    void TearDown() override { EXPECT_THAT(trace.lines(), IsEmpty()); }

    Grid& grid() { return form->grid; }
    HWND list() const { return list_; }
    HWND header() const { return reinterpret_cast<HWND>(::SendMessageW(list_, LVM_GETHEADER, 0, 0)); }
    /// A point inside a data row of the window, counted from 0 at the top of the list.
    POINT inRow(int row, int x = 40) const {
        RECT rect{};
        rect.left = LVIR_BOUNDS;
        ::SendMessageW(list_, LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&rect));
        return {x, (rect.top + rect.bottom) / 2};
    }
    std::vector<int> selected() {
        std::vector<int> rows;
        for (int i = 0; i < grid().selectedRows(); ++i)
            rows.push_back(grid().selectedRow(i));
        return rows;
    }
    std::vector<int> shownSelected() const {
        std::vector<int> rows;
        int row = -1;
        while ((row = static_cast<int>(
                    ::SendMessageW(list_, LVM_GETNEXTITEM, static_cast<WPARAM>(row), LVNI_SELECTED))) >= 0)
            rows.push_back(row + 1);
        return rows;
    }
    std::wstring shownHeading(int column) const {
        wchar_t text[100] = L"";
        LVCOLUMNW shown{};
        shown.mask = LVCF_TEXT;
        shown.pszText = text;
        shown.cchTextMax = 100;
        ::SendMessageW(list_, LVM_GETCOLUMNW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&shown));
        return text;
    }
    std::wstring shownText(int row, int column) const {
        wchar_t text[200] = L"";
        LVITEMW item{};
        item.iSubItem = column;
        item.pszText = text;
        item.cchTextMax = 200;
        ::SendMessageW(list_, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
        return text;
    }
    int shownColumns() const { return static_cast<int>(::SendMessageW(header(), HDM_GETITEMCOUNT, 0, 0)); }
    /// The background near the left edge of a data row as it has been painted.
    COLORREF pixelInRow(int row, int x = 2) const {
        ::UpdateWindow(list_);
        const HDC screen = ::GetDC(list_);
        const COLORREF color = ::GetPixel(screen, x, static_cast<int>(inRow(row).y));
        ::ReleaseDC(list_, screen);
        return color;
    }
    int clientWidth() const {
        RECT client{};
        ::GetClientRect(list_, &client);
        return static_cast<int>(client.right);
    }
    int shownWidth(int column) const {
        return static_cast<int>(::SendMessageW(list_, LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column), 0));
    }
    LONG rowHeight() const {
        RECT rect{};
        rect.left = LVIR_BOUNDS;
        ::SendMessageW(list_, LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&rect));
        return rect.bottom - rect.top;
    }
    LOGFONTW fontInUse() const {
        LOGFONTW description{};
        const auto font = reinterpret_cast<HFONT>(::SendMessageW(list_, WM_GETFONT, 0, 0));
        ::GetObjectW(font, sizeof description, &description);
        return description;
    }
    int topRow() const { return static_cast<int>(::SendMessageW(list_, LVM_GETTOPINDEX, 0, 0)); }
    int divider(int column) const {
        RECT rect{};
        ::SendMessageW(header(), HDM_GETITEMRECT, static_cast<WPARAM>(column),
                       reinterpret_cast<LPARAM>(&rect));
        return static_cast<int>(rect.right);
    }

  private:
    HWND list_ = nullptr;
};

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

// --- selection --------------------------------------------------------------------------------------------

TEST_F(GridPeerTest, AClickMakesTheRowCurrentAndTheOnlySelectedOne) {
    int changes = 0;
    const auto changed = grid().rowChanged.subscribe([&] { ++changes; });
    Person::click(list(), inRow(3));
    EXPECT_EQ(grid().row(), 4);
    EXPECT_THAT(selected(), ElementsAre(4));
    EXPECT_EQ(changes, 1);
}

TEST_F(GridPeerTest, AClickTakesTheColumnUnderTheMouse) {
    Person::click(list(), inRow(3, divider(0) + 20));
    EXPECT_EQ(grid().col(), 2);
}

TEST_F(GridPeerTest, ControlClicksKeepTheOrderInWhichRowsWereSelected) {
    Person::click(list(), inRow(5));
    Person::clickWith(VK_CONTROL, list(), inRow(2));
    Person::clickWith(VK_CONTROL, list(), inRow(8));
    EXPECT_THAT(selected(), ElementsAre(6, 3, 9));
    Person::clickWith(VK_CONTROL, list(), inRow(5));
    Person::clickWith(VK_CONTROL, list(), inRow(1));
    EXPECT_THAT(selected(), ElementsAre(3, 9, 2));
    EXPECT_THAT(shownSelected(), ElementsAre(2, 3, 9));
}

TEST_F(GridPeerTest, AShiftClickSelectsTheRange) {
    Person::click(list(), inRow(2));
    Person::clickWith(VK_SHIFT, list(), inRow(5));
    EXPECT_THAT(selected(), ElementsAre(3, 4, 5, 6));
    EXPECT_EQ(grid().row(), 6);
}

TEST_F(GridPeerTest, AShiftClickCanShrinkTheRangeAndTurnIt) {
    Person::click(list(), inRow(6));
    Person::clickWith(VK_SHIFT, list(), inRow(9));
    Person::clickWith(VK_SHIFT, list(), inRow(7));
    EXPECT_THAT(selected(), ::testing::UnorderedElementsAre(7, 8));
    Person::clickWith(VK_SHIFT, list(), inRow(4));
    EXPECT_THAT(selected(), ::testing::UnorderedElementsAre(5, 6, 7));
    EXPECT_THAT(shownSelected(), ElementsAre(5, 6, 7));
}

TEST_F(GridPeerTest, TheArrowKeysMoveTheCurrentRowAndWithShiftExtendTheSelection) {
    Person::click(list(), inRow(2));
    Person::press({VK_DOWN});
    EXPECT_EQ(grid().row(), 4);
    EXPECT_THAT(selected(), ElementsAre(4));
    Person::press({VK_SHIFT, VK_DOWN});
    EXPECT_THAT(selected(), ElementsAre(4, 5));
}

TEST_F(GridPeerTest, ControlASelectsEveryRow) {
    Person::press({VK_CONTROL, 'A'});
    EXPECT_EQ(grid().selectedRows(), 100);
    EXPECT_EQ(::SendMessageW(list(), LVM_GETSELECTEDCOUNT, 0, 0), 100);
}

TEST_F(GridPeerTest, ASelectionMadeByTheModelIsShown) {
    grid().selectBlock(3, 0, 5, 0);
    EXPECT_THAT(shownSelected(), ElementsAre(3, 4, 5));
    grid().select(9, 1);
    EXPECT_THAT(shownSelected(), ElementsAre(9));
    EXPECT_EQ(::SendMessageW(list(), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED), 8);
    grid().clearSelection();
    EXPECT_THAT(shownSelected(), IsEmpty());
}

TEST_F(GridPeerTest, AfterTheModelHasSelectedARowTheKeyboardGoesOnFromThere) {
    grid().select(20, 1);
    Person::press({VK_DOWN});
    EXPECT_EQ(grid().row(), 21);
    EXPECT_THAT(selected(), ElementsAre(21));
}

TEST_F(GridPeerTest, TypingLeadsToTheNextRowThatBeginsWithIt) {
    grid().setText(30, 1, "Tap M8");
    grid().setText(60, 1, "Taper");
    grid().select(1, 1);
    Person::type("tape");
    EXPECT_EQ(grid().row(), 60);
    EXPECT_THAT(selected(), ElementsAre(60));
}

TEST_F(GridPeerTest, AKeyThatLeadsNowhereLeavesTheSelection) {
    grid().setSelected(4, true);
    grid().setCurrent(1, 1);
    const std::vector<int> before = selected();
    Person::press({VK_UP});
    EXPECT_EQ(selected(), before);
    EXPECT_THAT(shownSelected(), ElementsAre(1, 4));
}

TEST_F(GridPeerTest, AClickOnOneOfSeveralSelectedRowsSelectsThatAlone) {
    grid().selectBlock(3, 0, 6, 0);
    Person::click(list(), inRow(4));
    EXPECT_THAT(selected(), ElementsAre(5));
    EXPECT_THAT(shownSelected(), ElementsAre(5));
}

TEST_F(GridPeerTest, AnArrowAfterAllAreSelectedSelectsOneRow) {
    Person::press({VK_CONTROL, 'A'});
    Person::press({VK_DOWN});
    EXPECT_THAT(selected(), ElementsAre(2));
    EXPECT_THAT(shownSelected(), ElementsAre(2));
}

TEST_F(GridPeerTest, ShiftEndAndShiftHomeTurnTheRangeRoundItsMark) {
    grid().select(50, 1);
    Person::press({VK_SHIFT, VK_END});
    EXPECT_EQ(grid().selectedRows(), 51);
    EXPECT_EQ(grid().row(), 100);
    Person::press({VK_SHIFT, VK_HOME});
    EXPECT_EQ(grid().selectedRows(), 50);
    EXPECT_TRUE(grid().isSelected(1));
    EXPECT_FALSE(grid().isSelected(51));
    EXPECT_EQ(grid().row(), 1);
    EXPECT_EQ(shownSelected().size(), 50U);
}

/// Counts what passes between the component and its list when a person moves the selection.
class GridPeerCountTest : public GridPeerTest {
  protected:
    static constexpr int kRows = 20000;
    GridPeerCountTest() {
        form->fill(kRows);
        grid().select(100, 1);
        Person::pump();
        changed_ = grid().gridChanged.subscribe([this](const GridChange&) { ++counts_.changes; });
        ::SetWindowSubclass(list(), &countStates, 5, reinterpret_cast<DWORD_PTR>(&counts_));
        ::SetWindowSubclass(header(), &countAll, 5, reinterpret_cast<DWORD_PTR>(&counts_));
    }
    struct Counts {
        int changes = 0;      ///< told by the model
        int states = 0;       ///< rows that the component told its list to select or deselect
        int askedHeader = 0;  ///< messages that reached the headings
    };
    Counts countOf(std::initializer_list<WORD> keys) {
        counts_ = {};
        Person::press(keys);
        return counts_;
    }
    static void expectFew(const Counts& counts) {
        EXPECT_LE(counts.changes, 5);
        EXPECT_LE(counts.states, 5);
        EXPECT_LE(counts.askedHeader, 600);  // for the rows that are painted
    }

  private:
    static LRESULT CALLBACK countStates(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                        DWORD_PTR counts) noexcept {
        if (message == LVM_SETITEMSTATE) ++reinterpret_cast<Counts*>(counts)->states;
        return ::DefSubclassProc(window, message, wParam, lParam);
    }
    static LRESULT CALLBACK countAll(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                     DWORD_PTR counts) noexcept {
        ++reinterpret_cast<Counts*>(counts)->askedHeader;
        return ::DefSubclassProc(window, message, wParam, lParam);
    }

    Counts counts_;
    Subscription changed_;
};

TEST_F(GridPeerCountTest, MovingByOneRowOrPageDoesNothingPerRow) {
    expectFew(countOf({VK_DOWN}));
    expectFew(countOf({VK_NEXT}));
    expectFew(countOf({VK_END}));
    expectFew(countOf({VK_HOME}));
}

TEST_F(GridPeerCountTest, SelectingARangeDoesNothingPerRowPassed) {
    expectFew(countOf({VK_SHIFT, VK_END}));
    EXPECT_EQ(grid().selectedRows(), kRows - 99);
    expectFew(countOf({VK_SHIFT, VK_HOME}));
    EXPECT_EQ(grid().selectedRows(), 100);
}

TEST_F(GridPeerCountTest, SelectingEveryRowAndOneAgainDoesNothingPerRow) {
    expectFew(countOf({VK_CONTROL, 'A'}));
    EXPECT_EQ(grid().selectedRows(), kRows);
    expectFew(countOf({VK_DOWN}));
    EXPECT_THAT(selected(), ElementsAre(101));
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

// --- editing ----------------------------------------------------------------------------------------------

class GridPeerEditTest : public GridPeerTest {
  protected:
    GridPeerEditTest() {
        form->tabs.setIndex(1);
        focus(values());
    }
    Grid& values() { return form->values; }
    HWND editor(const wchar_t* className) {
        return ::FindWindowExW(of(values()), nullptr, className, nullptr);
    }
    HWND line() { return editor(L"Edit"); }
    HWND choices() { return editor(L"ComboBox"); }
    POINT inValue(int row) {
        RECT rect{};
        rect.left = LVIR_BOUNDS;
        ::SendMessageW(of(values()), LVM_GETITEMRECT, static_cast<WPARAM>(row),
                       reinterpret_cast<LPARAM>(&rect));
        return {140, (rect.top + rect.bottom) / 2};
    }
};

TEST_F(GridPeerEditTest, F2EditsTheLineAndEnterCommits) {
    values().select(3, 0);
    Person::press({VK_F2});
    ASSERT_NE(line(), nullptr);
    Person::type("deep");
    Person::press({VK_RETURN});
    EXPECT_EQ(values().text(3, 1), "deep");
    EXPECT_EQ(line(), nullptr);
    EXPECT_TRUE(hasFocus(values()));
}

TEST_F(GridPeerEditTest, EscapeLeavesTheCellAsItWas) {
    values().select(2, 0);
    Person::press({VK_F2});
    Person::type("x");
    Person::press({VK_ESCAPE});
    EXPECT_EQ(values().text(2, 1), "H7");
    EXPECT_FALSE(values().isEditing());
    EXPECT_EQ(line(), nullptr);
}

TEST_F(GridPeerEditTest, LosingTheFocusCommits) {
    values().select(2, 0);
    Person::press({VK_F2});
    Person::type("H8");
    Person::click(of(form->name));
    EXPECT_EQ(values().text(2, 1), "H8");
    EXPECT_EQ(line(), nullptr);
}

TEST_F(GridPeerEditTest, ARefusedValueKeepsThePersonInTheCell) {
    const auto veto =
        values().validateEdit.subscribe([](CellEdit& edit) { edit.cancel = edit.text == "bad"; });
    values().select(2, 0);
    Person::press({VK_F2});
    Person::type("bad");
    Person::press({VK_RETURN});
    EXPECT_NE(line(), nullptr);
    EXPECT_TRUE(values().isEditing());
    Person::press({VK_ESCAPE});
    EXPECT_EQ(values().text(2, 1), "H7");
}

TEST_F(GridPeerEditTest, ARefusalThatIsToldInABoxKeepsThePersonInTheCell) {
    int offered = 0;
    const auto veto = values().validateEdit.subscribe([&](CellEdit& edit) {
        ++offered;
        edit.cancel = true;
        const HWND focus = ::GetFocus();
        ::SetFocus(host());  // as a message box does
        ::SetFocus(focus);
    });
    values().select(2, 0);
    Person::press({VK_F2});
    Person::type("bad");
    Person::press({VK_RETURN});
    EXPECT_EQ(offered, 1);
    EXPECT_NE(line(), nullptr);
    EXPECT_TRUE(values().isEditing());
    Person::press({VK_ESCAPE});
    EXPECT_FALSE(values().isEditing());
}

TEST_F(GridPeerEditTest, ACellWithChoicesOpensItsListAtOnce) {
    Person::click(of(values()), inValue(0));
    ASSERT_NE(choices(), nullptr);
    EXPECT_TRUE(::SendMessageW(choices(), CB_GETDROPPEDSTATE, 0, 0));
    EXPECT_EQ(::SendMessageW(choices(), CB_GETCURSEL, 0, 0), 1);
    Person::press({VK_DOWN});
    Person::press({VK_RETURN});
    EXPECT_EQ(values().text(1, 1), "M10");
    EXPECT_EQ(choices(), nullptr);
}

TEST_F(GridPeerEditTest, AltAndDownOpenTheListOfACell) {
    values().select(1, 0);
    Person::press({VK_MENU, VK_DOWN});
    ASSERT_NE(choices(), nullptr);
    EXPECT_TRUE(::SendMessageW(choices(), CB_GETDROPPEDSTATE, 0, 0));
    Person::press({VK_DOWN});
    Person::press({VK_RETURN});
    EXPECT_EQ(values().text(1, 1), "M10");
    EXPECT_TRUE(hasFocus(values()));
}

TEST_F(GridPeerEditTest, EnterOpensTheCellWhereNothingElseIsMeantByIt) {
    form->setDefaultButton(nullptr);
    values().select(1, 0);
    Person::press({VK_RETURN});
    ASSERT_NE(choices(), nullptr);
    Person::press({VK_ESCAPE});
    EXPECT_EQ(values().text(1, 1), "M8");
    const auto taken = values().keyPressed.subscribe([](KeyPress& key) { key.handled = true; });
    Person::press({VK_RETURN});
    EXPECT_EQ(choices(), nullptr);
}

TEST_F(GridPeerEditTest, AChoiceMadeWithTheMouseIsCommitted) {
    Person::click(of(values()), inValue(0));
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    ASSERT_TRUE(::GetComboBoxInfo(choices(), &info));
    Person::click(info.hwndList, {20, 5});
    EXPECT_TRUE(Person::waitUntil([&] { return choices() == nullptr; }));
    EXPECT_EQ(values().text(1, 1), "M6");
}

TEST_F(GridPeerEditTest, ADoubleClickOnAnEditableLineEditsIt) {
    int doubleClicks = 0;
    const auto clicked = values().doubleClicked.subscribe([&](int) { ++doubleClicks; });
    Person::doubleClick(of(values()), inValue(2));
    EXPECT_NE(line(), nullptr);
    EXPECT_EQ(doubleClicks, 0);
}

TEST_F(GridPeerEditTest, AColumnThatIsNotEditableStaysShut) {
    values().setColEditable(1, false);
    values().select(2, 0);
    Person::press({VK_F2});
    EXPECT_EQ(line(), nullptr);
}

}  // namespace
}  // namespace pellmark::test
