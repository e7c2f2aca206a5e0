// The bars between the parts of the feature case view: what they move, and where they are found again.
#include <gtest/gtest.h>

#include "host/FrmMain.h"
#include "support/PortsHarness.h"

namespace pellmark::test {
namespace {

constexpr Size kHigh{16000, 11000};
constexpr Size kLow{16000, 7200};

class MainSplittersTest : public testing::Test, protected ServicesHarness {
  protected:
    MainSplittersTest() { open(main, kHigh); }

    /// The page as its tabs' window, of which there is none here, would give it.
    static void open(FrmMain& form, Size page) {
        form.SetView(FRView::FRProcesscase);
        form.load();
        resize(form, page);
    }
    static void resize(FrmMain& form, Size page) {
        form.SizerProcessCase.setBounds({0, 0, page.width, page.height});
        form.SizerProcessCase.arrange(page);
    }
    std::optional<std::int32_t> stored(const char* name) {
        return registry.number(
            Registry::kCurrentUser,
            "Software\\Orvane\\Applications\\Norvex - Process Manager\\DialogSettings\\FrmMain", name);
    }

    FrmMain main{services.forViews()};
};

TEST_F(MainSplittersTest, TheBarBelowTheFiltersGivesTheFeatureCaseItsHeight) {
    const Twips before = main.VSFGProcessCase.bounds().height;
    main.SplitFilters.moveBy(600);
    EXPECT_NEAR(main.VSFGProcessCase.bounds().height, before + 600, 2);
    EXPECT_EQ(main.FrameProcessCaseResults.bounds().top, main.SplitFilters.bounds().bottom());
    EXPECT_EQ(main.SplitFilters.bounds().top, main.FrameFilters.bounds().bottom());
}

TEST_F(MainSplittersTest, TheBarBetweenTheListsGivesOneWhatItTakesFromTheOther) {
    const Twips processes = main.VSFGProcessCaseResults.bounds().height;
    const Twips steps = main.VSFGProcessStep.bounds().height;
    main.SplitSteps.moveBy(-450);
    EXPECT_NEAR(main.VSFGProcessCaseResults.bounds().height, processes - 450, 2);
    EXPECT_NEAR(main.VSFGProcessStep.bounds().height, steps + 450, 2);
}

TEST_F(MainSplittersTest, NoListGetsLowerThanThreeRows) {
    main.SplitFilters.moveTo(100000);
    main.SplitSteps.moveTo(0);
    EXPECT_GE(main.VSFGProcessCaseResults.bounds().height, layout::leastListHeight({}));
    main.SplitSteps.moveTo(100000);
    EXPECT_GE(main.VSFGProcessStep.bounds().height, layout::leastListHeight({}));
}

TEST_F(MainSplittersTest, OnALowPageTheBarBetweenTheListsStands) {
    EXPECT_TRUE(main.SplitSteps.isMovable());
    EXPECT_FALSE(main.SplitStepsBeside.isMovable());
    resize(main, kLow);
    EXPECT_FALSE(main.SplitSteps.isMovable());
    EXPECT_TRUE(main.SplitStepsBeside.isMovable());
    const Twips before = main.VSFGProcessStep.bounds().width;
    main.SplitStepsBeside.moveBy(900);
    EXPECT_NEAR(main.VSFGProcessStep.bounds().width, before - 900, 2);
}

TEST_F(MainSplittersTest, APlaceThatNobodyChoseIsNotStored) {
    main.unload();
    EXPECT_FALSE(stored("SplitFilters"));
    EXPECT_FALSE(stored("SplitSteps"));
    EXPECT_FALSE(stored("SplitStepsBeside"));
}

TEST_F(MainSplittersTest, AChosenPlaceIsThereAtTheNextStart) {
    main.SplitFilters.moveBy(600);
    main.SplitSteps.moveBy(-450);
    const Rect filters = main.FrameFilters.bounds();
    const Rect steps = main.VSFGProcessStep.bounds();
    main.unload();
    EXPECT_EQ(stored("SplitFilters"), main.SplitFilters.share());
    FrmMain later(services.forViews());
    open(later, kHigh);
    EXPECT_EQ(later.FrameFilters.bounds(), filters);
    EXPECT_EQ(later.VSFGProcessStep.bounds(), steps);
}

TEST_F(MainSplittersTest, APlaceInTheHostIsRememberedTooThoughTheWindowIsTheHosts) {
    main.embed(7);
    main.SplitSteps.moveBy(-450);
    main.unload();
    EXPECT_TRUE(stored("SplitSteps"));
    EXPECT_FALSE(stored("Left"));
}

TEST_F(MainSplittersTest, AChosenPlaceKeepsItsProportionsInAnotherWindow) {
    main.SplitSteps.moveTo(main.SplitSteps.division().room / 2);
    main.unload();
    FrmMain later(services.forViews());
    open(later, {16000, 15000});
    EXPECT_NEAR(later.FrameProcessCaseResults.bounds().height, later.FrameProcessStep.bounds().height, 3);
    EXPECT_EQ(later.FrameFilters.bounds(), main.FrameFilters.bounds()) << "nobody moved that bar";
}

TEST_F(MainSplittersTest, TheUsualPlaceLeavesNothingBehind) {
    main.SplitSteps.moveBy(-450);
    main.unload();
    ASSERT_TRUE(stored("SplitSteps"));
    FrmMain later(services.forViews());
    open(later, kHigh);
    later.SplitSteps.choose(std::nullopt);
    later.unload();
    EXPECT_FALSE(stored("SplitSteps"));
}

TEST_F(MainSplittersTest, AStoredPlaceThatIsNoneIsPassedOver) {
    const Rect usual = main.FrameFilters.bounds();
    main.unload();
    registry.setNumber(Registry::kCurrentUser,
                       "Software\\Orvane\\Applications\\Norvex - Process Manager\\DialogSettings\\FrmMain",
                       "SplitFilters", 10001);
    FrmMain later(services.forViews());
    open(later, kHigh);
    EXPECT_EQ(later.FrameFilters.bounds(), usual);
}

// --- the smallest form ------------------------------------------------------------------------------------

TEST_F(MainSplittersTest, TheSmallestFormIsThatOfThePageWhichIsShown) {
    const Size ofCase = main.minimumSize();
    main.TabCtrl.click(0);
    EXPECT_LT(main.minimumSize().height, ofCase.height);
    EXPECT_LT(main.minimumSize().width, ofCase.width);
    main.TabCtrl.click(1);
    EXPECT_EQ(main.minimumSize(), ofCase);
}

TEST_F(MainSplittersTest, AListThatIsLookedThroughNeedsMore) {
    const Twips before = main.minimumSize().height;
    main.FindProcessStep.open();
    EXPECT_EQ(main.minimumSize().height, before + FindLine::kHeight);
    EXPECT_GE(main.VSFGProcessStep.bounds().height, layout::leastListHeight({}));
    main.FindProcessStep.close();
    EXPECT_EQ(main.minimumSize().height, before);
}

TEST_F(MainSplittersTest, AListInLargerLettersNeedsMore) {
    const Font large{"", 24, false, false, false, false};
    const Twips before = main.minimumSize().height;
    main.VSFGProcessStep.setFont(large);
    EXPECT_GT(main.minimumSize().height, before);
    EXPECT_GE(main.VSFGProcessStep.bounds().height, layout::leastListHeight(large));
}

}  // namespace
}  // namespace pellmark::test
