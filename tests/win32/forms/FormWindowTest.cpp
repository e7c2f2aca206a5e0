#include "win32/forms/FormWindow.h"

#include <gmock/gmock.h>

#include "base/Error.h"
#include "support/win32/PeerHarness.h"
#include "support/win32/ResourceCounts.h"

namespace pellmark::test {
namespace {

class FormWindowTest : public ::testing::Test, protected PeerHarness {
  protected:
    void TearDown() override { EXPECT_THAT(trace.lines(), ::testing::IsEmpty()); }

    HWND window() const { return reinterpret_cast<HWND>(form->handle()); }
    bool isShownModally() const {
        return form->isLoaded() && ::IsWindowVisible(window()) && ::GetActiveWindow() == window();
    }
    void runModal(std::initializer_list<Meanwhile::Step> steps) {
        const Meanwhile meanwhile(steps);
        form->showModal(reinterpret_cast<WindowHandle>(hostBox()));
        EXPECT_TRUE(meanwhile.isDone());
    }
};

TEST_F(FormWindowTest, AnEmbeddedFormIsABorderlessChildThatFillsItsParent) {
    embed();
    RECT area{};
    ::GetClientRect(::GetParent(window()), &area);
    RECT filled{};
    ::GetClientRect(window(), &filled);
    EXPECT_TRUE(::EqualRect(&area, &filled));
    EXPECT_EQ(::GetWindowLongPtrW(window(), GWL_STYLE) & (WS_CHILD | WS_CAPTION | WS_POPUP), WS_CHILD);
    EXPECT_TRUE(::IsWindowVisible(window()));
}

TEST_F(FormWindowTest, NoFormIsEmbeddedInAWindowThatIsGone) {
    const HWND gone =
        ::CreateWindowW(L"STATIC", nullptr, WS_OVERLAPPED, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
    ::DestroyWindow(gone);
    EXPECT_THROW(form->embed(reinterpret_cast<WindowHandle>(gone)), Error);
    EXPECT_FALSE(form->isShown());
    EXPECT_FALSE(::IsWindowVisible(window()));
}

TEST_F(FormWindowTest, TheLayoutFollowsWhenTheHostMovesAnEmbeddedForm) {
    embed();
    ::MoveWindow(window(), 0, 0, 500, 400, TRUE);
    EXPECT_EQ(form->clientSize(), (Size{7500, 6000}));
    RECT strip{};
    ::GetWindowRect(of(form->buttons), &strip);
    EXPECT_EQ(strip.right - strip.left, 500);
}

TEST_F(FormWindowTest, AModalFormDisablesItsOwnersTopLevelWindowAndEnablesItAgain) {
    runModal({[&] { return isShownModally() && !::IsWindowEnabled(host()); },
              [&] {
                  form->unload();
                  return true;
              }});
    EXPECT_TRUE(::IsWindowEnabled(host()));
    EXPECT_FALSE(form->isLoaded());
}

TEST_F(FormWindowTest, TheFocusReturnsToTheWindowThatHadIt) {
    ::SetFocus(hostBox());
    runModal({[&] { return isShownModally(); },
              [&] {
                  form->unload();
                  return true;
              }});
    EXPECT_EQ(::GetFocus(), hostBox());
    EXPECT_EQ(::GetActiveWindow(), host());
}

TEST_F(FormWindowTest, TheOwnerIsEnabledBeforeTheModalFormHides) {
    bool enabledAtHide = false;
    HWND shown = nullptr;
    const auto watch = [](HWND hwnd, UINT message, WPARAM w, LPARAM l, UINT_PTR, DWORD_PTR data) -> LRESULT {
        if (message == WM_SHOWWINDOW && w == FALSE) {
            *reinterpret_cast<bool*>(data) = ::IsWindowEnabled(::GetWindow(hwnd, GW_OWNER)) != FALSE;
        }
        return ::DefSubclassProc(hwnd, message, w, l);
    };
    runModal({[&] { return isShownModally(); },
              [&] {
                  shown = window();
                  ::SetWindowSubclass(shown, watch, 77, reinterpret_cast<DWORD_PTR>(&enabledAtHide));
                  form->unload();
                  return true;
              }});
    EXPECT_TRUE(enabledAtHide);
}

TEST_F(FormWindowTest, EscapeInAModalFormClicksTheCancelButton) {
    int clicks = 0;
    const auto click = form->cancel.clicked.subscribe([&] {
        ++clicks;
        form->unload();
    });
    runModal({[&] { return isShownModally(); },
              [&] {
                  Person::sendKeys({VK_ESCAPE});
                  return true;
              }});
    EXPECT_EQ(clicks, 1);
}

TEST_F(FormWindowTest, EscapeInAnEmbeddedFormLeavesItLoaded) {
    embed();
    focus(form->grid);
    Person::press({VK_ESCAPE});
    EXPECT_TRUE(form->isLoaded());
    EXPECT_TRUE(::IsWindowVisible(window()));
}

TEST_F(FormWindowTest, F1PressesTheHelpButtonWhereverTheKeyboardIs) {
    embed();
    int helps = 0;
    const auto help = form->help.clicked.subscribe([&] { ++helps; });
    focus(form->grid);
    Person::press({VK_F1});
    focus(form->ok);
    Person::press({VK_F1});
    EXPECT_EQ(helps, 2);
}

TEST_F(FormWindowTest, F1WithAnotherKeyAndInAFormWithoutHelpIsTheHosts) {
    embed();
    int helps = 0;
    const auto help = form->help.clicked.subscribe([&] { ++helps; });
    focus(form->grid);
    Person::press({VK_SHIFT, VK_F1});
    Person::press({VK_CONTROL, VK_F1});
    form->setHelpButton(nullptr);
    Person::press({VK_F1});
    EXPECT_EQ(helps, 0);
}

TEST_F(FormWindowTest, TheCloseBoxClosesAModalForm) {
    form->setCancelButton(nullptr);
    runModal({[&] { return isShownModally(); },
              [&] {
                  ::PostMessageW(window(), WM_SYSCOMMAND, SC_CLOSE, 0);
                  return true;
              }});
    EXPECT_EQ(form->queryUnloads, 1);
}

TEST_F(FormWindowTest, EnterPressesTheDefaultButtonAndOnAnotherButtonThatOne) {
    embed();
    int oks = 0;
    int helps = 0;
    const auto ok = form->ok.clicked.subscribe([&] { ++oks; });
    const auto help = form->help.clicked.subscribe([&] { ++helps; });
    focus(form->grid);
    Person::press({VK_RETURN});
    focus(form->help);
    Person::press({VK_RETURN});
    EXPECT_EQ(oks, 1);
    EXPECT_EQ(helps, 1);
}

TEST_F(FormWindowTest, TheTabKeyGoesRoundTheControlsOfAnEmbeddedForm) {
    embed();
    focus(form->ok);
    Person::press({VK_TAB});
    EXPECT_TRUE(hasFocus(form->cancel));
    Person::press({VK_TAB});
    Person::press({VK_TAB});
    EXPECT_TRUE(hasFocus(form->tabs));
    Person::press({VK_TAB});
    EXPECT_TRUE(hasFocus(form->grid));
    Person::press({VK_SHIFT, VK_TAB});
    EXPECT_TRUE(hasFocus(form->tabs));
}

TEST_F(FormWindowTest, AnAccessKeyReachesItsButtonInAnEmbeddedForm) {
    embed();
    int helps = 0;
    const auto help = form->help.clicked.subscribe([&] { ++helps; });
    focus(form->grid);
    Person::press({VK_MENU, 'H'});
    EXPECT_EQ(helps, 1);
}

TEST_F(FormWindowTest, AnAccessKeyOfALabelLeadsToTheNextControl) {
    form->tabs.setIndex(1);
    embed();
    focus(form->ok);
    Person::press({VK_MENU, 'N'});
    EXPECT_TRUE(hasFocus(form->name));
}

TEST_F(FormWindowTest, ControlTabAndControlPageDownStepThroughThePages) {
    embed();
    focus(form->grid);
    Person::press({VK_CONTROL, VK_TAB});
    EXPECT_EQ(form->tabs.index(), 1);
    Person::press({VK_CONTROL, VK_NEXT});
    EXPECT_EQ(form->tabs.index(), 0);
    Person::press({VK_CONTROL, VK_SHIFT, VK_TAB});
    EXPECT_EQ(form->tabs.index(), 1);
}

TEST_F(FormWindowTest, KeysForTheHostsOwnControlsStayTheHosts) {
    embed();
    ::SetFocus(hostBox());
    Person::type("ab");
    Person::press({VK_TAB});
    char text[20] = "";
    ::GetWindowTextA(hostBox(), text, sizeof text);
    EXPECT_STREQ(text, "ab");
    EXPECT_EQ(::GetFocus(), hostBox());
}

TEST_F(FormWindowTest, AModalFormMayBeUnloadedByItsOwnButton) {
    const auto click = form->ok.clicked.subscribe([&] { form->unload(); });
    runModal({[&] { return isShownModally(); },
              [&] {
                  Person::sendClick(of(form->ok), Person::middleOf(of(form->ok)), false);
                  return true;
              }});
    EXPECT_FALSE(form->isLoaded());
}

TEST_F(FormWindowTest, AnEmbeddedFormMayBeDestroyedByItsOwnButton) {
    embed();
    const HWND shown = window();
    auto click = form->ok.clicked.subscribe([&] { form.reset(); });
    Person::click(of(form->ok));
    EXPECT_EQ(form, nullptr);
    EXPECT_FALSE(::IsWindow(shown));
}

TEST_F(FormWindowTest, AnEmbeddedFormMayBeDestroyedByADoubleClickInItsGrid) {
    embed();
    const HWND shown = window();
    const auto click = form->grid.doubleClicked.subscribe([&](int) { form.reset(); });
    Person::doubleClick(of(form->grid), {40, 60});
    EXPECT_EQ(form, nullptr);
    EXPECT_FALSE(::IsWindow(shown));
}

TEST_F(FormWindowTest, AnEmbeddedFormMayBeDestroyedByItsTabs) {
    embed();
    const auto click = form->tabs.clicked.subscribe([&](int) { form.reset(); });
    focus(form->grid);
    Person::press({VK_CONTROL, VK_TAB});
    EXPECT_EQ(form, nullptr);
}

TEST_F(FormWindowTest, AHostThatDestroysItsWindowUnloadsTheForm) {
    embed();
    ::DestroyWindow(host());
    EXPECT_FALSE(form->isLoaded());
    EXPECT_EQ(form->queryUnloads, 1);
}

TEST_F(FormWindowTest, QuittingDuringAModalFormReachesTheLoopAround) {
    runModal({[&] { return isShownModally(); },
              [&] {
                  ::PostQuitMessage(42);
                  return true;
              }});
    MSG message{};
    ASSERT_TRUE(::PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 42U);
}

TEST_F(FormWindowTest, AModalFormStandsCentredOnItsOwner) {
    RECT at{};
    runModal({[&] { return isShownModally(); },
              [&] {
                  ::GetWindowRect(window(), &at);
                  form->unload();
                  return true;
              }});
    RECT owner{};
    ::GetWindowRect(host(), &owner);
    EXPECT_NEAR(at.left + at.right, owner.left + owner.right, 2);
    EXPECT_NEAR(at.top + at.bottom, owner.top + owner.bottom, 2);
}

TEST_F(FormWindowTest, AModalFormStandsWhereAPersonLeftIt) {
    form->setBounds({1500, 2250, 10500, 7500});
    RECT at{};
    runModal({[&] { return isShownModally(); },
              [&] {
                  ::GetWindowRect(window(), &at);
                  ::SetWindowPos(window(), nullptr, 120, 160, 800, 600, SWP_NOZORDER);
                  form->unload();
                  return true;
              }});
    EXPECT_EQ(at.left, 100);
    EXPECT_EQ(at.top, 150);
    EXPECT_EQ(at.right - at.left, 700);
    EXPECT_EQ(form->bounds(), (Rect{1800, 2400, 12000, 9000}));
}

TEST_F(FormWindowTest, AFixedFormKeepsItsDesignedSizeWhateverIsRestored) {
    form->setBorderStyle(BorderStyle::FixedDialog);
    form->setBounds({1500, 2250, 10500, 7500});
    RECT client{};
    runModal({[&] { return isShownModally(); },
              [&] {
                  ::GetClientRect(window(), &client);
                  form->unload();
                  return true;
              }});
    EXPECT_EQ(client.right, 600);
    EXPECT_EQ(client.bottom, 400);
}

TEST_F(FormWindowTest, AMaximizedFormIsShownSoAndKeepsItsNormalBounds) {
    form->setBounds({1500, 2250, 10500, 7500});
    form->setWindowState(WindowState::Maximized);
    bool wasMaximized = false;
    runModal({[&] { return isShownModally(); },
              [&] {
                  wasMaximized = ::IsZoomed(window()) != FALSE;
                  form->unload();
                  return true;
              }});
    EXPECT_TRUE(wasMaximized);
    EXPECT_EQ(form->windowState(), WindowState::Maximized);
    EXPECT_EQ(form->bounds(), (Rect{1500, 2250, 10500, 7500}));
}

TEST_F(FormWindowTest, ARestoredPlaceOffTheScreenIsBroughtIntoView) {
    form->setBounds({-90000, -90000, 10500, 7500});
    RECT at{};
    runModal({[&] { return isShownModally(); },
              [&] {
                  ::GetWindowRect(window(), &at);
                  form->unload();
                  return true;
              }});
    EXPECT_GE(at.left, 0);
    EXPECT_GE(at.top, 0);
    EXPECT_EQ(form->bounds().left, at.left * 15) << "that is where the person has seen it";
    EXPECT_EQ(form->bounds().width, 10500);
}

TEST_F(FormWindowTest, APlaceThatHangsOverTheEdgeOfTheScreenIsLeftAsThePersonLeftIt) {
    form->setBounds({-1500, 2250, 10500, 7500});
    RECT at{};
    runModal({[&] { return isShownModally(); },
              [&] {
                  ::GetWindowRect(window(), &at);
                  form->unload();
                  return true;
              }});
    EXPECT_EQ(at.left, -100);
    EXPECT_EQ(at.top, 150);
}

TEST_F(FormWindowTest, APlaceIsKnownOfAFormThatNobodyMoved) {
    RECT at{};
    runModal({[&] { return isShownModally(); },
              [&] {
                  ::GetWindowRect(window(), &at);
                  form->unload();
                  return true;
              }});
    EXPECT_EQ(form->bounds().left, at.left * 15);
    EXPECT_EQ(form->bounds().top, at.top * 15);
}

TEST_F(FormWindowTest, AFormThatWasEmbeddedCanBeShownModally) {
    embed();
    runModal({[&] { return isShownModally() && ::GetAncestor(window(), GA_ROOT) == window(); },
              [&] {
                  form->unload();
                  return true;
              }});
    EXPECT_TRUE(::IsWindowEnabled(host()));
}

TEST_F(FormWindowTest, AHostThatFocusesTheFormLeadsBackToTheControlThatHadTheKeyboard) {
    embed();
    focus(form->help);
    ::SetFocus(hostBox());
    ::SetFocus(window());
    EXPECT_TRUE(hasFocus(form->help));
}

TEST_F(FormWindowTest, AnExceptionInAHandlerIsRecordedAndNotThrownAcross) {
    embed();
    const auto click = form->ok.clicked.subscribe([] { throw Error(5, "Test", "on purpose"); });
    Person::click(of(form->ok));
    EXPECT_TRUE(trace.trapped("ControlPeer::procedure"));
    trace.clear();
}

TEST_F(FormWindowTest, AControlThatAskedBeforeThereWasAWindowGetsTheKeyboardWhenTheFormIsEmbedded) {
    form->help.setFocus();
    EXPECT_EQ(form->focused(), &form->help);
    embed();
    EXPECT_TRUE(hasFocus(form->help));
    EXPECT_FALSE(form->isFocusAsked());
}

TEST_F(FormWindowTest, AControlThatAskedWhileTheFormWasHiddenGetsTheKeyboardInAModalForm) {
    form->load();
    form->help.setFocus();
    bool arrived = false;
    runModal({[&] { return isShownModally(); },
              [&] {
                  arrived = hasFocus(form->help);
                  form->unload();
                  return true;
              }});
    EXPECT_TRUE(arrived);
}

TEST_F(FormWindowTest, AnEmbeddedFormThatNobodyAskedLeavesTheKeyboardWithTheHost) {
    embed();
    EXPECT_EQ(::GetFocus(), hostBox());
    EXPECT_EQ(form->focused(), nullptr);
}

TEST_F(FormWindowTest, TheFormRemembersWhichControlHadTheKeyboardUntilItIsLoadedAnew) {
    embed();
    focus(form->cancel);
    form->unload();
    EXPECT_EQ(form->focused(), &form->cancel);
    embed();
    EXPECT_EQ(form->focused(), nullptr);
}

TEST_F(FormWindowTest, AnEmbeddedFormComesBackWhereTheHostHadMovedIt) {
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

class ModalKeyboardTest : public FormWindowTest, public ::testing::WithParamInterface<BorderStyle> {};

TEST_P(ModalKeyboardTest, TheFirstControlHasTheKeyboardAndTabGoesRoundAllOfThem) {
    form->setBorderStyle(GetParam());
    std::vector<Control*> visited;
    const auto step = [&](std::initializer_list<WORD> keys) {
        visited.push_back(form->focused());
        Person::sendKeys(keys);
        return true;
    };
    const auto moved = [&] { return form->focused() != visited.back(); };
    runModal({[&] { return isShownModally() && hasFocus(form->ok); }, [&] { return step({VK_TAB}); },
              [&] { return moved() && step({VK_TAB}); }, [&] { return moved() && step({VK_TAB}); },
              [&] { return moved() && step({VK_TAB}); }, [&] { return moved() && step({VK_TAB}); },
              [&] {
                  return moved() && step({VK_SHIFT, VK_TAB});
              },
              [&] {
                  if (!moved()) return false;
                  visited.push_back(form->focused());
                  form->unload();
                  return true;
              }});
    EXPECT_THAT(visited, ::testing::ElementsAre(&form->ok, &form->cancel, &form->help, &form->tabs,
                                                &form->grid, &form->ok, &form->grid));
}

TEST_P(ModalKeyboardTest, ALetterTypedIntoATextBoxIsNoAccessKey) {
    form->setBorderStyle(GetParam());
    form->tabs.setIndex(1);
    form->name.setFocus();
    int helps = 0;
    const auto help = form->help.clicked.subscribe([&] { ++helps; });
    runModal({[&] { return isShownModally() && hasFocus(form->name); },
              [&] {
                  Person::sendKeys({'H'});
                  return true;
              },
              [&] {
                  if (form->name.text().empty() && helps == 0) return false;
                  form->unload();
                  return true;
              }});
    EXPECT_EQ(form->name.text(), "h");
    EXPECT_EQ(helps, 0);
}

TEST_P(ModalKeyboardTest, OnlyAnOrdinarySizableFormHasAMaximizeBoxAndOnlyAFixedOneCannotBeResized) {
    form->setBorderStyle(GetParam());
    form->load();
    const auto style = ::GetWindowLongPtrW(window(), GWL_STYLE);
    const auto exStyle = ::GetWindowLongPtrW(window(), GWL_EXSTYLE);
    EXPECT_EQ((style & WS_MAXIMIZEBOX) != 0, GetParam() == BorderStyle::Sizable);
    EXPECT_EQ((style & WS_THICKFRAME) != 0, GetParam() != BorderStyle::FixedDialog);
    EXPECT_EQ((exStyle & WS_EX_TOOLWINDOW) != 0, GetParam() == BorderStyle::SizableToolWindow);
}

INSTANTIATE_TEST_SUITE_P(EveryKind, ModalKeyboardTest,
                         ::testing::Values(BorderStyle::FixedDialog, BorderStyle::Sizable,
                                           BorderStyle::SizableToolWindow));

TEST_F(FormWindowTest, ShowingAndUnloadingLeaksNothing) {
    const auto showOnce = [&] {
        embed();
        form->tabs.setIndex(1);
        Person::pump();
        form->unload();
        Person::pump();
    };
    for (int i = 0; i < 3; ++i)
        showOnce();
    const ResourceCounts before = ResourceCounts::now();
    for (int i = 0; i < 10; ++i)
        showOnce();
    const ResourceCounts grown = ResourceCounts::now() - before;
    EXPECT_LE(grown.user, 2) << grown;
    EXPECT_LE(grown.gdi, 2) << grown;
    EXPECT_LE(grown.kernel, 2) << grown;
}

class FormWindowAtResolutionTest : public FormWindowTest, public ::testing::WithParamInterface<int> {};

TEST_P(FormWindowAtResolutionTest, TwipsBecomePixelsOfTheWindowsResolution) {
    desktop.overrideDpi(GetParam());
    RECT button{};
    runModal({[&] { return isShownModally(); },
              [&] {
                  ::GetClientRect(of(form->ok), &button);
                  form->unload();
                  return true;
              }});
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
