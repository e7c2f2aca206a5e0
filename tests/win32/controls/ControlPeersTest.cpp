#include <gmock/gmock.h>

#include "support/win32/PeerHarness.h"
#include "win32/WideText.h"
#include "win32/forms/TabOrder.h"

namespace pellmark::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::string textOf(HWND window) {
    wchar_t text[500] = L"";
    ::GetWindowTextW(window, text, 500);
    return fromWide(text);
}

/// The peers of the small controls on the second page of the sample form.
class ControlPeersTest : public ::testing::Test, protected PeerHarness {
  protected:
    ControlPeersTest() {
        form->tabs.setIndex(1);
        embed();
    }
    void TearDown() override { EXPECT_THAT(trace.lines(), IsEmpty()); }
    bool isDefault(Control& button) const {
        return (::GetWindowLongPtrW(of(button), GWL_STYLE) & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
    }
};

class LabelPeerTest : public ControlPeersTest {};

TEST_F(LabelPeerTest, TheCaptionIsShownInAnyScriptAndFollowsTheModel) {
    form->nameLabel.setCaption("Größe \xE5\x80\xBC");
    EXPECT_EQ(textOf(of(form->nameLabel)), "Größe \xE5\x80\xBC");
}

TEST_F(LabelPeerTest, VisibilityAndPlaceFollowTheModel) {
    form->nameLabel.setVisible(false);
    EXPECT_FALSE(::IsWindowVisible(of(form->nameLabel)));
    form->nameLabel.setBounds({150, 150, 1500, 300});
    RECT client{};
    ::GetClientRect(of(form->nameLabel), &client);
    EXPECT_EQ(client.right, 100);
}

class ButtonPeerTest : public ControlPeersTest {};

TEST_F(ButtonPeerTest, AClickReachesTheModel) {
    int clicks = 0;
    const auto heard = form->help.clicked.subscribe([&] { ++clicks; });
    Person::click(of(form->help));
    EXPECT_EQ(clicks, 1);
}

TEST_F(ButtonPeerTest, ADisabledButtonDoesNothing) {
    int clicks = 0;
    const auto heard = form->help.clicked.subscribe([&] { ++clicks; });
    form->help.setEnabled(false);
    Person::click(of(form->help));
    EXPECT_FALSE(::IsWindowEnabled(of(form->help)));
    EXPECT_EQ(clicks, 0);
}

TEST_F(ButtonPeerTest, TheButtonThatEnterWouldPressIsDrawnAsTheDefault) {
    EXPECT_TRUE(isDefault(form->ok));
    focus(form->help);
    EXPECT_TRUE(isDefault(form->help));
    EXPECT_FALSE(isDefault(form->ok));
    focus(form->name);
    EXPECT_TRUE(isDefault(form->ok));
    EXPECT_FALSE(isDefault(form->help));
}

TEST_F(ButtonPeerTest, TheArrowKeysMoveAmongTheButtonsOfOneFrame) {
    focus(form->ok);
    Person::press({VK_RIGHT});
    EXPECT_TRUE(hasFocus(form->cancel));
    Person::press({VK_LEFT});
    EXPECT_TRUE(hasFocus(form->ok));
}

class TextBoxPeerTest : public ControlPeersTest {};

TEST_F(TextBoxPeerTest, TypingReachesTheModelOnceForEveryLetter) {
    int changes = 0;
    const auto heard = form->name.textChanged.subscribe([&] { ++changes; });
    focus(form->name);
    Person::type("tap");
    EXPECT_EQ(form->name.text(), "tap");
    EXPECT_EQ(changes, 3);
}

TEST_F(TextBoxPeerTest, ATextSetByTheModelIsShownAndNotEchoed) {
    int changes = 0;
    const auto heard = form->name.textChanged.subscribe([&] { ++changes; });
    form->name.setText("ø 8 \xE2\x89\xA4 10");
    EXPECT_EQ(textOf(of(form->name)), "ø 8 \xE2\x89\xA4 10");
    EXPECT_EQ(changes, 1);
}

TEST_F(TextBoxPeerTest, EnterStartsALineInABoxOfSeveralLines) {
    int oks = 0;
    const auto heard = form->ok.clicked.subscribe([&] { ++oks; });
    focus(form->description);
    Person::type("a");
    Person::press({VK_RETURN});
    Person::type("b");
    EXPECT_EQ(form->description.text(), "a\r\nb");
    EXPECT_EQ(oks, 0);
}

TEST_F(TextBoxPeerTest, TheTabKeyLeavesABoxOfSeveralLines) {
    focus(form->description);
    Person::press({VK_TAB});
    EXPECT_TRUE(hasFocus(form->values));
    EXPECT_EQ(form->description.text(), "");
}

TEST_F(TextBoxPeerTest, ABoxOfSeveralLinesHasAScrollBarWhileThereIsSomethingToScroll) {
    const auto hasBar = [this] {
        return (::GetWindowLongPtrW(of(form->description), GWL_STYLE) & WS_VSCROLL) != 0;
    };
    EXPECT_FALSE(hasBar());
    form->description.setText("one line");
    EXPECT_FALSE(hasBar());
    std::string text;
    for (int line = 0; line < 40; ++line)
        text += "one of many lines\r\n";
    form->description.setText(text);
    EXPECT_TRUE(hasBar());
    focus(form->description);
    ::SendMessageW(of(form->description), EM_SETSEL, 0, -1);
    Person::type("x");
    EXPECT_EQ(form->description.text(), "x");
    EXPECT_FALSE(hasBar());
    for (int line = 0; line < 12; ++line)
        Person::press({VK_RETURN});
    EXPECT_TRUE(hasBar());
}

TEST_F(TextBoxPeerTest, TheScrollBarComesAndGoesWithTheBoxesHeight) {
    const auto hasBar = [this] {
        return (::GetWindowLongPtrW(of(form->description), GWL_STYLE) & WS_VSCROLL) != 0;
    };
    form->description.setText("1\r\n2\r\n3\r\n4");
    ASSERT_FALSE(hasBar());
    const Rect before = form->description.bounds();
    Rect lower = before;
    lower.height = 500;
    form->description.setBounds(lower);
    EXPECT_TRUE(hasBar());
    form->description.setBounds(before);
    EXPECT_FALSE(hasBar());
}

TEST_F(TextBoxPeerTest, ATextLongerThanTheSystemsOwnLimitIsKeptWhole) {
    std::string text;
    while (text.size() < 40000)
        text += "One line of a long description\r\n";
    form->description.setText(text);
    focus(form->description);
    ::SendMessageW(of(form->description), EM_SETSEL, text.size(), static_cast<LPARAM>(text.size()));
    Person::type("y");
    EXPECT_EQ(form->description.text().size(), text.size() + 1);
}

TEST_F(TextBoxPeerTest, ArrivingByTheTabKeySelectsTheLine) {
    form->name.setText("old");
    focus(form->unit);
    Person::press({VK_TAB});
    ASSERT_TRUE(hasFocus(form->name));
    Person::type("n");
    EXPECT_EQ(form->name.text(), "n");
}

class ComboBoxPeerTest : public ControlPeersTest {};

TEST_F(ComboBoxPeerTest, ItemsAndChoiceFollowTheModel) {
    form->unit.setItems({{"A", 1, ""}, {"B", 2, ""}, {"C", 3, ""}});
    form->unit.setIndex(2);
    EXPECT_EQ(::SendMessageW(of(form->unit), CB_GETCOUNT, 0, 0), 3);
    EXPECT_EQ(::SendMessageW(of(form->unit), CB_GETCURSEL, 0, 0), 2);
    EXPECT_EQ(textOf(of(form->unit)), "C");
    form->unit.setIndex(ComboBox::kNone);
    EXPECT_EQ(::SendMessageW(of(form->unit), CB_GETCURSEL, 0, 0), CB_ERR);
}

TEST_F(ComboBoxPeerTest, AChoiceByKeyboardRaisesClicked) {
    std::vector<int> chosen;
    const auto heard = form->unit.clicked.subscribe([&] { chosen.push_back(form->unit.index()); });
    focus(form->unit);
    Person::press({VK_DOWN});
    Person::press({VK_DOWN});
    EXPECT_THAT(chosen, ElementsAre(0, 1));
}

TEST_F(ComboBoxPeerTest, AChoiceMayDestroyTheForm) {
    const auto heard = form->unit.clicked.subscribe([&] { form.reset(); });
    Person::click(of(form->unit));
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    ASSERT_TRUE(::GetComboBoxInfo(of(form->unit), &info));
    Person::click(info.hwndList, {20, 5});
    EXPECT_EQ(form, nullptr);
}

TEST_F(ComboBoxPeerTest, EscapeClosesTheOpenListAndNotTheForm) {
    focus(form->unit);
    Person::press({VK_F4});
    ASSERT_TRUE(::SendMessageW(of(form->unit), CB_GETDROPPEDSTATE, 0, 0));
    Person::press({VK_ESCAPE});
    EXPECT_FALSE(::SendMessageW(of(form->unit), CB_GETDROPPEDSTATE, 0, 0));
    EXPECT_TRUE(form->isLoaded());
}

class FramePeerTest : public ControlPeersTest {};

TEST_F(FramePeerTest, WhatStandsInAFrameIsItsChild) {
    EXPECT_EQ(::GetParent(of(form->name)), of(form->filters));
    EXPECT_EQ(textOf(of(form->filters)), "&Filters");
}

TEST_F(FramePeerTest, AHiddenFrameHidesWhatStandsInIt) {
    form->filters.setVisible(false);
    EXPECT_FALSE(::IsWindowVisible(of(form->name)));
    focus(form->tabs);
    Person::press({VK_TAB});
    EXPECT_TRUE(hasFocus(form->values));
}

TEST_F(FramePeerTest, ChildrenFollowTheFramesWidth) {
    const Twips before = form->name.bounds().width;
    Rect wider = form->filters.bounds();
    wider.width += 300;
    form->filters.setBounds(wider);
    EXPECT_EQ(form->name.bounds().width, before + 300);
}

class TabStripPeerTest : public ControlPeersTest {};

TEST_F(TabStripPeerTest, AClickOnATabTellsTheModelAndShowsThePage) {
    std::vector<int> clicks;
    const auto heard = form->tabs.clicked.subscribe([&](int index) { clicks.push_back(index); });
    RECT tab{};
    ::SendMessageW(of(form->tabs), TCM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&tab));
    Person::click(of(form->tabs), {(tab.left + tab.right) / 2, (tab.top + tab.bottom) / 2});
    EXPECT_THAT(clicks, ElementsAre(0));
    EXPECT_TRUE(::IsWindowVisible(of(form->first)));
    EXPECT_FALSE(::IsWindowVisible(of(form->second)));
}

TEST_F(TabStripPeerTest, APageShownByTheModelRaisesNoClick) {
    int clicks = 0;
    const auto heard = form->tabs.clicked.subscribe([&](int) { ++clicks; });
    form->tabs.setIndex(0);
    EXPECT_EQ(::SendMessageW(of(form->tabs), TCM_GETCURSEL, 0, 0), 0);
    EXPECT_TRUE(::IsWindowVisible(of(form->grid)));
    EXPECT_EQ(clicks, 0);
}

TEST_F(TabStripPeerTest, ThePagesHaveTheSizeThatTheTabsLeave) {
    RECT page{};
    ::GetClientRect(of(form->second), &page);
    RECT strip{};
    ::GetClientRect(of(form->tabs), &strip);
    EXPECT_LT(page.bottom, strip.bottom - 15);
    EXPECT_NEAR(form->second.bounds().height, page.bottom * 15, 1);
    EXPECT_EQ(form->first.bounds(), form->second.bounds());
}

TEST_F(TabStripPeerTest, ACaptionFollowsTheModel) {
    form->first.setCaption("Prozesse");
    wchar_t text[50] = L"";
    TCITEMW tab{};
    tab.mask = TCIF_TEXT;
    tab.pszText = text;
    tab.cchTextMax = 50;
    ::SendMessageW(of(form->tabs), TCM_GETITEMW, 0, reinterpret_cast<LPARAM>(&tab));
    EXPECT_EQ(fromWide(text), "Prozesse");
}

TEST_F(TabStripPeerTest, TheKeyboardDoesNotStayInAPageThatIsHidden) {
    focus(form->name);
    form->tabs.setIndex(0);
    EXPECT_TRUE(hasFocus(form->tabs));
}

TEST(AccessKeyTest, TheLetterBehindASingleAmpersandIsTheKey) {
    EXPECT_EQ(accessKey(L"&Help"), L'h');
    EXPECT_EQ(accessKey(L"Sa&ve"), L'v');
    EXPECT_EQ(accessKey(L"Drill && &Tap"), L't');
    EXPECT_EQ(accessKey(L"Drill && Tap"), 0);
    EXPECT_EQ(accessKey(L"Ends with &"), 0);
    EXPECT_EQ(accessKey(L""), 0);
}

}  // namespace
}  // namespace pellmark::test
