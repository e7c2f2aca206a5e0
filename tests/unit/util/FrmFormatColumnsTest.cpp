#include "util/FrmFormatColumns.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/PortsHarness.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FrmFormatColumnsTest : public testing::Test, protected ServicesHarness {
  protected:
    FrmFormatColumnsTest() { columns({"_Id", "_Name", "_Rule", "_FeatureCaseId"}); }

    void columns(const std::vector<std::string>& keys) {
        grid.setCols(static_cast<int>(keys.size()));
        for (int col = 0; col < grid.cols(); ++col) {
            const std::string& key = keys[static_cast<std::size_t>(col)];
            grid.setColKey(col, key);
            grid.setText(0, col, "[" + key + "]");
        }
    }
    /// The caption without the access key that the dialog has chosen.
    static std::string plain(const Button& button) {
        std::string caption = button.caption();
        std::erase(caption, '&');
        return caption;
    }
    std::vector<std::string> offered() const {
        std::vector<std::string> texts;
        for (const CheckList::Item& item : chooser.List.items())
            texts.push_back(item.text);
        return texts;
    }
    std::vector<bool> selected() const {
        std::vector<bool> states;
        for (int i = 0; i < chooser.List.count(); ++i)
            states.push_back(chooser.List.isSelected(i));
        return states;
    }

    Grid grid{form, "VSFG"};
    FrmFormatColumns chooser{person, grid};
};

TEST_F(FrmFormatColumnsTest, OffersTheHeadingsInTheGridsOrder) {
    grid.setColPosition(2, 0);
    chooser.load();
    EXPECT_EQ(chooser.caption(), "Field Chooser");
    EXPECT_EQ(chooser.FrameAvailableFields.caption(), "Available Fields");
    EXPECT_EQ(plain(chooser.CmdOK), "OK");
    EXPECT_EQ(plain(chooser.CmdApply), "Apply");
    EXPECT_EQ(plain(chooser.CmdCalcel), "Cancel");
    EXPECT_EQ(plain(chooser.CmdHelp), "Help");
    EXPECT_EQ(chooser.CmdCalcel.name(), "CmdCalcel");
    EXPECT_THAT(offered(), ElementsAre("[_Name]", "[_Rule]"));
    EXPECT_EQ(chooser.List.items()[0].itemData, 1);
    EXPECT_EQ(chooser.List.items()[1].itemData, 2);
}

TEST_F(FrmFormatColumnsTest, IdsAndBookkeepingAreNeverOffered) {
    columns({"_ID", "_KeyId", "_PartMaterialGroupId", "FixedRow", "_Priority", "_MaterialId",
             "_DefaultTechId", "_FeatureCaseId"});
    chooser.load();
    EXPECT_THAT(offered(), IsEmpty());
    chooser.CmdApply_Click();
    for (int col = 0; col < grid.cols(); ++col)
        EXPECT_FALSE(grid.colHidden(col));
}

TEST_F(FrmFormatColumnsTest, ExcludedKeysAreFoundInWhateverCase) {
    columns({"_id", "fixedrow", "_ProcessId", "_priority", "_Name"});
    chooser.load();
    EXPECT_THAT(offered(), ElementsAre("[_ProcessId]", "[_Name]"));
}

TEST_F(FrmFormatColumnsTest, HiddenColumnsAppearUnselected) {
    grid.setColHidden(1, true);
    grid.setColEditable(2, true);
    chooser.load();
    EXPECT_THAT(selected(), ElementsAre(false, true));
    ASSERT_EQ(chooser.columns().size(), 2U);
    EXPECT_TRUE(chooser.columns()[0].hidden);
    EXPECT_FALSE(chooser.columns()[0].editable);
    EXPECT_EQ(chooser.columns()[0].key, "_Name");
    EXPECT_EQ(chooser.columns()[1].caption, "[_Rule]");
    EXPECT_TRUE(chooser.columns()[1].editable);
}

TEST_F(FrmFormatColumnsTest, ApplyShowsWhatIsSelectedAndStaysOpen) {
    grid.setColHidden(1, true);
    chooser.load();
    chooser.List.setSelected(0, true);
    chooser.List.setSelected(1, false);
    EXPECT_TRUE(grid.colHidden(1)) << "nothing happens before Apply";
    chooser.CmdApply.click();
    EXPECT_FALSE(grid.colHidden(1));
    EXPECT_TRUE(grid.colHidden(2));
    EXPECT_TRUE(chooser.isLoaded());
    EXPECT_FALSE(grid.colHidden(0)) << "what is not offered is left alone";
}

TEST_F(FrmFormatColumnsTest, ThePeerHearsOnceOfApply) {
    chooser.load();
    chooser.List.setSelected(0, false);
    chooser.List.setSelected(1, false);
    int changes = 0;
    const auto heard = grid.gridChanged.subscribe([&](const GridChange&) { ++changes; });
    chooser.CmdApply.click();
    EXPECT_EQ(changes, 1);
}

TEST_F(FrmFormatColumnsTest, OkAppliesAndCloses) {
    chooser.load();
    chooser.List.setSelected(0, false);
    chooser.CmdOK.click();
    EXPECT_TRUE(grid.colHidden(1));
    EXPECT_FALSE(chooser.isLoaded());
}

TEST_F(FrmFormatColumnsTest, CancelAppliesNothing) {
    chooser.load();
    chooser.List.setSelected(0, false);
    chooser.CmdCalcel.click();
    EXPECT_FALSE(grid.colHidden(1));
    EXPECT_FALSE(chooser.isLoaded());
}

TEST_F(FrmFormatColumnsTest, CancelAfterApplyKeepsWhatWasApplied) {
    chooser.load();
    chooser.List.setSelected(0, false);
    chooser.CmdApply.click();
    chooser.List.setSelected(1, false);
    chooser.CmdCalcel.click();
    EXPECT_TRUE(grid.colHidden(1));
    EXPECT_FALSE(grid.colHidden(2));
}

TEST_F(FrmFormatColumnsTest, WhatIsAppliedIsRemembered) {
    chooser.load();
    chooser.List.setSelected(0, false);
    chooser.CmdApply.click();
    grid.setColHidden(1, false);
    services.layouts.RestoreVSDataGrid(grid);
    EXPECT_TRUE(grid.colHidden(1));
}

TEST_F(FrmFormatColumnsTest, TheListHasTheKeyboardAndTheButtonsDoWhatTheirKeysSay) {
    chooser.load();
    EXPECT_EQ(chooser.focused(), &chooser.List);
    EXPECT_EQ(chooser.defaultButton(), &chooser.CmdOK);
    EXPECT_EQ(chooser.cancelButton(), &chooser.CmdCalcel);
    EXPECT_TRUE(chooser.isSizable());
}

TEST_F(FrmFormatColumnsTest, HelpOpensOverTheDialog) {
    chooser.load();
    chooser.CmdHelp.click();
    ASSERT_EQ(help.opened.size(), 1U);
    EXPECT_EQ(help.opened[0].owner, chooser.handle());
    EXPECT_EQ(help.opened[0].topic, "5000");
}

TEST_F(FrmFormatColumnsTest, EveryTextIsLookedUp) {
    library.translations = {{"Field Chooser", "Feldauswahl"},
                            {"Available Fields", "Felder"},
                            {"OK", "Gut"},
                            {"Apply", "Anwenden"},
                            {"Cancel", "Abbrechen"},
                            {"Help", "Hilfe"}};
    services.configureTexts(*host, "Norvex - Process Manager");
    chooser.load();
    EXPECT_EQ(chooser.caption(), "Feldauswahl");
    EXPECT_EQ(chooser.FrameAvailableFields.caption(), "Felder");
    EXPECT_EQ(plain(chooser.CmdOK), "Gut");
    EXPECT_EQ(plain(chooser.CmdApply), "Anwenden");
    EXPECT_EQ(plain(chooser.CmdCalcel), "Abbrechen");
    EXPECT_EQ(plain(chooser.CmdHelp), "Hilfe");
}

TEST_F(FrmFormatColumnsTest, ItOpensWhereItWasLeftHoweverItWasClosed) {
    for (Button* button : {&chooser.CmdOK, &chooser.CmdCalcel}) {
        chooser.load();
        const Rect place{button == &chooser.CmdOK ? 300 : 600, 400, 6000, 5000};
        chooser.setBounds(place);
        button->click();
        FrmFormatColumns again(person, grid);
        again.load();
        EXPECT_EQ(again.bounds(), place);
        again.unload();
    }
}

TEST_F(FrmFormatColumnsTest, NothingOverlapsInTheRowOfButtons) {
    const std::vector<const Button*> row{&chooser.CmdOK, &chooser.CmdCalcel, &chooser.CmdApply,
                                         &chooser.CmdHelp};
    for (std::size_t i = 0; i + 1 < row.size(); ++i)
        EXPECT_LT(row[i]->bounds().right(), row[i + 1]->bounds().left);
    EXPECT_GT(chooser.CmdOK.bounds().left, 0);
    EXPECT_GE(chooser.CmdOK.bounds().top, chooser.FrameAvailableFields.bounds().bottom());
}

TEST_F(FrmFormatColumnsTest, ReopenedItOffersWhatThereIsThen) {
    chooser.load();
    chooser.CmdCalcel.click();
    columns({"_Id", "_Name"});
    chooser.load();
    EXPECT_THAT(offered(), ElementsAre("[_Name]"));
    EXPECT_EQ(chooser.columns().size(), 1U);
}

}  // namespace
}  // namespace pellmark::test
