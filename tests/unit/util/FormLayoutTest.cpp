#include "util/FormLayout.h"

#include <gtest/gtest.h>

#include "controls/Splitter.h"
#include "controls/list/ListView.h"
#include "processes/FrmEditProcessMaterials.h"
#include "support/PortsHarness.h"

namespace pellmark::test {
namespace {

class FormLayoutTest : public testing::Test, protected ServicesHarness {
  protected:
    FormLayoutTest() {
        list.setColumnHeaders({{"Members", 2000}});
        inPage.setColumnHeaders({{"Members", 2000}});
    }
    cRegDefaults& layouts = services.layouts;
    Frame frame{form, "Frame"};
    ListView list{frame, "LV1"};
    TabStrip tabs{form, "Tabs"};
    TabPage page{tabs, "Page"};
    ListView inPage{page, "LV2"};
    ComboBox combo{form, "Cmb"};
    TextBox box{form, "Txt"};

    static constexpr const char* kKey =
        "Software\\Orvane\\Applications\\Norvex - Process Manager\\DialogSettings\\FrmTest";
};

TEST_F(FormLayoutTest, PlaceAndChosenWidthsComeBackWhereverTheListsStand) {
    form.setBounds({100, 200, 3000, 2000});
    list.userResizedColumn(0, 1111);
    inPage.userResizedColumn(0, 2222);
    saveFormLayout(form, layouts);
    form.setBounds({5, 6, 3000, 2000});
    list.setColumnHeaders({{"Members", 1}});
    inPage.setColumnHeaders({{"Members", 1}});
    restoreFormLayout(form, layouts);
    EXPECT_EQ(form.bounds(), (Rect{100, 200, 3000, 2000}));
    EXPECT_EQ(list.columnHeaders()[0].width, 1111);
    EXPECT_EQ(inPage.columnHeaders()[0].width, 2222);
}

TEST_F(FormLayoutTest, AWidthThatNobodyChoseIsNotStoredAndGoesOnFollowingTheForm) {
    saveFormLayout(form, layouts);
    EXPECT_FALSE(registry.hasKey(Registry::kCurrentUser, kKey));
    restoreFormLayout(form, layouts);
    list.suggestColumnWidth(0, 3333);
    EXPECT_EQ(list.columnHeaders()[0].width, 3333);
}

TEST_F(FormLayoutTest, ABarComesBackWhereverItStandsOnceAPersonHasMovedIt) {
    Splitter bar{page, "Split", Splitter::Bar::Standing};
    saveFormLayout(form, layouts);
    EXPECT_FALSE(registry.hasKey(Registry::kCurrentUser, kKey));
    bar.setDivision({6000, 1000, 1000, 3000});
    bar.moveTo(1500);
    saveFormLayout(form, layouts);
    EXPECT_EQ(registry.number(Registry::kCurrentUser, kKey, "Split"), 2500);
    bar.setShare(std::nullopt);
    restoreFormLayout(form, layouts);
    EXPECT_EQ(bar.first(), 1500);
    bar.choose(std::nullopt);
    saveFormLayout(form, layouts);
    EXPECT_FALSE(registry.number(Registry::kCurrentUser, kKey, "Split"));
}

TEST_F(FormLayoutTest, WhatIsBeingEditedIsNotRemembered) {
    box.setText("Drill");
    combo.setItems({{"Inch", 70, ""}});
    combo.setIndex(0);
    form.setBounds({100, 200, 3000, 2000});
    saveFormLayout(form, layouts);
    EXPECT_FALSE(registry.text(Registry::kCurrentUser, kKey, "Txt"));
    EXPECT_FALSE(registry.number(Registry::kCurrentUser, kKey, "Cmb"));
}

TEST_F(FormLayoutTest, ADialogOpensAsItWasLeftBeforeItsWindowIsMade) {
    const std::string id = base.addProcess("Drill");
    desktop.expectDialog("FrmEditProcessMaterials", [](Form& dialog) {
        auto& materials = static_cast<FrmEditProcessMaterials&>(dialog);
        dialog.setBounds({100, 200, 9900, 6600});
        materials.FrameMaterials.LV1.userResizedColumn(0, 1234);
        materials.CmdCancel_Click();
    });
    FrmEditProcessMaterials(person, base, id).showModal(9);

    FrmEditProcessMaterials again(person, base, id);
    again.load();
    EXPECT_EQ(again.bounds(), (Rect{100, 200, 9900, 6600}));
    EXPECT_EQ(again.FrameMaterials.LV1.columnHeaders()[0].width, 1234);
    again.arrange({12000, 8000});
    EXPECT_EQ(again.FrameMaterials.LV1.columnHeaders()[0].width, 1234);
    EXPECT_GT(again.FrameMaterials.LV2.columnHeaders()[0].width, 3000) << "that one still follows";
}

TEST_F(FormLayoutTest, ADialogThatCouldNotOpenLeavesNothingBehind) {
    base.throwOn("materials");
    desktop.expectMessage("The knowledge base failed on purpose.");
    FrmEditProcessMaterials(person, base, base.addProcess("Drill")).showModal(9);
    EXPECT_FALSE(registry.hasKey(Registry::kCurrentUser, "Software\\Orvane"));
}

}  // namespace
}  // namespace pellmark::test
