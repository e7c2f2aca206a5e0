#include <gmock/gmock.h>

#include "support/win32/FormWindowFixture.h"

namespace pellmark::test {
namespace {

class FormKeysTest : public FormWindowFixture {};

TEST_F(FormKeysTest, EscapeInAModalFormClicksTheCancelButton) {
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

TEST_F(FormKeysTest, EscapeInAnEmbeddedFormLeavesItLoaded) {
    embed();
    focus(form->grid);
    Person::press({VK_ESCAPE});
    EXPECT_TRUE(form->isLoaded());
    EXPECT_TRUE(::IsWindowVisible(window()));
}

TEST_F(FormKeysTest, F1PressesTheHelpButtonWhereverTheKeyboardIs) {
    embed();
    int helps = 0;
    const auto help = form->help.clicked.subscribe([&] { ++helps; });
    focus(form->grid);
    Person::press({VK_F1});
    focus(form->ok);
    Person::press({VK_F1});
    EXPECT_EQ(helps, 2);
}

TEST_F(FormKeysTest, F1WithAnotherKeyAndInAFormWithoutHelpIsTheHosts) {
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

TEST_F(FormKeysTest, EnterPressesTheDefaultButtonAndOnAnotherButtonThatOne) {
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

TEST_F(FormKeysTest, TheTabKeyGoesRoundTheControlsOfAnEmbeddedForm) {
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

TEST_F(FormKeysTest, AnAccessKeyReachesItsButtonInAnEmbeddedForm) {
    embed();
    int helps = 0;
    const auto help = form->help.clicked.subscribe([&] { ++helps; });
    focus(form->grid);
    Person::press({VK_MENU, 'H'});
    EXPECT_EQ(helps, 1);
}

TEST_F(FormKeysTest, AnAccessKeyOfALabelLeadsToTheNextControlAndSelectsItsText) {
    form->tabs.setIndex(1);
    form->name.setText("Drill 8");
    embed();
    focus(form->ok);
    Person::press({VK_MENU, 'N'});
    EXPECT_TRUE(hasFocus(form->name));
    Person::type("r");
    EXPECT_TRUE(Person::waitUntil([&] { return form->name.text() == "r"; })) << form->name.text();
}

/// A form that begins with a line, as most dialogs do.
class LineForm : public Form {
  public:
    explicit LineForm(Desktop& desktop) : Form(desktop, "LineForm") {
        setClientSize({4500, 3000});
        name.place({100, 100, 2000, 345}, {4500, 3000}, {});
        ok.place({100, 1000, 1095, 375}, {4500, 3000}, {});
        name.setText("New Process");
    }

    TextBox name{*this, "name"};
    Button ok{*this, "ok", "OK"};
};

TEST_F(FormKeysTest, AFormThatBeginsWithALineOpensWithItsTextSelected) {
    LineForm begins(desktop);
    const auto isThere = [&] { return begins.handle() != 0 && ::GetFocus() == of(begins, begins.name); };
    std::string typed;
    std::string afterwards;
    const Meanwhile meanwhile({isThere, [&] {
                                   Person::type("Tap");
                                   typed = begins.name.text();
                                   // back at the form everything is as it was left
                                   ::SetFocus(reinterpret_cast<HWND>(begins.handle()));
                                   Person::type("x");
                                   afterwards = begins.name.text();
                                   begins.close();
                                   return true;
                               }});
    begins.showModal(reinterpret_cast<WindowHandle>(host()));
    EXPECT_EQ(typed, "Tap");
    EXPECT_EQ(afterwards, "Tapx");
}

TEST_F(FormKeysTest, ControlTabAndControlPageDownStepThroughThePages) {
    embed();
    focus(form->grid);
    Person::press({VK_CONTROL, VK_TAB});
    EXPECT_EQ(form->tabs.index(), 1);
    Person::press({VK_CONTROL, VK_NEXT});
    EXPECT_EQ(form->tabs.index(), 0);
    Person::press({VK_CONTROL, VK_SHIFT, VK_TAB});
    EXPECT_EQ(form->tabs.index(), 1);
}

TEST_F(FormKeysTest, KeysForTheHostsOwnControlsStayTheHosts) {
    embed();
    ::SetFocus(hostBox());
    Person::type("ab");
    Person::press({VK_TAB});
    char text[20] = "";
    ::GetWindowTextA(hostBox(), text, sizeof text);
    EXPECT_STREQ(text, "ab");
    EXPECT_EQ(::GetFocus(), hostBox());
}

class ModalKeyboardTest : public FormKeysTest, public ::testing::WithParamInterface<BorderStyle> {};

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

}  // namespace
}  // namespace pellmark::test
