#include "refhost/windows/Placing.h"

#include <gtest/gtest.h>

#include "support/win32/Person.h"

namespace norvex {
namespace {

bool operator==(const RECT& left, const RECT& right) {
    return EqualRect(&left, &right) != FALSE;
}

void expectRect(const RECT& found, const RECT& wanted) {
    EXPECT_EQ(found.left, wanted.left);
    EXPECT_EQ(found.top, wanted.top);
    EXPECT_EQ(found.right, wanted.right);
    EXPECT_EQ(found.bottom, wanted.bottom);
}

constexpr RECT kFullHd{0, 0, 1920, 1040};
constexpr SIZE kSize{1180, 780};

TEST(PlacingTest, AMainWindowOpensInItsSizeWhereThereIsRoom) {
    expectRect(openingPlace(kFullHd, 96, kSize), {60, 40, 1240, 820});
}

TEST(PlacingTest, ItGrowsWithTheResolution) {
    expectRect(openingPlace({0, 0, 3840, 2160}, 192, kSize), {120, 80, 2480, 1640});
}

TEST(PlacingTest, ItIsNeverLargerThanTheScreenNorOutsideOfIt) {
    expectRect(openingPlace({0, 0, 640, 480}, 96, kSize), {0, 0, 640, 480});
    expectRect(openingPlace(kFullHd, 192, kSize), {0, 0, 1920, 1040});
    expectRect(openingPlace({0, 0, 1200, 1000}, 96, kSize), {20, 40, 1200, 820});
}

TEST(PlacingTest, OnASecondScreenItCountsFromThere) {
    expectRect(openingPlace({-1920, 200, 0, 1240}, 96, kSize), {-1860, 240, -680, 1020});
}

TEST(PlacingTest, APlaceOffTheScreenComesBackByAsLittleAsItTakes) {
    expectRect(keptWithin({-500, -20, -100, 280}, kFullHd), {0, 0, 400, 300});
    expectRect(keptWithin({1800, 900, 2200, 1200}, kFullHd), {1520, 740, 1920, 1040});
    expectRect(keptWithin({10, 20, 30, 40}, kFullHd), {10, 20, 30, 40});
}

/// A window that is shown somewhere.
class Shown {
  public:
    Shown(const RECT& at, HWND owner, DWORD style)
        : window_(CreateWindowExW(0, L"STATIC", L"x", WS_POPUP | style, at.left, at.top, at.right - at.left,
                                  at.bottom - at.top, owner, nullptr, nullptr, nullptr)) {}
    Shown(const Shown&) = delete;
    Shown& operator=(const Shown&) = delete;
    ~Shown() { DestroyWindow(window_); }

    HWND get() const { return window_; }
    RECT place() const {
        RECT at{};
        GetWindowRect(window_, &at);
        return at;
    }

  private:
    HWND window_;
};

TEST(PlacingTest, ADialogStandsOverTheMiddleOfItsOwner) {
    const Shown owner({100, 100, 500, 400}, nullptr, WS_VISIBLE);
    const Shown dialog({0, 0, 100, 60}, owner.get(), 0);
    centreOverOwner(dialog.get());
    expectRect(dialog.place(), {250, 220, 350, 280});
}

TEST(PlacingTest, ADialogStaysOnTheScreenOfItsOwner) {
    const Shown owner({-350, -250, 50, 50}, nullptr, WS_VISIBLE);
    const Shown dialog({300, 300, 500, 400}, owner.get(), 0);
    centreOverOwner(dialog.get());
    const RECT area = workAreaNear(owner.place());
    expectRect(dialog.place(), {area.left, area.top, area.left + 200, area.top + 100});
}

TEST(PlacingTest, ADialogOfNobodyStandsInTheMiddleOfTheScreen) {
    const Shown dialog({0, 0, 100, 60}, nullptr, 0);
    centreOverOwner(dialog.get());
    const RECT area = workAreaNear(dialog.place());
    EXPECT_NEAR(dialog.place().left - area.left, area.right - dialog.place().right, 1);
    EXPECT_NEAR(dialog.place().top - area.top, area.bottom - dialog.place().bottom, 1);
}

TEST(PlacingTest, ADialogLargerThanTheScreenIsCutToIt) {
    const RECT area = workAreaNear({0, 0, 1, 1});
    const RECT tooLarge{0, 0, area.right - area.left + 200, area.bottom - area.top + 300};
    for (const DWORD style : {DWORD{0}, DWORD{WS_THICKFRAME}}) {
        const Shown dialog(tooLarge, nullptr, style);
        centreOverOwner(dialog.get());
        EXPECT_TRUE(dialog.place() == area);
    }
}

TEST(PlacingTest, AMessageStandsOverTheMiddleOfItsOwner) {
    const Shown owner({200, 150, 900, 650}, nullptr, WS_VISIBLE);
    for (int time = 0; time < 2; ++time) {
        RECT box{};
        const pellmark::test::Meanwhile meanwhile({[&] {
            const HWND found = FindWindowW(L"#32770", L"A title");
            if (found == nullptr || !IsWindowVisible(found)) return false;
            GetWindowRect(found, &box);
            SendMessageW(found, WM_COMMAND, IDOK, 0);
            return true;
        }});
        EXPECT_EQ(showMessage(owner.get(), L"Something went wrong.", L"A title", MB_OK | MB_ICONERROR), IDOK);
        EXPECT_NEAR(box.left + box.right, 1100, 2);
        EXPECT_NEAR(box.top + box.bottom, 800, 2);
    }
}

}  // namespace
}  // namespace norvex
