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

}  // namespace
}  // namespace pellmark::test
