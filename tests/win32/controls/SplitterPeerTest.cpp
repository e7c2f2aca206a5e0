#include "win32/controls/SplitterPeer.h"

#include <gmock/gmock.h>

#include "support/win32/PeerHarness.h"
#include "win32/forms/FormWindow.h"

namespace pellmark::test {
namespace {

/// Two boxes one above the other, the lower one two beside each other, each with a button; a bar in each gap.
class SplitForm : public Form {
  public:
    explicit SplitForm(Desktop& desktop) : Form(desktop, "SplitForm") {
        setBorderStyle(BorderStyle::Sizable);
        for (Splitter* each : {&lying, &standing})
            subscriptions_.push_back(each->moved.subscribe([this] { arrange(clientSize()); }));
    }
    void arrange(Size client) override {
        lying.setDivision({client.height - 105, 1500, 1500, 3000});
        const Twips top = lying.first();
        upper.setBounds({0, 0, client.width, top});
        lying.setBounds({0, top, client.width, 105});
        standing.setDivision({client.width - 105, 1500, 1500, 4500});
        const Twips left = standing.first();
        const Twips below = lying.bounds().bottom();
        leftBox.setBounds({0, below, left, client.height - below});
        standing.setBounds({left, below, 105, client.height - below});
        rightBox.setBounds({left + 105, below, client.width - left - 105, client.height - below});
        for (Button* each : {&first, &second})
            each->setBounds({150, 300, 1200, 375});
    }

    Frame upper{*this, "upper", "Upper"};
    Button first{upper, "first", "First"};
    Splitter lying{*this, "lying", Splitter::Bar::Lying};
    Frame leftBox{*this, "leftBox", "Left"};
    Button second{leftBox, "second", "Second"};
    Splitter standing{*this, "standing", Splitter::Bar::Standing};
    Frame rightBox{*this, "rightBox", "Right"};

  private:
    std::vector<Subscription> subscriptions_;
};

class SplitterPeerTest : public ::testing::Test, protected PeerHarness {
  protected:
    SplitterPeerTest() {
        split.embed(reinterpret_cast<WindowHandle>(host()));
        ::MoveWindow(reinterpret_cast<HWND>(split.handle()), 0, 30, 800, 600, TRUE);
        Person::waitUntil([&] { return ::GetForegroundWindow() == host(); });
        ::SetFocus(windowOf(split.first));
        Person::pump();
    }
    void TearDown() override { EXPECT_THAT(trace.lines(), ::testing::IsEmpty()); }

    HWND windowOf(Control& control) const { return of(split, control); }
    int topOf(Control& control) const { return place(control).top; }
    int leftOf(Control& control) const { return place(control).left; }
    RECT place(Control& control) const {
        RECT at{};
        ::GetWindowRect(windowOf(control), &at);
        ::MapWindowPoints(nullptr, reinterpret_cast<HWND>(split.handle()), reinterpret_cast<POINT*>(&at), 2);
        return at;
    }
    /// By so many pixels. The bar moves under the mouse: the points are those of the form.
    void drag(Control& bar, POINT by) {
        const RECT at = place(bar);
        const POINT start{(at.left + at.right) / 2, (at.top + at.bottom) / 2};
        Person::drag(reinterpret_cast<HWND>(split.handle()), start, {start.x + by.x, start.y + by.y});
    }
    bool hasKeyboard(Control& control) const { return ::GetFocus() == windowOf(control); }

    SplitForm split{desktop};
};

TEST_F(SplitterPeerTest, TheMouseDragsALyingBarUpAndDown) {
    EXPECT_EQ(topOf(split.lying), 200);
    drag(split.lying, {0, 50});
    EXPECT_EQ(topOf(split.lying), 250);
    EXPECT_EQ(place(split.upper).bottom, 250);
    EXPECT_EQ(topOf(split.leftBox), 257);
    drag(split.lying, {300, -20});
    EXPECT_EQ(topOf(split.lying), 230);
}

TEST_F(SplitterPeerTest, TheMouseDragsAStandingBarToBothSides) {
    EXPECT_EQ(leftOf(split.standing), 300);
    drag(split.standing, {-100, 30});
    EXPECT_EQ(leftOf(split.standing), 200);
    EXPECT_EQ(place(split.leftBox).right, 200);
}

TEST_F(SplitterPeerTest, TheBoxesFollowWhileTheMouseIsStillDown) {
    int moves = 0;
    const auto moved = split.lying.moved.subscribe([&] { ++moves; });
    const HWND bar = windowOf(split.lying);
    Person::moveTo(bar, {100, 3});
    Person::pressMouse();
    Person::moveTo(bar, {100, 43});
    Person::waitUntil([&] { return moves > 0; });
    EXPECT_EQ(topOf(split.leftBox), 247);
    EXPECT_EQ(::GetCapture(), bar);
    Person::releaseMouse();
    EXPECT_TRUE(Person::waitUntil([] { return ::GetCapture() == nullptr; }));
    EXPECT_EQ(topOf(split.leftBox), 247);
}

TEST_F(SplitterPeerTest, NoBoxIsDraggedSmallerThanItsLeast) {
    drag(split.lying, {0, -303});
    EXPECT_EQ(topOf(split.lying), 100);
    drag(split.lying, {0, 597});
    EXPECT_EQ(topOf(split.lying), 600 - 7 - 100);
}

TEST_F(SplitterPeerTest, TheMousePointerShowsWhichWayTheBarGoes) {
    const auto pointerOver = [&](Control& control) {
        Person::moveTo(windowOf(control), {3, 3});
        Person::pump();
        ::SendMessageW(windowOf(control), WM_SETCURSOR, reinterpret_cast<WPARAM>(windowOf(control)),
                       MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
        return ::GetCursor();
    };
    EXPECT_EQ(pointerOver(split.lying), ::LoadCursorW(nullptr, MAKEINTRESOURCEW(32645)));
    EXPECT_EQ(pointerOver(split.standing), ::LoadCursorW(nullptr, MAKEINTRESOURCEW(32644)));
    ::MoveWindow(reinterpret_cast<HWND>(split.handle()), 0, 30, 150, 600, TRUE);
    EXPECT_FALSE(split.standing.isMovable());
    EXPECT_EQ(pointerOver(split.standing), ::LoadCursorW(nullptr, MAKEINTRESOURCEW(32512))) << "nowhere";
}

TEST_F(SplitterPeerTest, ADoubleClickBringsTheUsualPlaceBack) {
    drag(split.lying, {0, 50});
    Person::doubleClick(windowOf(split.lying), {100, 3});
    EXPECT_EQ(topOf(split.lying), 200);
    EXPECT_EQ(split.lying.share(), std::nullopt);
}

TEST_F(SplitterPeerTest, AClickMovesNothingAndLeavesTheKeyboardWhereItIs) {
    Person::click(windowOf(split.lying), {100, 3});
    EXPECT_EQ(split.lying.share(), std::nullopt);
    EXPECT_TRUE(hasKeyboard(split.first));
}

TEST_F(SplitterPeerTest, EscapeTakesADragBack) {
    const HWND bar = windowOf(split.lying);
    Person::moveTo(bar, {100, 3});
    Person::pressMouse();
    Person::moveTo(bar, {100, 43});
    Person::waitUntil([&] { return topOf(split.lying) == 240; });
    Person::press({VK_ESCAPE});
    EXPECT_EQ(topOf(split.lying), 200);
    Person::moveTo(bar, {100, 23});
    Person::pump();
    EXPECT_EQ(topOf(split.lying), 200) << "the mouse has let go";
    Person::releaseMouse();
    Person::pump();
}

TEST_F(SplitterPeerTest, TheBarsFollowTheWindowInProportion) {
    drag(split.standing, {100, 0});
    EXPECT_EQ(leftOf(split.standing), 400);
    ::MoveWindow(reinterpret_cast<HWND>(split.handle()), 0, 30, 407, 600, TRUE);
    EXPECT_NEAR(leftOf(split.standing), 400 * 400 / 793, 1);
}

// --- the keyboard -----------------------------------------------------------------------------------------

TEST_F(SplitterPeerTest, TheTabKeyPassesOverTheBars) {
    Person::press({VK_TAB});
    EXPECT_TRUE(hasKeyboard(split.second));
}

TEST_F(SplitterPeerTest, F6LeadsRoundTheBarsAndEnterBack) {
    Person::press({VK_F6});
    EXPECT_TRUE(hasKeyboard(split.lying));
    Person::press({VK_F6});
    EXPECT_TRUE(hasKeyboard(split.standing));
    Person::press({VK_F6});
    EXPECT_TRUE(hasKeyboard(split.lying));
    Person::press({VK_SHIFT, VK_F6});
    EXPECT_TRUE(hasKeyboard(split.standing));
    Person::press({VK_RETURN});
    EXPECT_TRUE(hasKeyboard(split.first));
}

TEST_F(SplitterPeerTest, TheArrowsMoveABarAndEnterKeepsItsPlace) {
    Person::press({VK_F6});
    Person::press({VK_DOWN});
    EXPECT_EQ(topOf(split.lying), 210);
    Person::press({VK_RIGHT});
    EXPECT_EQ(topOf(split.lying), 210) << "this bar goes up and down";
    Person::press({VK_CONTROL, VK_UP});
    EXPECT_EQ(topOf(split.lying), 209);
    Person::press({VK_RETURN});
    EXPECT_EQ(topOf(split.lying), 209);
    Person::press({VK_F6});
    Person::press({VK_F6});
    Person::press({VK_LEFT});
    EXPECT_EQ(leftOf(split.standing), 290);
}

TEST_F(SplitterPeerTest, HomeAndEndLeadAsFarAsItGoesAndDeleteBack) {
    Person::press({VK_F6});
    Person::press({VK_HOME});
    EXPECT_EQ(topOf(split.lying), 100);
    Person::press({VK_END});
    EXPECT_EQ(topOf(split.lying), 493);
    Person::press({VK_DELETE});
    EXPECT_EQ(topOf(split.lying), 200);
    EXPECT_EQ(split.lying.share(), std::nullopt);
}

TEST_F(SplitterPeerTest, EscapeTakesEverythingBackThatTheKeysHaveDone) {
    drag(split.lying, {0, 50});
    Person::press({VK_F6});
    Person::press({VK_HOME});
    Person::press({VK_DOWN});
    Person::press({VK_ESCAPE});
    EXPECT_EQ(topOf(split.lying), 250);
    EXPECT_TRUE(hasKeyboard(split.first));
}

TEST_F(SplitterPeerTest, EscapeInABarLeavesAModalFormOpen) {
    split.unload();
    bool stayed = false;
    const Meanwhile meanwhile({[&] {
                                   const auto window = reinterpret_cast<HWND>(split.handle());
                                   return split.isLoaded() && ::IsWindowVisible(window) &&
                                          ::GetActiveWindow() == window && hasKeyboard(split.first);
                               },
                               [] {
                                   Person::sendKeys({VK_F6});
                                   return true;
                               },
                               [&] {
                                   if (!hasKeyboard(split.lying)) return false;
                                   Person::sendKeys({VK_ESCAPE});
                                   return true;
                               },
                               [&] {
                                   if (!split.isLoaded()) return true;
                                   if (!hasKeyboard(split.first)) return false;
                                   stayed = true;
                                   split.unload();
                                   return true;
                               }});
    split.showModal(reinterpret_cast<WindowHandle>(host()));
    EXPECT_TRUE(stayed);
}

TEST_F(SplitterPeerTest, AFormWithoutBarsLeavesF6ToTheHost) {
    split.unload();
    embed();
    focus(form->ok);
    MSG message{};
    ::PostMessageW(of(form->ok), WM_KEYDOWN, VK_F6, 0);
    ASSERT_TRUE(::PeekMessageW(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE));
    EXPECT_EQ(message.message, static_cast<UINT>(WM_KEYDOWN)) << "the form would have taken it aside";
}

}  // namespace
}  // namespace pellmark::test
