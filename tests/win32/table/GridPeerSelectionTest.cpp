#include "win32/table/GridPeer.h"

#include "support/win32/GridPeerFixture.h"

namespace pellmark::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using GridPeerSelectionTest = GridPeerFixture;

TEST_F(GridPeerSelectionTest, AClickMakesTheRowCurrentAndTheOnlySelectedOne) {
    int changes = 0;
    const auto changed = grid().rowChanged.subscribe([&] { ++changes; });
    Person::click(list(), inRow(3));
    EXPECT_EQ(grid().row(), 4);
    EXPECT_THAT(selected(), ElementsAre(4));
    EXPECT_EQ(changes, 1);
}

TEST_F(GridPeerSelectionTest, AClickTakesTheColumnUnderTheMouse) {
    Person::click(list(), inRow(3, divider(0) + 20));
    EXPECT_EQ(grid().col(), 2);
}

TEST_F(GridPeerSelectionTest, ControlClicksKeepTheOrderInWhichRowsWereSelected) {
    Person::click(list(), inRow(5));
    Person::clickWith(VK_CONTROL, list(), inRow(2));
    Person::clickWith(VK_CONTROL, list(), inRow(8));
    EXPECT_THAT(selected(), ElementsAre(6, 3, 9));
    Person::clickWith(VK_CONTROL, list(), inRow(5));
    Person::clickWith(VK_CONTROL, list(), inRow(1));
    EXPECT_THAT(selected(), ElementsAre(3, 9, 2));
    EXPECT_THAT(shownSelected(), ElementsAre(2, 3, 9));
}

TEST_F(GridPeerSelectionTest, AShiftClickSelectsTheRange) {
    Person::click(list(), inRow(2));
    Person::clickWith(VK_SHIFT, list(), inRow(5));
    EXPECT_THAT(selected(), ElementsAre(3, 4, 5, 6));
    EXPECT_EQ(grid().row(), 6);
}

TEST_F(GridPeerSelectionTest, AShiftClickCanShrinkTheRangeAndTurnIt) {
    Person::click(list(), inRow(6));
    Person::clickWith(VK_SHIFT, list(), inRow(9));
    Person::clickWith(VK_SHIFT, list(), inRow(7));
    EXPECT_THAT(selected(), ::testing::UnorderedElementsAre(7, 8));
    Person::clickWith(VK_SHIFT, list(), inRow(4));
    EXPECT_THAT(selected(), ::testing::UnorderedElementsAre(5, 6, 7));
    EXPECT_THAT(shownSelected(), ElementsAre(5, 6, 7));
}

TEST_F(GridPeerSelectionTest, TheArrowKeysMoveTheCurrentRowAndWithShiftExtendTheSelection) {
    Person::click(list(), inRow(2));
    Person::press({VK_DOWN});
    EXPECT_EQ(grid().row(), 4);
    EXPECT_THAT(selected(), ElementsAre(4));
    Person::press({VK_SHIFT, VK_DOWN});
    EXPECT_THAT(selected(), ElementsAre(4, 5));
}

TEST_F(GridPeerSelectionTest, ShiftAndArrowsShrinkTheRangeAndTurnItRoundItsMark) {
    Person::click(list(), inRow(2));
    Person::press({VK_SHIFT, VK_DOWN});
    Person::press({VK_SHIFT, VK_UP});
    EXPECT_THAT(shownSelected(), ElementsAre(3));
    Person::press({VK_SHIFT, VK_UP});
    EXPECT_THAT(shownSelected(), ElementsAre(2, 3));
    EXPECT_THAT(selected(), ::testing::UnorderedElementsAre(2, 3));
    EXPECT_EQ(grid().row(), 2);
    Person::press({VK_DOWN});
    EXPECT_THAT(selected(), ElementsAre(3)) << "the keyboard goes on from the row that the range led to";
}

TEST_F(GridPeerSelectionTest, ShiftAndAnArrowAtTheEndOfTheListKeepTheRange) {
    grid().select(2, 1);
    for (int i = 0; i < 3; ++i)
        Person::press({VK_SHIFT, VK_UP});
    EXPECT_EQ(grid().row(), 1);
    EXPECT_THAT(shownSelected(), ElementsAre(1, 2));
    grid().select(99, 1);
    for (int i = 0; i < 3; ++i)
        Person::press({VK_SHIFT, VK_DOWN});
    EXPECT_EQ(grid().row(), 100);
    EXPECT_THAT(shownSelected(), ElementsAre(99, 100));
}

TEST_F(GridPeerSelectionTest, ShiftAndAnArrowLeaveOnlyTheRangeOfWhatWasSelected) {
    Person::click(list(), inRow(2));
    Person::clickWith(VK_CONTROL, list(), inRow(8));
    Person::press({VK_SHIFT, VK_DOWN});
    EXPECT_THAT(shownSelected(), ElementsAre(9, 10));
    EXPECT_THAT(selected(), ::testing::UnorderedElementsAre(9, 10));
}

TEST_F(GridPeerSelectionTest, ShiftAndAnArrowBringTheRowTheyLeadToIntoView) {
    const auto page = static_cast<int>(::SendMessageW(list(), LVM_GETCOUNTPERPAGE, 0, 0));
    Person::click(list(), inRow(page - 1));
    Person::press({VK_SHIFT, VK_DOWN});
    EXPECT_EQ(grid().row(), page + 1);
    EXPECT_EQ(::SendMessageW(list(), LVM_GETTOPINDEX, 0, 0), 1);
}

TEST_F(GridPeerSelectionTest, ControlASelectsEveryRow) {
    Person::press({VK_CONTROL, 'A'});
    EXPECT_EQ(grid().selectedRows(), 100);
    EXPECT_EQ(::SendMessageW(list(), LVM_GETSELECTEDCOUNT, 0, 0), 100);
}

TEST_F(GridPeerSelectionTest, ASelectionMadeByTheModelIsShown) {
    grid().selectBlock(3, 0, 5, 0);
    EXPECT_THAT(shownSelected(), ElementsAre(3, 4, 5));
    grid().select(9, 1);
    EXPECT_THAT(shownSelected(), ElementsAre(9));
    EXPECT_EQ(::SendMessageW(list(), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED), 8);
    grid().clearSelection();
    EXPECT_THAT(shownSelected(), IsEmpty());
}

TEST_F(GridPeerSelectionTest, AfterTheModelHasSelectedARowTheKeyboardGoesOnFromThere) {
    grid().select(20, 1);
    Person::press({VK_DOWN});
    EXPECT_EQ(grid().row(), 21);
    EXPECT_THAT(selected(), ElementsAre(21));
}

TEST_F(GridPeerSelectionTest, TypingLeadsToTheNextRowThatBeginsWithIt) {
    grid().setText(30, 1, "Tap M8");
    grid().setText(60, 1, "Taper");
    grid().select(1, 1);
    Person::type("tape");
    EXPECT_EQ(grid().row(), 60);
    EXPECT_THAT(selected(), ElementsAre(60));
}

TEST_F(GridPeerSelectionTest, AKeyThatLeadsNowhereLeavesTheSelection) {
    grid().setSelected(4, true);
    grid().setCurrent(1, 1);
    const std::vector<int> before = selected();
    Person::press({VK_UP});
    EXPECT_EQ(selected(), before);
    EXPECT_THAT(shownSelected(), ElementsAre(1, 4));
}

TEST_F(GridPeerSelectionTest, AClickOnOneOfSeveralSelectedRowsSelectsThatAlone) {
    grid().selectBlock(3, 0, 6, 0);
    Person::click(list(), inRow(4));
    EXPECT_THAT(selected(), ElementsAre(5));
    EXPECT_THAT(shownSelected(), ElementsAre(5));
}

TEST_F(GridPeerSelectionTest, AnArrowAfterAllAreSelectedSelectsOneRow) {
    Person::press({VK_CONTROL, 'A'});
    Person::press({VK_DOWN});
    EXPECT_THAT(selected(), ElementsAre(2));
    EXPECT_THAT(shownSelected(), ElementsAre(2));
}

TEST_F(GridPeerSelectionTest, ShiftEndAndShiftHomeTurnTheRangeRoundItsMark) {
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
class GridPeerCountTest : public GridPeerFixture {
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

TEST_F(GridPeerCountTest, SelectingOneRowMoreOrLessDoesNothingPerRow) {
    expectFew(countOf({VK_SHIFT, VK_DOWN}));
    EXPECT_THAT(selected(), ElementsAre(100, 101));
    expectFew(countOf({VK_SHIFT, VK_DOWN}));
    expectFew(countOf({VK_SHIFT, VK_UP}));
    EXPECT_THAT(selected(), ElementsAre(100, 101));
}

TEST_F(GridPeerCountTest, SelectingEveryRowAndOneAgainDoesNothingPerRow) {
    expectFew(countOf({VK_CONTROL, 'A'}));
    EXPECT_EQ(grid().selectedRows(), kRows);
    expectFew(countOf({VK_DOWN}));
    EXPECT_THAT(selected(), ElementsAre(101));
}

}  // namespace
}  // namespace pellmark::test
