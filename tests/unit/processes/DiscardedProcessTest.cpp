#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ProcessDialogFixture.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kQuestion = "The process has been changed. Discard the changes?";

class DiscardedProcessTest : public ProcessDialogFixture {
  protected:
    /// The change is asked about, kept at first, and discarded at the second try.
    void expectAsked(const Script& change) {
        edit([&](FrmAddEditProcess& dialog) {
            change(dialog);
            desktop.expectMessage(kQuestion, MessageAnswer::Cancel);
            dialog.CmdCancel.click();
            EXPECT_TRUE(dialog.isShown());
            desktop.expectMessage(kQuestion, MessageAnswer::Ok);
            dialog.CmdCancel.click();
            EXPECT_FALSE(dialog.isShown());
        });
        EXPECT_THAT(changes(), IsEmpty());
    }
    void expectNothingAsked(const Script& act) {
        edit([&](FrmAddEditProcess& dialog) {
            act(dialog);
            dialog.CmdCancel.click();
            EXPECT_FALSE(dialog.isShown());
        });
        EXPECT_THAT(desktop.messages(), IsEmpty());
    }
};

TEST_F(DiscardedProcessTest, EachChangeIsAskedAbout) {
    expectAsked([](FrmAddEditProcess& dialog) { dialog.TxtName.setText("Drills"); });
    expectAsked([](FrmAddEditProcess& dialog) { dialog.TxtRule.setText(""); });
    expectAsked([](FrmAddEditProcess& dialog) { dialog.TxtDescription.setText("short  holes"); });
    expectAsked([](FrmAddEditProcess& dialog) { dialog.CmbUnit.choose(1); });
    expectAsked([](FrmAddEditProcess& dialog) { dialog.FrameMaterialClass.CmdAddAllft.click(); });
    expectAsked([](FrmAddEditProcess& dialog) { dialog.FrameMaterialClass.CmdremoveAllft.click(); });
}

TEST_F(DiscardedProcessTest, WhatWasTypedStaysWhenThePersonThinksBetterOfIt) {
    edit([&](FrmAddEditProcess& dialog) {
        dialog.TxtName.setText("Drill deep");
        dialog.FrameMaterialClass.CmdAddAllft.click();
        desktop.expectMessage(kQuestion, MessageAnswer::Cancel);
        dialog.close();
        EXPECT_EQ(dialog.TxtName.text(), "Drill deep");
        EXPECT_EQ(dialog.FrameMaterialClass.LV2.count(), 3);
        dialog.CmdOk.click();
    });
    EXPECT_EQ(stored(drill).Name, "Drill deep");
}

TEST_F(DiscardedProcessTest, AKeyPressedTooSoonKeepsTheChanges) {
    library.translations[kQuestion] = "Verwerfen?";
    edit([&](FrmAddEditProcess& dialog) {
        dialog.TxtName.setText("");
        desktop.expectMessage("Verwerfen?", MessageAnswer::Ok);
        dialog.CmdCancel.click();
    });
    EXPECT_EQ(desktop.messages().back().buttons, MessageButtons::OkCancel);
    EXPECT_TRUE(desktop.messages().back().cancelIsDefault);
}

TEST_F(DiscardedProcessTest, WithoutAChangeNothingIsAsked) {
    expectNothingAsked([](FrmAddEditProcess&) {});
    expectNothingAsked([](FrmAddEditProcess& dialog) {
        dialog.TxtName.setText("Drills");
        dialog.TxtName.setText("Drill");
        dialog.CmbUnit.choose(1);
        dialog.CmbUnit.choose(0);
        dialog.FrameMaterialClass.CmdremoveAllft.click();
        dialog.FrameMaterialClass.LV1.select(2);
        dialog.FrameMaterialClass.CmdAddft.click();
    });
    expectNothingAsked([](FrmAddEditProcess& dialog) {
        dialog.FrameMaterialClass.CmdAddAllft.click();
        dialog.RefreshNonMembers();
    });
}

TEST_F(DiscardedProcessTest, ANewProcessThatNobodyHasFilledInIsNotAskedAbout) {
    openProcesses();
    addNew([](FrmAddEditProcess& dialog) { dialog.CmdCancel.click(); });
    addNew([this](FrmAddEditProcess& dialog) {
        dialog.TxtName.setText("Tap");
        desktop.expectMessage(kQuestion);
        dialog.CmdCancel.click();
    });
    EXPECT_THAT(changes(), IsEmpty());
}

TEST_F(DiscardedProcessTest, ThePersonWhoTurnedTheQuestionOffIsNotAsked) {
    services.settings.setProcessMngrPromtToSaveDirtyProcess(0);
    expectNothingAsked([](FrmAddEditProcess& dialog) { dialog.TxtName.setText("other"); });
    EXPECT_THAT(changes(), IsEmpty());
}

TEST_F(DiscardedProcessTest, WhatAnOkHasStoredBeforeItFailedIsNoChangeAnyMore) {
    edit([&](FrmAddEditProcess& dialog) {
        dialog.TxtName.setText("Drill deep");
        base.throwOn("addMaterial");
        desktop.expectMessage("The knowledge base failed on purpose.");
        dialog.CmdOk.click();
        EXPECT_TRUE(dialog.isShown());
        dialog.CmdCancel.click();
        EXPECT_FALSE(dialog.isShown());
    });
    EXPECT_EQ(stored(drill).Name, "Drill deep");
}

TEST_F(DiscardedProcessTest, WhatAnOkCouldNotStoreIsAskedAbout) {
    edit([&](FrmAddEditProcess& dialog) {
        dialog.TxtName.setText("Drill deep");
        base.throwOn("updateProcess");
        desktop.expectMessage("The knowledge base failed on purpose.");
        dialog.CmdOk.click();
        desktop.expectMessage(kQuestion);
        dialog.CmdCancel.click();
    });
    EXPECT_EQ(stored(drill).Name, "Drill");
}

}  // namespace
}  // namespace pellmark::test
