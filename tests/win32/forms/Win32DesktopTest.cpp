#include "win32/forms/Win32Desktop.h"

#include <gmock/gmock.h>

#include "support/win32/PeerHarness.h"
#include "win32/WideText.h"

namespace pellmark::test {
namespace {

class Win32DesktopTest : public ::testing::Test, protected PeerHarness {
  protected:
    static HWND box() { return visibleWindowOfClass(L"#32770"); }
    static bool isBoxActive() { return box() != nullptr && ::GetForegroundWindow() == box(); }

    MessageAnswer answerWith(WORD key, MessageButtons buttons) {
        const Meanwhile meanwhile({[this] {
                                       if (!isBoxActive()) return false;
                                       wchar_t caption[100] = L"";
                                       ::GetWindowTextW(box(), caption, 100);
                                       title_ = fromWide(caption);
                                       owner_ = ::GetWindow(box(), GW_OWNER);
                                       ::GetWindowRect(box(), &at_);
                                       return true;
                                   },
                                   [key] {
                                       Person::sendKeys({key});
                                       return true;
                                   }});
        return desktop.showMessage({"Delete 3 processes?", wantedTitle_, MessageIcon::Question, buttons});
    }

    std::string wantedTitle_ = "Norvex - Process Manager";
    std::string title_;
    HWND owner_ = nullptr;
    RECT at_{};
};

TEST_F(Win32DesktopTest, EnterAnswersOk) {
    EXPECT_EQ(answerWith(VK_RETURN, MessageButtons::OkCancel), MessageAnswer::Ok);
    EXPECT_EQ(title_, "Norvex - Process Manager");
}

TEST_F(Win32DesktopTest, EscapeAnswersCancelWhereThereIsSuchAButton) {
    EXPECT_EQ(answerWith(VK_ESCAPE, MessageButtons::OkCancel), MessageAnswer::Cancel);
}

TEST_F(Win32DesktopTest, ABoxWithoutATitleHasTheApplicationsOwn) {
    wantedTitle_.clear();
    answerWith(VK_RETURN, MessageButtons::Ok);
    EXPECT_EQ(title_, "Norvex - Process Manager");
}

TEST_F(Win32DesktopTest, TheBoxIsOwnedByTheHostAndTheFocusReturnsToTheGrid) {
    embed();
    focus(form->grid);
    answerWith(VK_RETURN, MessageButtons::Ok);
    EXPECT_EQ(owner_, host());
    EXPECT_TRUE(hasFocus(form->grid));
}

TEST_F(Win32DesktopTest, ABoxThatComesWhileAnotherProgramIsInFrontIsOwnedByTheHostAllTheSame) {
    embed();
    ::SetForegroundWindow(::GetDesktopWindow());
    ASSERT_EQ(::GetActiveWindow(), nullptr);
    answerWith(VK_RETURN, MessageButtons::Ok);
    EXPECT_EQ(owner_, host());
}

TEST_F(Win32DesktopTest, TheBoxStandsOverTheMiddleOfItsOwner) {
    embed();
    for (const POINT corner : {POINT{20, 30}, POINT{500, 300}}) {
        ::SetWindowPos(host(), nullptr, corner.x, corner.y, 700, 500, SWP_NOZORDER);
        answerWith(VK_RETURN, MessageButtons::Ok);
        EXPECT_NEAR((at_.left + at_.right) / 2, corner.x + 350, 1);
        EXPECT_NEAR((at_.top + at_.bottom) / 2, corner.y + 250, 1);
    }
}

TEST_F(Win32DesktopTest, TheBoxStaysOnTheScreenWhereItsOwnerDoesNot) {
    embed();
    ::SetWindowPos(host(), nullptr, -900, -300, 1000, 400, SWP_NOZORDER);
    answerWith(VK_RETURN, MessageButtons::Ok);
    EXPECT_EQ(at_.left, 0);
    EXPECT_EQ(at_.top, 0);
}

TEST_F(Win32DesktopTest, AFormCanBeLoadedAgainAfterItWasUnloaded) {
    for (int i = 0; i < 3; ++i) {
        form->load();
        EXPECT_NE(form->handle(), 0U);
        EXPECT_FALSE(::IsWindowVisible(reinterpret_cast<HWND>(form->handle())));
        form->unload();
        EXPECT_EQ(form->handle(), 0U);
    }
}

TEST_F(Win32DesktopTest, TheProcessKeepsItsResolutionAwareness) {
    const auto awareness = ::GetAwarenessFromDpiAwarenessContext(::GetThreadDpiAwarenessContext());
    embed();
    EXPECT_EQ(::GetAwarenessFromDpiAwarenessContext(::GetThreadDpiAwarenessContext()), awareness);
}

TEST_F(Win32DesktopTest, TheControlsAreThoseOfTheThemedLibraryThoughTheHostsAreNot) {
    embed();
    // Only the themed library's buttons know their ideal size.
    constexpr UINT kGetIdealSize = 0x1601;
    SIZE size{};
    EXPECT_TRUE(::SendMessageW(of(form->ok), kGetIdealSize, 0, reinterpret_cast<LPARAM>(&size)));
    const HWND plain =
        ::CreateWindowExW(0, L"BUTTON", L"", WS_CHILD, 0, 0, 50, 20, host(), nullptr, nullptr, nullptr);
    EXPECT_FALSE(::SendMessageW(plain, kGetIdealSize, 0, reinterpret_cast<LPARAM>(&size)));
}

}  // namespace
}  // namespace pellmark::test
