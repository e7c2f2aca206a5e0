#include "refhost/workbench/WindowPlace.h"

#include <gtest/gtest.h>

#include "refhost/windows/Placing.h"

namespace norvex {
namespace {

constexpr SIZE kFirstSize{600, 400};

/// A main window that is not shown yet, and nothing kept of an earlier one.
class WindowPlaceTest : public testing::Test {
  protected:
    WindowPlaceTest() { forget(); }
    ~WindowPlaceTest() override {
        DestroyWindow(window_);
        forget();
    }
    static void forget() { RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Orvane\\Norvex\\Workbench"); }
    RECT place() const {
        RECT at{};
        GetWindowRect(window_, &at);
        return at;
    }
    void expectPlace(const RECT& wanted) const {
        const RECT at = place();
        EXPECT_TRUE(EqualRect(&wanted, &at))
            << at.left << ' ' << at.top << ' ' << at.right << ' ' << at.bottom;
    }

    HWND window_ = CreateWindowExW(0, L"STATIC", L"main", WS_OVERLAPPEDWINDOW, 0, 0, 100, 100, nullptr,
                                   nullptr, nullptr, nullptr);
    const RECT area_ = workAreaNear({0, 0, 1, 1});
};

TEST_F(WindowPlaceTest, TheFirstTimeItOpensInTheFirstSize) {
    EXPECT_EQ(restorePlace(window_, kFirstSize), SW_SHOWNORMAL);
    expectPlace(openingPlace(area_, dpiOf(window_), kFirstSize));
}

TEST_F(WindowPlaceTest, ItOpensWhereItWasLeft) {
    SetWindowPos(window_, nullptr, 120, 90, 700, 500, 0);
    WindowPlace::of(window_).store();
    SetWindowPos(window_, nullptr, 0, 0, 300, 200, 0);
    EXPECT_EQ(restorePlace(window_, kFirstSize), SW_SHOWNORMAL);
    expectPlace({120, 90, 820, 590});
}

TEST_F(WindowPlaceTest, OneThatWasMaximizedIsSoAgainAndKeepsItsOtherSize) {
    SetWindowPos(window_, nullptr, 120, 90, 700, 500, 0);
    ShowWindow(window_, SW_SHOWMAXIMIZED);
    const WindowPlace left = WindowPlace::of(window_);
    EXPECT_TRUE(left.isMaximized);
    ShowWindow(window_, SW_SHOWMINIMIZED);
    EXPECT_TRUE(WindowPlace::of(window_).isMaximized) << "minimized from there";
    left.store();
    ShowWindow(window_, SW_HIDE);
    ShowWindow(window_, SW_RESTORE);
    EXPECT_EQ(restorePlace(window_, kFirstSize), SW_SHOWMAXIMIZED);
    EXPECT_EQ(left.area.right - left.area.left, 700);
    EXPECT_EQ(left.area.bottom - left.area.top, 500);
}

TEST_F(WindowPlaceTest, APlaceOnAScreenThatIsGoneComesOntoTheNearest) {
    WindowPlace{{9000, 9000, 9600, 9400}, dpiOf(window_), false}.store();
    restorePlace(window_, kFirstSize);
    expectPlace({area_.right - 600, area_.bottom - 400, area_.right, area_.bottom});
}

TEST_F(WindowPlaceTest, AWindowLargerThanTheScreenIsCutToIt) {
    WindowPlace{{-100, -100, 20000, 20000}, dpiOf(window_), false}.store();
    restorePlace(window_, kFirstSize);
    expectPlace(area_);
}

TEST_F(WindowPlaceTest, ASizeChosenAtAnotherResolutionIsConverted) {
    WindowPlace{{10, 20, 10 + 800, 20 + 600}, dpiOf(window_) * 2, false}.store();
    restorePlace(window_, kFirstSize);
    expectPlace({10, 20, 410, 320});
}

TEST_F(WindowPlaceTest, WhatIsNoPlaceCountsAsNone) {
    const WindowPlace place{{-5, 10, 95, 210}, 144, true};
    const auto again = WindowPlace::from(place.text());
    ASSERT_TRUE(again);
    EXPECT_TRUE(EqualRect(&again->area, &place.area));
    EXPECT_EQ(again->dpi, 144);
    EXPECT_TRUE(again->isMaximized);
    for (const char* text :
         {"", "1 2 3 4 96", "a b c d e f", "0 0 0 100 96 0", "0 0 100 -1 96 0", "0 0 100 100 0 0",
          "999999 0 100 100 96 0", "99999999999 0 100 100 96 0", "-2147483648 0 100 100 96 0"}) {
        EXPECT_FALSE(WindowPlace::from(text)) << text;
    }
}

TEST_F(WindowPlaceTest, TheSmallestSizeGrowsWithTheResolutionButNotOverTheScreen) {
    const POINT least = leastSize(window_, {320, 200});
    EXPECT_EQ(least.x, MulDiv(320, dpiOf(window_), 96));
    EXPECT_EQ(least.y, MulDiv(200, dpiOf(window_), 96));
    const POINT most = leastSize(window_, {50'000, 50'000});
    EXPECT_EQ(most.x, area_.right - area_.left);
    EXPECT_EQ(most.y, area_.bottom - area_.top);
}

}  // namespace
}  // namespace norvex
