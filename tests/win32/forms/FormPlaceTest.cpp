#include <gmock/gmock.h>

#include "support/win32/FormWindowFixture.h"

namespace pellmark::test {
namespace {

class FormPlaceTest : public FormWindowFixture {};

TEST_F(FormPlaceTest, AModalFormStandsCentredOnItsOwner) {
    RECT at{};
    showModal([&] { ::GetWindowRect(window(), &at); });
    RECT owner{};
    ::GetWindowRect(host(), &owner);
    EXPECT_NEAR(at.left + at.right, owner.left + owner.right, 2);
    EXPECT_NEAR(at.top + at.bottom, owner.top + owner.bottom, 2);
}

TEST_F(FormPlaceTest, AModalFormStandsWhereAPersonLeftIt) {
    form->setBounds({1500, 2250, 10500, 7500});
    RECT at{};
    showModal([&] {
        ::GetWindowRect(window(), &at);
        ::SetWindowPos(window(), nullptr, 120, 160, 800, 600, SWP_NOZORDER);
    });
    EXPECT_EQ(at.left, 100);
    EXPECT_EQ(at.top, 150);
    EXPECT_EQ(at.right - at.left, 700);
    EXPECT_EQ(form->bounds(), (Rect{1800, 2400, 12000, 9000}));
}

TEST_F(FormPlaceTest, AFixedFormKeepsItsDesignedSizeWhateverIsRestored) {
    form->setBorderStyle(BorderStyle::FixedDialog);
    form->setBounds({1500, 2250, 10500, 7500});
    RECT client{};
    showModal([&] { ::GetClientRect(window(), &client); });
    EXPECT_EQ(client.right, 600);
    EXPECT_EQ(client.bottom, 400);
}

TEST_F(FormPlaceTest, AMaximizedFormIsShownSoAndKeepsItsNormalBounds) {
    form->setBounds({1500, 2250, 10500, 7500});
    form->setWindowState(WindowState::Maximized);
    bool wasMaximized = false;
    showModal([&] { wasMaximized = ::IsZoomed(window()) != FALSE; });
    EXPECT_TRUE(wasMaximized);
    EXPECT_EQ(form->windowState(), WindowState::Maximized);
    EXPECT_EQ(form->bounds(), (Rect{1500, 2250, 10500, 7500}));
}

TEST_F(FormPlaceTest, ARestoredPlaceOffTheScreenIsBroughtIntoView) {
    form->setBounds({-90000, -90000, 10500, 7500});
    RECT at{};
    showModal([&] { ::GetWindowRect(window(), &at); });
    EXPECT_GE(at.left, 0);
    EXPECT_GE(at.top, 0);
    EXPECT_EQ(form->bounds().left, at.left * 15) << "that is where the person has seen it";
    EXPECT_EQ(form->bounds().width, 10500);
}

TEST_F(FormPlaceTest, APlaceThatHangsOverTheEdgeOfTheScreenIsLeftAsThePersonLeftIt) {
    form->setBounds({-1500, 2250, 10500, 7500});
    RECT at{};
    showModal([&] { ::GetWindowRect(window(), &at); });
    EXPECT_EQ(at.left, -100);
    EXPECT_EQ(at.top, 150);
}

TEST_F(FormPlaceTest, APlaceIsKnownOfAFormThatNobodyMoved) {
    RECT at{};
    showModal([&] { ::GetWindowRect(window(), &at); });
    EXPECT_EQ(form->bounds().left, at.left * 15);
    EXPECT_EQ(form->bounds().top, at.top * 15);
}

TEST_F(FormPlaceTest, AnEmbeddedFormComesBackWhereTheHostHadMovedIt) {
    embed();
    ::MoveWindow(window(), 40, 30, 500, 400, TRUE);
    const auto place = form->embeddedPlace();
    ASSERT_TRUE(place);
    form->unload();
    EXPECT_FALSE(form->embeddedPlace());
    form->embed(*place);
    RECT at{};
    ::GetWindowRect(window(), &at);
    ::MapWindowPoints(nullptr, ::GetParent(window()), reinterpret_cast<POINT*>(&at), 2);
    EXPECT_EQ(at.left, 40);
    EXPECT_EQ(at.top, 30);
    EXPECT_EQ(at.right - at.left, 500);
    EXPECT_EQ(at.bottom - at.top, 400);
    EXPECT_EQ(form->clientSize(), (Size{7500, 6000}));
}

class FormWindowAtResolutionTest : public FormPlaceTest, public ::testing::WithParamInterface<int> {};

TEST_P(FormWindowAtResolutionTest, TwipsBecomePixelsOfTheWindowsResolution) {
    desktop.overrideDpi(GetParam());
    RECT button{};
    showModal([&] { ::GetClientRect(of(form->ok), &button); });
    EXPECT_NEAR(button.right, 1095 * GetParam() / 1440, 1);
    EXPECT_EQ(form->clientSize(), (Size{9000, 6000}));
}

TEST_P(FormWindowAtResolutionTest, AChangeOfResolutionScalesWhatIsShown) {
    embed();
    desktop.overrideDpi(GetParam());
    ::SendMessageW(window(), 0x02E3, 0, 0);
    RECT strip{};
    ::GetClientRect(of(form->cancel), &strip);
    EXPECT_NEAR(strip.right, 1095 * GetParam() / 1440, 1);
}

INSTANTIATE_TEST_SUITE_P(Resolutions, FormWindowAtResolutionTest, ::testing::Values(96, 144, 192));

}  // namespace
}  // namespace pellmark::test
