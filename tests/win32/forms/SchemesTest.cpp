#include <gmock/gmock.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/Contrast.h"
#include "support/win32/PeerHarness.h"
#include "support/win32/Picture.h"
#include "support/win32/SystemColors.h"

namespace pellmark::test {
namespace {

using ::testing::IsEmpty;

/// What is written on the sample form, seen in other colours than those that it was made in.
class SchemesTest : public testing::TestWithParam<const char*>, protected PeerHarness {
  protected:
    SchemesTest() {
        form->grid.setForeColor(2, 1, kRed);
        form->grid.setForeColor(3, 1, kGreen);
        form->grid.setForeColor(4, 1, kBlack);
        form->grid.setItalic(5, 1, true);
        for (int col = 0; col < form->grid.cols(); ++col) {
            form->grid.setBackColor(6, col, 0xFF0000);
            form->grid.setForeColor(6, col, 0xFFFFFF);
            form->grid.setBackColor(7, col, 0x8080FF);
            form->grid.setForeColor(7, col, kBlack);
        }
        form->unit.setIndex(1);
        form->name.setText("Tap M8");
        form->description.setText("Spot drill, tap and chamfer");
    }
    void TearDown() override { EXPECT_THAT(trace.lines(), IsEmpty()); }

    static SystemColors::Scheme scheme() {
        return std::string(GetParam()) == "dark" ? SystemColors::dark() : SystemColors::highContrast();
    }
    void change() {
        colors_.emplace(scheme());
        Person::pump();
    }
    /// Of a data row, counted from 1, without the lines around its first cell.
    Picture firstCell(int row) const {
        const HWND list = of(form->grid);
        RECT cell{};
        cell.left = LVIR_BOUNDS;
        ::SendMessageW(list, LVM_GETITEMRECT, static_cast<WPARAM>(row - 1), reinterpret_cast<LPARAM>(&cell));
        return Picture(list, {1, cell.top + 1, 100, cell.bottom - 2});
    }
    double contrastIn(Control& control) const { return Picture(of(control)).contrast(); }

  private:
    std::optional<SystemColors> colors_;
};

TEST_P(SchemesTest, EveryRowOfAGridCanBeRead) {
    embed();
    change();
    for (int row = 1; row <= 8; ++row)
        EXPECT_GE(firstCell(row).contrast(), kReadableContrast) << "row " << row;
    EXPECT_EQ(firstCell(4).background(), ::GetSysColor(COLOR_WINDOW));
}

TEST_P(SchemesTest, TheSelectionCanBeReadInBothItsLooks) {
    form->grid.clearSelection();
    for (const int row : {2, 3, 6})
        form->grid.setSelected(row, true);
    embed();
    change();
    EXPECT_EQ(firstCell(2).background(), ::GetSysColor(COLOR_HIGHLIGHT));
    for (const int row : {2, 3, 6})
        EXPECT_GE(firstCell(row).contrast(), kReadableContrast) << "row " << row;
    form->grid.setActiveLook(false);
    EXPECT_NE(firstCell(2).background(), ::GetSysColor(COLOR_HIGHLIGHT));
    EXPECT_NE(firstCell(2).background(), ::GetSysColor(COLOR_WINDOW));
    for (const int row : {2, 3, 6})
        EXPECT_GE(firstCell(row).contrast(), kReadableContrast) << "row " << row << ", paler";
}

TEST_P(SchemesTest, WhatStandsBesideTheListsCanBeRead) {
    form->tabs.setIndex(1);
    embed();
    change();
    for (Control* each : std::vector<Control*>{&form->unitLabel, &form->name, &form->description})
        EXPECT_GE(contrastIn(*each), kReadableContrast) << each->name();
    EXPECT_EQ(Picture(of(form->unitLabel)).background(), ::GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(Picture(of(form->name)).background(), ::GetSysColor(COLOR_WINDOW));
    const Picture title(of(form->filters), {10, 0, 60, 14});
    EXPECT_EQ(title.background(), ::GetSysColor(COLOR_BTNFACE));
    EXPECT_GE(title.contrast(), kReadableContrast);
}

TEST_P(SchemesTest, AFormThatIsShownAlreadyIsPaintedAnew) {
    embed();
    const COLORREF before = firstCell(4).background();
    ASSERT_NE(before, scheme().at(COLOR_WINDOW));
    change();
    EXPECT_EQ(firstCell(4).background(), scheme().at(COLOR_WINDOW));
    EXPECT_EQ(Picture(of(form->buttons), {1, 1, 20, 20}).background(), scheme().at(COLOR_BTNFACE));
}

INSTANTIATE_TEST_SUITE_P(Colours, SchemesTest, testing::Values("dark", "highContrast"),
                         [](const auto& scheme) { return std::string(scheme.param); });

class StatedColoursTest : public testing::Test, protected PeerHarness {};

TEST_F(StatedColoursTest, OnALightScreenMarksHaveTheColoursThatTheyWereGiven) {
    form->grid.setForeColor(2, 1, kRed);
    form->grid.setBackColor(3, 1, 0xFF0000);
    embed();
    Person::pump();
    const HWND list = of(form->grid);
    const auto cell = [&](int row) {
        RECT rect{};
        rect.left = LVIR_BOUNDS;
        ::SendMessageW(list, LVM_GETITEMRECT, static_cast<WPARAM>(row - 1), reinterpret_cast<LPARAM>(&rect));
        return Picture(list, {1, rect.top + 1, 100, rect.bottom - 2});
    };
    EXPECT_NEAR(cell(2).contrast(), contrastOf(::GetSysColor(COLOR_WINDOW), kRed), 0.2);
    EXPECT_EQ(cell(3).background(), 0xFF0000U);
}

}  // namespace
}  // namespace pellmark::test
