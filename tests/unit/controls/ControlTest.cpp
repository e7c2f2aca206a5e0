#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "controls/Controls.h"
#include "support/FormHarness.h"

namespace pellmark::test {
namespace {

TEST(AnchoredRectTest, AControlFollowsTheEdgesItIsTiedTo) {
    const Rect design{100, 200, 1000, 300};
    const Size designed{2000, 1000};
    const Size actual{2500, 1400};
    EXPECT_EQ(anchoredRect(design, designed, actual, {}), design);
    EXPECT_EQ(anchoredRect(design, designed, actual, {true, true, true, true}), (Rect{100, 200, 1500, 700}));
    EXPECT_EQ(anchoredRect(design, designed, actual, {false, false, true, true}),
              (Rect{600, 600, 1000, 300}));
}

TEST(AnchoredRectTest, TooLittleRoomLeavesNothingNegative) {
    const Rect placed =
        anchoredRect({100, 100, 500, 500}, {1000, 1000}, {200, 200}, {true, true, true, true});
    EXPECT_EQ(placed, (Rect{100, 100, 0, 0}));
}

class ControlTest : public testing::Test, protected FormHarness {};

TEST_F(ControlTest, AFrameLaysItsChildrenOutWithItself) {
    Frame frame{form, "Frame"};
    Label label{frame, "Label", "text"};
    frame.place({0, 0, 1000, 500}, {2000, 1000}, {true, true, true, true});
    label.place({100, 100, 200, 100}, {1000, 500}, {false, true, true, false});
    form.arrange({3000, 1000});
    EXPECT_EQ(frame.bounds().width, 2000);
    EXPECT_EQ(label.bounds(), (Rect{1100, 100, 200, 100}));
    EXPECT_EQ(label.form(), &form);
}

TEST_F(ControlTest, ADisabledOrHiddenButtonCannotBeClicked) {
    Button button{form, "CmdOK", "OK"};
    int clicks = 0;
    const auto subscription = button.clicked.subscribe([&] { ++clicks; });
    button.click();
    button.setEnabled(false);
    button.click();
    button.setEnabled(true);
    button.setVisible(false);
    button.click();
    EXPECT_EQ(clicks, 1);
}

TEST_F(ControlTest, ChangesAreToldOnceAndOnlyWhenTheyAre) {
    Label label{form, "Label", "text"};
    std::vector<ControlChange> heard;
    const auto subscription = label.changed.subscribe([&](ControlChange change) { heard.push_back(change); });
    label.setCaption("text");
    label.setCaption("other");
    label.setVisible(false);
    EXPECT_THAT(heard, testing::ElementsAre(ControlChange::Caption, ControlChange::Visible));
}

TEST_F(ControlTest, AComboChoosesByPositionAndForgetsWithItsItems) {
    ComboBox combo{form, "CmbUnit"};
    combo.addItem({"Inch", 70, ""});
    combo.addItem({"Metric", 71, ""});
    int clicks = 0;
    const auto subscription = combo.clicked.subscribe([&] { ++clicks; });
    combo.setIndex(1);
    EXPECT_EQ(combo.selected()->itemData, 71);
    EXPECT_EQ(clicks, 0);
    combo.choose(0);
    EXPECT_EQ(clicks, 1);
    combo.setIndex(7);
    EXPECT_EQ(combo.index(), ComboBox::kNone);
    combo.setItems({});
    EXPECT_EQ(combo.selected(), nullptr);
}

TEST_F(ControlTest, OnlyAPersonsClickOnATabIsHeardAsOne) {
    TabStrip strip{form, "Tabs"};
    TabPage first{strip, "First"};
    TabPage second{strip, "Second"};
    std::vector<int> clicks;
    const auto subscription = strip.clicked.subscribe([&](int index) { clicks.push_back(index); });
    strip.setIndex(1);
    strip.click(0);
    EXPECT_EQ(strip.index(), 0);
    EXPECT_THAT(clicks, testing::ElementsAre(0));
}

class FormTest : public ControlTest {
  protected:
    struct Probe : Form {
        using Form::Form;
        void Form_Load() override {
            ++loads;
            if (refuses) abandonLoad();
        }
        void Form_QueryUnload() override { ++unloads; }
        bool refuses = false;
        int loads = 0;
        int unloads = 0;
    };
    Probe probe{desktop, "FrmProbe"};
};

TEST_F(FormTest, LoadingAndUnloadingRunTheirHandlersOnce) {
    probe.load();
    probe.load();
    EXPECT_TRUE(probe.isLoaded());
    probe.unload();
    probe.unload();
    EXPECT_EQ(probe.loads, 1);
    EXPECT_EQ(probe.unloads, 1);
    EXPECT_THAT(desktop.windows(), testing::ElementsAre("create FrmProbe", "destroy FrmProbe"));
}

TEST_F(FormTest, AModalFormIsGoneWhenItsShowReturns) {
    desktop.expectDialog("FrmProbe", [&](Form& shown) {
        EXPECT_TRUE(shown.isShown());
        shown.unload();
    });
    probe.showModal(9);
    EXPECT_FALSE(probe.isLoaded());
    EXPECT_THAT(desktop.windows(),
                testing::ElementsAre("create FrmProbe", "modal FrmProbe 9", "destroy FrmProbe"));
}

TEST_F(FormTest, AFormMayBeShownAgain) {
    probe.embed(7);
    EXPECT_EQ(probe.embeddedIn(), 7U);
    probe.unload();
    EXPECT_FALSE(probe.isEmbedded());
    probe.embed(8);
    EXPECT_EQ(probe.loads, 2);
    EXPECT_TRUE(probe.isShown());
}

TEST_F(FormTest, AFormThatRefusesToLoadIsNotShownAndMayBeAskedAgain) {
    probe.refuses = true;
    probe.showModal(9);
    probe.embed(7);
    EXPECT_FALSE(probe.isLoaded());
    EXPECT_FALSE(probe.isShown());
    EXPECT_EQ(probe.unloads, 0);
    EXPECT_THAT(desktop.windows(), testing::IsEmpty());
    probe.refuses = false;
    probe.embed(7);
    EXPECT_TRUE(probe.isShown());
}

TEST_F(FormTest, ClosingByTheBoxUnloadsWhereNoCancelButtonIs) {
    probe.embed(7);
    probe.close();
    EXPECT_FALSE(probe.isLoaded());
}

}  // namespace
}  // namespace pellmark::test
