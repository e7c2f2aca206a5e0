#include "featurecases/cFeatureCase.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/Text.h"
#include "processes/cProcess.h"
#include "support/HolesAndSlotsFixture.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kTypeRow = FeatureCaseGrid::kTypeRow;
constexpr int kValueCol = FeatureCaseGrid::kValueCol;

class CFeatureCaseTest : public HolesAndSlotsFixture {};

TEST_F(CFeatureCaseTest, TheFiltersOfferWhatTheKnowledgeBaseHoldsAfterAnOpenEntry) {
    library.translations["Any"] = "Alle";
    open();
    EXPECT_THAT(textsOf(form_().CmbFTNvxFeatureType), ElementsAre("Alle", "Hole features", "Slots"));
    EXPECT_THAT(textsOf(form_().CmbFTPartType), ElementsAre("Alle", "Prismatic", "Turned"));
    EXPECT_THAT(textsOf(form_().CmbPartMaterial), ElementsAre("Alle", "Steel"));
    EXPECT_THAT(textsOf(form_().CmbFTUnit), ElementsAre("Alle", "Inch", "Metric"));
    EXPECT_THAT(textsOf(form_().CmbProcessCaseUnit), ElementsAre("Alle", "Inch", "Metric"));
    EXPECT_EQ(form_().CmbFTUnit.items().at(1).itemData, 70);
    EXPECT_EQ(form_().CmbFTUnit.items().at(2).itemData, 71);
    EXPECT_EQ(form_().CmbFTNvxFeatureType.items().at(1).itemData, 3);
}

TEST_F(CFeatureCaseTest, EveryFilterStartsOpen) {
    open();
    EXPECT_EQ(view().GetFTUnit(), unit::kNone);
    EXPECT_EQ(view().GetPcUnit(), unit::kNone);
    EXPECT_EQ(view().GetPartMaterialClassId(), "");
    EXPECT_EQ(view().description().nvxFeatureType, -1);
    EXPECT_EQ(view().description().partTypeId, "");
    EXPECT_THAT(typesOffered(), ElementsAre("", "Hole", "Slot"));
}

TEST_F(CFeatureCaseTest, WithNoFeatureTypeTheAnswersAreMinusOneAndNoValues) {
    open();
    EXPECT_EQ(view().GetCurrentFeatureType(), "-1");
    EXPECT_THAT(view().GetCurrentValueIds(), IsEmpty());
}

TEST_F(CFeatureCaseTest, TheTwoHeadingsAreLookedUpAndTheTypeRowsCaptionIsNot) {
    library.translations["Value"] = "Wert";
    library.translations["Feature Type"] = "Merkmalstyp";
    open();
    EXPECT_EQ(grid().heading(1), "Wert");
    EXPECT_EQ(grid().text(kTypeRow, 0), "Feature Type");
}

TEST_F(CFeatureCaseTest, TheHostsDescriptionIsShownAndGivenBack) {
    open();
    describeHole();
    const FeatureCaseDescription now = view().description();
    EXPECT_EQ(now.featureTypeId, hole);
    EXPECT_THAT(now.valueIds, ElementsAre(d10, m8));
    EXPECT_EQ(now.nvxFeatureType, 3);
    EXPECT_EQ(now.partTypeId, prismatic);
    EXPECT_EQ(now.unit, unit::kMetric);
    EXPECT_EQ(now.materialClassId, steel);
    EXPECT_EQ(now.processUnit, unit::kInch);
    EXPECT_EQ(grid().displayText(2, kValueCol), "10");
    EXPECT_EQ(grid().displayText(3, kValueCol), "M8");
}

TEST_F(CFeatureCaseTest, MinusOneLeavesTheNumbersAsTheyWere) {
    open();
    describeHole();
    view().SetFeatureCaseUnitGui(-1);
    view().SetProcessUnitGui(-1);
    view().SetNvxFeatureTypeGui(-1);
    EXPECT_EQ(view().GetFTUnit(), unit::kMetric);
    EXPECT_EQ(view().GetPcUnit(), unit::kInch);
    EXPECT_EQ(view().description().nvxFeatureType, 3);
}

TEST_F(CFeatureCaseTest, UnknownAndEmptyValuesLeaveTheSelectionAsItWas) {
    open();
    describeHole();
    view().SetFeatureCaseUnitGui(99);
    view().SetPartTypeGui("{00000000-0000-0000-0000-000000000099}");
    view().SetPartTypeGui("");
    view().SetPartMaterialClassGui("nothing of that name");
    view().SetFeatureTypeGui("{00000000-0000-0000-0000-000000000099}");
    view().SetFeatureTypeGui("");
    EXPECT_EQ(view().GetFTUnit(), unit::kMetric);
    EXPECT_EQ(view().description().partTypeId, prismatic);
    EXPECT_EQ(view().GetPartMaterialClassId(), steel);
    EXPECT_EQ(view().GetCurrentFeatureType(), hole);
    EXPECT_THAT(view().GetCurrentValueIds(), ElementsAre(d10, m8));
}

TEST_F(CFeatureCaseTest, IdsOfTheHostMatchInAnyCaseAndWithoutBraces) {
    open();
    const auto bare = [](const std::string& id) { return lowerAscii(id.substr(1, id.size() - 2)); };
    view().SetPartTypeGui(bare(prismatic));
    view().SetFeatureTypeGui(bare(hole));
    view().SetPartMaterialClassGui(bare(steel));
    view().SetValuesGui({bare(d8)});
    EXPECT_EQ(view().description().partTypeId, prismatic);
    EXPECT_EQ(view().GetCurrentFeatureType(), hole);
    EXPECT_EQ(view().GetPartMaterialClassId(), steel);
    EXPECT_THAT(view().GetCurrentValueIds(), ElementsAre(d8));
}

TEST_F(CFeatureCaseTest, TheHostsFeatureTypeIsShownThoughAFilterLeavesItOut) {
    open();
    view().SetNvxFeatureTypeGui(5);
    view().SetFeatureTypeGui(hole);
    EXPECT_EQ(view().GetCurrentFeatureType(), hole);
    EXPECT_EQ(grid().displayText(kTypeRow, kValueCol), "Hole");
    EXPECT_EQ(view().description().nvxFeatureType, 5);
}

TEST_F(CFeatureCaseTest, MinusOneAsFeatureTypeChoosesNone) {
    open();
    describeHole();
    view().SetFeatureTypeGui("-1");
    EXPECT_EQ(view().GetCurrentFeatureType(), "-1");
    EXPECT_THAT(view().GetCurrentValueIds(), IsEmpty());
}

TEST_F(CFeatureCaseTest, TheSettersAloneDoNotRefillTheListAndTheValuesRefillItOnce) {
    open();
    int changes = 0;
    const auto subscription = view().caseChanged.subscribe([&] { ++changes; });
    view().SetFeatureCaseUnitGui(unit::kMetric);
    view().SetNvxFeatureTypeGui(3);
    view().SetPartTypeGui(prismatic);
    view().SetFeatureTypeGui(hole);
    view().SetPartMaterialClassGui(steel);
    view().SetProcessUnitGui(unit::kInch);
    EXPECT_EQ(changes, 0);
    view().SetValuesGui({d8});
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(base.callsOf("processesOfValues").size(), 1U);
}

TEST_F(CFeatureCaseTest, ValuesReplaceTheOnesBefore) {
    open();
    describeHole();
    view().SetValuesGui({d8, w5});
    EXPECT_THAT(view().GetCurrentValueIds(), ElementsAre(d8));
    view().SetFeatureTypeGui(hole);
    EXPECT_THAT(view().GetCurrentValueIds(), IsEmpty()) << "values come after their type";
    view().SetValuesGui({d8});
    view().SetValuesGui({});
    EXPECT_THAT(view().GetCurrentValueIds(), IsEmpty());
    EXPECT_EQ(view().GetCurrentFeatureType(), hole);
}

TEST_F(CFeatureCaseTest, ChoosingAFilterLeavesTheTypesThatFit) {
    open();
    form_().CmbFTNvxFeatureType.choose(1);
    EXPECT_THAT(typesOffered(), ElementsAre("", "Hole"));
    form_().CmbFTNvxFeatureType.choose(0);
    form_().CmbFTPartType.choose(2);
    EXPECT_THAT(typesOffered(), ElementsAre("", "Hole"));
    form_().CmbFTPartType.choose(1);
    EXPECT_THAT(typesOffered(), ElementsAre("", "Hole", "Slot"));
    form_().CmbFTUnit.choose(1);
    EXPECT_THAT(typesOffered(), ElementsAre("", "Hole"));
}

TEST_F(CFeatureCaseTest, AFilterThatTheHostChoosesLeavesTheTypesThatFitToo) {
    const std::function<void()> choices[] = {[&] { view().SetFeatureCaseUnitGui(unit::kInch); },
                                             [&] { view().SetNvxFeatureTypeGui(3); },
                                             [&] { view().SetPartTypeGui(turned); }};
    for (const auto& choose : choices) {
        open();
        ASSERT_THAT(typesOffered(), ElementsAre("", "Hole", "Slot"));
        choose();
        EXPECT_THAT(typesOffered(), ElementsAre("", "Hole"));
    }
}

TEST_F(CFeatureCaseTest, AFilterThatStillOffersTheTypeKeepsItWithItsValues) {
    open();
    describeHole();
    form_().CmbFTUnit.choose(1);
    EXPECT_EQ(view().GetCurrentFeatureType(), hole);
    EXPECT_THAT(view().GetCurrentValueIds(), ElementsAre(d10, m8));
}

TEST_F(CFeatureCaseTest, AFilterThatLeavesTheTypeOutChoosesNone) {
    open();
    describeHole();
    form_().CmbFTNvxFeatureType.choose(2);
    EXPECT_EQ(view().GetCurrentFeatureType(), "-1");
    EXPECT_THAT(keysShown(), IsEmpty());
    EXPECT_EQ(grid().dataRows(), 1);
}

TEST_F(CFeatureCaseTest, ChoosingATypeInTheGridBringsItsKeysWithoutValues) {
    open();
    chooseInGrid(kTypeRow, hole);
    EXPECT_THAT(keysShown(), ElementsAre("Diameter", "Thread"));
    EXPECT_THAT(view().GetCurrentValueIds(), IsEmpty());
    chooseInGrid(kTypeRow, slot);
    EXPECT_THAT(keysShown(), ElementsAre("Width"));
}

TEST_F(CFeatureCaseTest, ChoosingAValueListsTheProcessesOfTheCase) {
    const std::string drill = base.addProcess("Drill 8");
    base.addFeatureCase(hole, {d8}, {drill});
    open();
    chooseInGrid(kTypeRow, hole);
    EXPECT_EQ(list().dataRows(), 0);
    chooseInGrid(2, d8);
    EXPECT_EQ(main.processes()->SelectedProcessID(), drill);
    chooseInGrid(2, "");
    EXPECT_EQ(list().dataRows(), 0);
}

TEST_F(CFeatureCaseTest, TheSelectedProcessStaysSelectedWhileItIsListed) {
    const std::string first = base.addProcess("a");
    const std::string second = base.addProcess("b");
    base.addFeatureCase(hole, {d8, m8}, {first, second});
    open();
    view().SetFeatureTypeGui(hole);
    view().SetValuesGui({d8});
    list().select(list().findRow(second), 0);
    chooseInGrid(3, m8);
    EXPECT_EQ(main.processes()->SelectedProcessID(), second);
}

TEST_F(CFeatureCaseTest, AnotherCaseProposesItsOwnFirstProcessWhileThePersonHasChosenNone) {
    const std::string ofM8 = base.addProcess("a");
    const std::string ofM10 = base.addProcess("b");
    base.addFeatureCase(hole, {d8, m8}, {ofM8});
    base.addFeatureCase(hole, {d10, m8}, {ofM10});
    open();
    view().SetFeatureTypeGui(hole);
    view().SetValuesGui({d8, m8});
    ASSERT_EQ(main.processes()->SelectedProcessID(), ofM8);
    chooseInGrid(2, d10);
    ASSERT_EQ(list().dataRows(), 2) << "the other one shares a value";
    EXPECT_EQ(main.processes()->SelectedProcessID(), ofM10) << "the exact match";
}

TEST_F(CFeatureCaseTest, AClickOnMaterialOrProcessUnitRefillsTheListAndLeavesTheGrid) {
    open();
    describeHole();
    base.forgetCalls();
    form_().CmbPartMaterial.choose(0);
    form_().CmbProcessCaseUnit.choose(2);
    EXPECT_EQ(base.callsOf("processesOfValues").size(), 2U);
    EXPECT_THAT(base.callsOf("featureTypes"), IsEmpty());
    EXPECT_EQ(view().GetPcUnit(), unit::kMetric);
}

TEST_F(CFeatureCaseTest, AListThatCannotBeReadLeavesTheOtherFiltersUsable) {
    base.throwOn("partTypes");
    open();
    EXPECT_THAT(textsOf(form_().CmbFTPartType), ElementsAre("Any"));
    EXPECT_THAT(textsOf(form_().CmbPartMaterial), ElementsAre("Any", "Steel"));
    EXPECT_THAT(typesOffered(), ElementsAre("", "Hole", "Slot"));
    EXPECT_TRUE(trace.trapped("cFeatureCase::Init"));
}

TEST_F(CFeatureCaseTest, AFilterWhoseTypesCannotBeReadLeavesTheGridAsItWas) {
    open();
    describeHole();
    base.throwOn("featureTypes");
    form_().CmbFTNvxFeatureType.choose(2);
    EXPECT_EQ(view().GetCurrentFeatureType(), hole);
    EXPECT_THAT(view().GetCurrentValueIds(), ElementsAre(d10, m8));
    EXPECT_TRUE(trace.trapped("cFeatureCase::CmbNvxFeatureType_Click"));
}

TEST_F(CFeatureCaseTest, KeysThatCannotBeReadLeaveATypeWithoutRows) {
    open();
    base.throwOn("values");
    chooseInGrid(kTypeRow, hole);
    EXPECT_EQ(view().GetCurrentFeatureType(), hole);
    EXPECT_THAT(keysShown(), IsEmpty());
    EXPECT_THAT(view().GetCurrentValueIds(), IsEmpty());
}

TEST_F(CFeatureCaseTest, PropertiesDescribesTheCase) {
    open();
    describeHole();
    desktop.expectMessage(
        "Feature Type Hole\r\nDiameter: 10\r\nThread: M8\r\n\r\nUnit: Metric\r\nNorvex Feature Type: Hole "
        "features"
        "\r\nPart Type: Prismatic\r\nPart Material Class: Steel");
    view().Properties();
    EXPECT_EQ(desktop.messages().back().icon, MessageIcon::Information);
}

TEST_F(CFeatureCaseTest, PropertiesOfNoCaseSaysSo) {
    open();
    desktop.expectMessage("No feature type is currently selected");
    view().Properties();
    EXPECT_EQ(desktop.messages().back().icon, MessageIcon::Information);
}

TEST_F(CFeatureCaseTest, BeforeInitEveryAnswerIsThatOfNoCase) {
    cFeatureCase early(person, services.forViews().knowledgeBase, services.creation);
    early.SetValuesGui({d8});
    early.SetFeatureTypeGui(hole);
    early.SetFeatureCaseUnitGui(unit::kInch);
    EXPECT_EQ(early.GetCurrentFeatureType(), "-1");
    EXPECT_EQ(early.GetFTUnit(), unit::kNone);
    EXPECT_THAT(early.GetCurrentValueIds(), IsEmpty());
}

TEST_F(CFeatureCaseTest, ANewViewForgetsTheFormersSubscriptions) {
    open();
    open();
    describeHole();
    base.forgetCalls();
    form_().CmbPartMaterial.choose(0);
    EXPECT_EQ(base.callsOf("processesOfValues").size(), 1U);
}

TEST_F(CFeatureCaseTest, AnOpenPartTypeAsksForNothing) {
    open();
    view().SetPartTypeGui("");
    view().SetNvxFeatureTypeGui(-1);
    view().SetFeatureCaseUnitGui(-1);
    EXPECT_THAT(base.calls(), IsEmpty());
}

}  // namespace
}  // namespace pellmark::test
