#include "processes/FrmAddEditProcess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ProcessDialogFixture.h"

namespace pellmark::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class FrmAddEditProcessTest : public ProcessDialogFixture {};

TEST_F(FrmAddEditProcessTest, OpensOnTheCurrentProcess) {
    library.translations["Edit Process"] = "must not be looked up";
    edit([&](FrmAddEditProcess& dialog) {
        EXPECT_EQ(dialog.caption(), "Edit Process");
        EXPECT_EQ(dialog.TxtName.text(), "Drill");
        EXPECT_EQ(dialog.TxtRule.text(), "Depth < 3");
        EXPECT_EQ(dialog.TxtDescription.text(), "short holes");
        EXPECT_EQ(dialog.CmbUnit.selected()->text, "Inch");
        EXPECT_THAT(shown(dialog.FrameMaterialClass.LV1), ElementsAre("Brass", "Tin"));
        EXPECT_THAT(shown(dialog.FrameMaterialClass.LV2), ElementsAre("Steel"));
        EXPECT_EQ(dialog.FrameMaterialClass.LV2.item(0).key, steel);
        dialog.CmdCancel.click();
    });
    EXPECT_THAT(changes(), IsEmpty());
    EXPECT_THAT(trace.lines(), IsEmpty());
}

TEST_F(FrmAddEditProcessTest, TheUnitListHoldsTwoLiteralItems) {
    library.translations["Metric"] = "metrisch";
    openProcesses();
    addNew([&](FrmAddEditProcess& dialog) {
        ASSERT_EQ(dialog.CmbUnit.items().size(), 2U);
        EXPECT_EQ(dialog.CmbUnit.items().at(0).text, "Inch");
        EXPECT_EQ(dialog.CmbUnit.items().at(0).itemData, 70);
        EXPECT_EQ(dialog.CmbUnit.items().at(1).text, "Metric");
        EXPECT_EQ(dialog.CmbUnit.items().at(1).itemData, 71);
        dialog.CmdCancel.click();
    });
}

TEST_F(FrmAddEditProcessTest, AUnitThatIsNeitherSelectsNone) {
    base.tables().findProcess(drill)->record.Unit = 99;
    edit([&](FrmAddEditProcess& dialog) {
        EXPECT_EQ(dialog.CmbUnit.selected(), nullptr);
        dialog.CmdCancel.click();
    });
}

TEST_F(FrmAddEditProcessTest, ListsAndButtonsCarryTranslatedTexts) {
    for (const char* text :
         {"Nonmembers", "Members", "Move Selected Items to Members List", "Move All Items to Members List",
          "Move Selected Items to Nonmembers List", "Move All Items to Nonmembers List"})
        library.translations[text] = std::string("t ") + text;
    openProcesses();
    addNew([&](FrmAddEditProcess& dialog) {
        MemberLists& lists = dialog.FrameMaterialClass;
        EXPECT_EQ(lists.LV1.columnHeaders().at(0).text, "t Nonmembers");
        EXPECT_EQ(lists.LV2.columnHeaders().at(0).text, "t Members");
        EXPECT_EQ(lists.CmdAddft.toolTip(), "t Move Selected Items to Members List");
        EXPECT_EQ(lists.CmdAddAllft.toolTip(), "t Move All Items to Members List");
        EXPECT_EQ(lists.CmdRevomeft.toolTip(), "t Move Selected Items to Nonmembers List");
        EXPECT_EQ(lists.CmdremoveAllft.toolTip(), "t Move All Items to Nonmembers List");
        dialog.CmdCancel.click();
    });
}

TEST_F(FrmAddEditProcessTest, OkStoresWhatWasTypedAndRefreshesTheRow) {
    edit([&](FrmAddEditProcess& dialog) {
        dialog.TxtName.setText("Drill deep");
        dialog.TxtRule.setText("Depth > 3");
        dialog.TxtDescription.setText("");
        dialog.CmbUnit.choose(1);
        dialog.CmdOk.click();
    });
    EXPECT_EQ(stored(drill), (ProcessRecord{drill, "Drill deep", unit::kMetric, "", "Depth > 3"}));
    Grid& grid = list().grid();
    EXPECT_EQ(grid.text(1, field::kName), "Drill deep");
    EXPECT_EQ(grid.displayText(1, grid.colIndex(field::kUnit)), "Metric");
    EXPECT_EQ(list().SelectedProcessID(), drill);
}

TEST_F(FrmAddEditProcessTest, ARuleOf250CharactersIsAcceptedAndOf251IsNot) {
    library.translations["Rule cannot exceed 250 characters"] = "Regel zu lang";
    edit([&](FrmAddEditProcess& dialog) {
        dialog.TxtRule.setText(std::string(251, 'r'));
        desktop.expectMessage("Regel zu lang");
        dialog.CmdOk.click();
        EXPECT_TRUE(dialog.isShown());
        EXPECT_EQ(dialog.TxtRule.text().size(), 251U);
        EXPECT_THAT(changes(), IsEmpty());
        dialog.TxtRule.setText(std::string(250, 'r'));
        dialog.CmdOk.click();
    });
    EXPECT_EQ(stored(drill).Rule, std::string(250, 'r'));
    EXPECT_EQ(desktop.messages().back().icon, MessageIcon::Information);
    EXPECT_EQ(desktop.messages().back().title, "Norvex - Process Manager");
}

TEST_F(FrmAddEditProcessTest, TheRulesLengthCountsAnEmojiAsTwo) {
    std::string wide;
    for (int i = 0; i < 125; ++i)
        wide += "\xF0\x9F\x94\xA9";
    edit([&](FrmAddEditProcess& dialog) {
        dialog.TxtRule.setText(wide + "x");
        desktop.expectMessage("Rule cannot exceed 250 characters");
        dialog.CmdOk.click();
        dialog.TxtRule.setText(wide);
        dialog.CmdOk.click();
    });
    EXPECT_EQ(stored(drill).Rule, wide);
}

TEST_F(FrmAddEditProcessTest, AnEmptyNameIsRefusedAndOneOfBlanksIsNot) {
    library.translations["Name cannot be blank"] = "Name fehlt";
    edit([&](FrmAddEditProcess& dialog) {
        dialog.TxtName.setText("");
        desktop.expectMessage("Name fehlt");
        dialog.CmdOk.click();
        EXPECT_TRUE(dialog.isShown());
        dialog.TxtName.setText("  ");
        dialog.CmdOk.click();
    });
    EXPECT_EQ(stored(drill).Name, "  ");
    EXPECT_EQ(desktop.messages().back().icon, MessageIcon::Critical);
    EXPECT_EQ(desktop.messages().back().title, "Norvex - Process Manager");
}

TEST_F(FrmAddEditProcessTest, OfALongRuleAndAnEmptyNameOnlyTheRuleIsTold) {
    edit([&](FrmAddEditProcess& dialog) {
        dialog.TxtRule.setText(std::string(300, 'r'));
        dialog.TxtName.setText("");
        desktop.expectMessage("Rule cannot exceed 250 characters");
        dialog.CmdOk.click();
        EXPECT_EQ(desktop.messages().size(), 1U);
        desktop.expectMessage("The process has been changed. Discard the changes?");
        dialog.CmdCancel.click();
    });
}

TEST_F(FrmAddEditProcessTest, MovedMaterialsAreStoredMembersFirstAndEveryItemIsSent) {
    edit([&](FrmAddEditProcess& dialog) {
        dialog.FrameMaterialClass.LV1.select(1);
        dialog.FrameMaterialClass.CmdAddft.click();
        dialog.CmdOk.click();
    });
    EXPECT_THAT(changes(),
                ElementsAre("updateProcess " + drill, "addMaterial " + drill + " " + steel,
                            "addMaterial " + drill + " " + tin, "removeMaterial " + drill + " " + brass));
    EXPECT_THAT(base.tables().findProcess(drill)->materials, ElementsAre(steel, tin));
}

TEST_F(FrmAddEditProcessTest, CancelAfterMovingMaterialsChangesNothing) {
    edit([&](FrmAddEditProcess& dialog) {
        dialog.FrameMaterialClass.CmdAddAllft.click();
        dialog.TxtName.setText("other");
        desktop.expectMessage("The process has been changed. Discard the changes?");
        dialog.CmdCancel.click();
    });
    EXPECT_THAT(changes(), IsEmpty());
    EXPECT_EQ(stored(drill).Name, "Drill");
}

TEST_F(FrmAddEditProcessTest, ClosingTheWindowIsCancelling) {
    edit([&](FrmAddEditProcess& dialog) {
        dialog.TxtName.setText("other");
        desktop.expectMessage("The process has been changed. Discard the changes?");
        dialog.close();
    });
    EXPECT_THAT(changes(), IsEmpty());
}

TEST_F(FrmAddEditProcessTest, RefreshForgetsMovesThatWereNotStored) {
    edit([&](FrmAddEditProcess& dialog) {
        dialog.FrameMaterialClass.CmdremoveAllft.click();
        EXPECT_THAT(shown(dialog.FrameMaterialClass.LV2), IsEmpty());
        dialog.FrameMaterialClass.Cmdrefresh.click();
        EXPECT_THAT(shown(dialog.FrameMaterialClass.LV2), ElementsAre("Steel"));
        dialog.CmdCancel.click();
    });
}

TEST_F(FrmAddEditProcessTest, TheExpressionBuilderChangesTheRuleUnlessItWasCancelled) {
    edit([&](FrmAddEditProcess& dialog) {
        dialog.CmdBuildExpression.click();
        EXPECT_EQ(dialog.TxtRule.text(), "Depth < 3");
        host->builtRule = "Depth < 4";
        dialog.CmdBuildExpression.click();
        EXPECT_EQ(dialog.TxtRule.text(), "Depth < 4");
        desktop.expectMessage("The process has been changed. Discard the changes?");
        dialog.CmdCancel.click();
    });
    EXPECT_THAT(host->rulesOffered, ElementsAre("Depth < 3", "Depth < 3"));
}

TEST_F(FrmAddEditProcessTest, TheExpressionBuilderOpensOverTheDialog) {
    struct BuildingHost : FakeHost {
        std::string buildExpression(const std::string&, WindowHandle over) override {
            owner = over;
            return {};
        }
        WindowHandle owner = 0;
    };
    const auto building = std::make_shared<BuildingHost>();
    services.host.set(building);
    edit([&](FrmAddEditProcess& dialog) {
        dialog.CmdBuildExpression.click();
        EXPECT_NE(building->owner, 0);
        EXPECT_EQ(building->owner, dialog.handle());
        dialog.CmdCancel.click();
    });
}

TEST_F(FrmAddEditProcessTest, HelpOpensTheHelpContextOverTheDialog) {
    edit([&](FrmAddEditProcess& dialog) {
        dialog.CmdHelp.click();
        ASSERT_EQ(help.opened.size(), 1U);
        EXPECT_EQ(help.opened.back().topic, "5000");
        EXPECT_EQ(help.opened.back().owner, dialog.handle());
        dialog.CmdCancel.click();
    });
}

TEST_F(FrmAddEditProcessTest, EditingInACaseAttachesNothing) {
    base.addFeatureCase(hole, {d8}, {drill});
    openCase({d8}, unit::kInch);
    expectDialog([](FrmAddEditProcess& dialog) { dialog.CmdOk.click(); });
    list().Editwizard();
    EXPECT_THAT(base.callsOf("attach"), IsEmpty());
    EXPECT_THAT(base.callsOf("updateProcess"), ElementsAre("updateProcess " + drill));
}

TEST_F(FrmAddEditProcessTest, AFailingUpdateIsToldAndTheDialogStaysOpenWithItsInput) {
    base.throwOn("updateProcess", errors::kKnowledgeBase, "The disk is full.");
    edit([&](FrmAddEditProcess& dialog) {
        dialog.TxtName.setText("other");
        desktop.expectMessage("The disk is full.");
        dialog.CmdOk.click();
        EXPECT_TRUE(dialog.isShown());
        EXPECT_EQ(dialog.TxtName.text(), "other");
        base.stopThrowing();
        dialog.CmdOk.click();
    });
    EXPECT_EQ(desktop.messages().back().icon, MessageIcon::Critical);
    EXPECT_TRUE(trace.trapped("FrmAddEditProcess::CmdOk_Click"));
    EXPECT_EQ(stored(drill).Name, "other");
}

TEST_F(FrmAddEditProcessTest, TheRowShowsWhatWasStoredThoughTheMaterialsCouldNotBe) {
    edit([&](FrmAddEditProcess& dialog) {
        dialog.TxtName.setText("Drill deep");
        base.throwOn("addMaterial", errors::kKnowledgeBase, "The disk is full.");
        desktop.expectMessage("The disk is full.");
        dialog.CmdOk.click();
        dialog.CmdCancel.click();
    });
    EXPECT_EQ(list().grid().text(1, field::kName), "Drill deep");
}

TEST_F(FrmAddEditProcessTest, AProcessThatWasDeletedMeanwhileIsToldOnOk) {
    edit([&](FrmAddEditProcess& dialog) {
        base.tables().processes.clear();
        desktop.expectMessage("The process " + drill + " does not exist.");
        dialog.CmdOk.click();
        dialog.CmdCancel.click();
    });
}

TEST_F(FrmAddEditProcessTest, AProcessThatWasDeletedBeforeOpensNoDialog) {
    openProcesses();
    base.tables().processes.clear();
    desktop.expectMessage("The process " + drill + " does not exist.");
    list().editForHost(drill, 0);
    EXPECT_EQ(desktop.messages().back().icon, MessageIcon::Critical);
    EXPECT_THAT(desktop.windows(), Not(Contains(HasSubstr("FrmAddEditProcess"))));
    EXPECT_TRUE(trace.trapped("FrmAddEditProcess::Form_Load"));
}

TEST_F(FrmAddEditProcessTest, MaterialsThatCannotBeReadOpenNoDialogButSayWhy) {
    base.throwOn("materialsOf");
    openProcesses();
    desktop.expectMessage("The knowledge base failed on purpose.");
    list().Editwizard();
    EXPECT_THAT(desktop.windows(), IsEmpty());
}

TEST_F(FrmAddEditProcessTest, ARefreshThatFailsLeavesTheListsAsTheyAre) {
    edit([&](FrmAddEditProcess& dialog) {
        base.throwOn("materialsOf");
        desktop.expectMessage("The knowledge base failed on purpose.");
        dialog.FrameMaterialClass.Cmdrefresh.click();
        EXPECT_THAT(shown(dialog.FrameMaterialClass.LV2), ElementsAre("Steel"));
        dialog.CmdCancel.click();
    });
}

TEST_F(FrmAddEditProcessTest, ATextLongerThanItsFieldIsRefusedByTheStoreAndTold) {
    edit([&](FrmAddEditProcess& dialog) {
        dialog.TxtDescription.setText(std::string(1001, 'd'));
        desktop.expectMessage("The description has 1001 characters; it cannot have more than 1000.");
        dialog.CmdOk.click();
        desktop.expectMessage("The process has been changed. Discard the changes?");
        dialog.CmdCancel.click();
    });
}

TEST_F(FrmAddEditProcessTest, WithoutTheRightNoDialogOpens) {
    base.allowed = {};
    openProcesses();
    desktop.expectMessage("You do not have permission to add new objects to the database!");
    list().AddNewWizard();
    desktop.expectMessage("You do not have permission to edit objects in the database!");
    list().Editwizard();
    EXPECT_THAT(desktop.windows(), IsEmpty());
}

TEST_F(FrmAddEditProcessTest, EditingWithoutADataRowOpensNothing) {
    base.tables().processes.clear();
    openProcesses();
    list().Editwizard();
    EXPECT_THAT(desktop.windows(), IsEmpty());
}

TEST_F(FrmAddEditProcessTest, EnterAndEscapeAreOkAndCancelAndOtherCaptionsHaveTheirOwnKeys) {
    openProcesses();
    addNew([&](FrmAddEditProcess& dialog) {
        EXPECT_EQ(dialog.defaultButton(), &dialog.CmdOk);
        EXPECT_EQ(dialog.cancelButton(), &dialog.CmdCancel);
        EXPECT_EQ(dialog.helpButton(), &dialog.CmdHelp);
        EXPECT_EQ(dialog.LblName.caption(), "&Name");
        EXPECT_EQ(dialog.LblUnit.caption(), "&Unit");
        EXPECT_EQ(dialog.LblRule.caption(), "&Rule");
        EXPECT_EQ(dialog.FrameMaterialClass.Cmdrefresh.caption(), "R&efresh");
        dialog.CmdCancel.click();
    });
}

TEST_F(FrmAddEditProcessTest, TheListsGrowWithTheDialogAndTheButtonsStayAtItsCorner) {
    FrmAddEditProcess dialog(person, base, services.settings, services.host, nullptr, "", nullptr);
    dialog.resized({12300, 9650});
    EXPECT_EQ(dialog.TxtName.bounds().right(), 12150);
    EXPECT_EQ(dialog.CmdHelp.bounds().right(), 12150);
    EXPECT_EQ(dialog.CmdHelp.bounds().bottom(), 9500);
    const MemberLists& lists = dialog.FrameMaterialClass;
    EXPECT_EQ(lists.bounds().width, 12000);
    EXPECT_EQ(lists.LV2.bounds().right(), 11850);
    EXPECT_EQ(lists.LV1.bounds().width, lists.LV2.bounds().width);
    EXPECT_GT(lists.CmdAddft.bounds().left, lists.LV1.bounds().right());
    EXPECT_LT(lists.CmdAddft.bounds().right(), lists.LV2.bounds().left);
    EXPECT_LE(lists.LV1.bounds().bottom(), lists.bounds().height);
}

TEST_F(FrmAddEditProcessTest, EveryCaptionIsTranslated) {
    library.translations = {
        {"Name", "1"},        {"Unit", "2"},           {"Rule", "3"}, {"Build Expression...", "4"},
        {"Description", "5"}, {"Material Class", "6"}, {"OK", "7"},   {"Cancel", "8"},
        {"Help", "9"}};
    edit([&](FrmAddEditProcess& dialog) {
        std::string captions;
        for (const Control* control : std::initializer_list<const Control*>{
                 &dialog.LblName, &dialog.LblUnit, &dialog.LblRule, &dialog.CmdBuildExpression,
                 &dialog.LblDescription, &dialog.FrameMaterialClass, &dialog.CmdOk, &dialog.CmdCancel,
                 &dialog.CmdHelp}) {
            for (const char c : control->caption())
                if (c != '&') captions += c;
        }
        EXPECT_EQ(captions, "123456789");
        dialog.CmdCancel.click();
    });
}

}  // namespace
}  // namespace pellmark::test
