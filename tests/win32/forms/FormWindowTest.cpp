#include "win32/forms/FormWindow.h"

#include <gmock/gmock.h>

#include "base/Error.h"
#include "support/win32/FormWindowFixture.h"
#include "support/win32/ResourceCounts.h"

namespace pellmark::test {
namespace {

class FormWindowTest : public FormWindowFixture {};

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

TEST_F(FormWindowTest, TheCloseBoxClosesAModalForm) {
    form->setCancelButton(nullptr);
    runModal({[&] { return isShownModally(); },
              [&] {
                  ::PostMessageW(window(), WM_SYSCOMMAND, SC_CLOSE, 0);
                  return true;
              }});
    EXPECT_EQ(form->queryUnloads, 1);
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

}  // namespace
}  // namespace pellmark::test
