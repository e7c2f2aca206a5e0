#include "controls/AccessKeys.h"

#include <gtest/gtest.h>

#include "controls/Controls.h"
#include "support/FormHarness.h"

namespace pellmark::test {
namespace {

class KeyForm : public Form {
  public:
    explicit KeyForm(Desktop& desktop) : Form(desktop, "FrmTest") {
        setDefaultButton(&ok);
        setCancelButton(&cancel);
    }
    Label name{*this, "LblName", "Name"};
    Frame frame{*this, "Frame", "Numbers"};
    Label number{frame, "LblNumber", "Number"};
    Button nun{*this, "CmdNun", "nun"};
    Button arrow{*this, "CmdArrow", ">>"};
    Button both{*this, "CmdBoth", "Cut & Paste"};
    Button ok{*this, "CmdOk", "OK"};
    Button cancel{*this, "CmdCancel", "Cancel"};
};

struct AccessKeysTest : testing::Test {
    RecordingTrace trace;
    ScriptedDesktop desktop{Operations(trace)};
    KeyForm form{desktop};
};

TEST_F(AccessKeysTest, EachCaptionTakesTheFirstLetterThatIsFree) {
    assignAccessKeys(form);
    EXPECT_EQ(form.name.caption(), "&Name");
    EXPECT_EQ(form.number.caption(), "N&umber");
    EXPECT_EQ(form.nun.caption(), "nun") << "both of its letters are taken";
}

TEST_F(AccessKeysTest, FramesAndTheButtonsOfEnterAndEscapeGetNone) {
    assignAccessKeys(form);
    EXPECT_EQ(form.frame.caption(), "Numbers");
    EXPECT_EQ(form.ok.caption(), "OK");
    EXPECT_EQ(form.cancel.caption(), "Cancel");
    EXPECT_EQ(form.arrow.caption(), ">>");
}

TEST_F(AccessKeysTest, AnAmpersandInACaptionIsShown) {
    assignAccessKeys(form);
    EXPECT_EQ(form.both.caption(), "&Cut && Paste");
}

TEST_F(AccessKeysTest, LettersBeyondAsciiAreKeysToo) {
    form.name.setCaption("\xC3\x84nderung");  // A umlaut
    assignAccessKeys(form);
    EXPECT_EQ(form.name.caption(), "&\xC3\x84nderung");
}

TEST_F(AccessKeysTest, CapitalAndSmallLettersBeyondAsciiAreOneKey) {
    form.name.setCaption("\xD0\x95\xD0\xB4");            // Cyrillic capital ie, small de
    form.number.setCaption("\xD0\xB5\xD0\x94\xD1\x8F");  // small ie, capital de, small ya
    form.nun.setCaption("\xD0\xB4\xD1\x8E");             // small de, small yu
    assignAccessKeys(form);
    EXPECT_EQ(form.name.caption(), "&\xD0\x95\xD0\xB4");
    EXPECT_EQ(form.number.caption(), "\xD0\xB5&\xD0\x94\xD1\x8F");
    EXPECT_EQ(form.nun.caption(), "\xD0\xB4&\xD1\x8E");
}

}  // namespace
}  // namespace pellmark::test
