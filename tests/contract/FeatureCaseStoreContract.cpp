#include "contract/KnowledgeBaseFixture.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;

// --- attachments ------------------------------------------------------------------------------------------

class AttachmentContract : public KnowledgeBaseContract {
  protected:
    std::string type = subject->addFeatureType("Hole", 1, "", unit::kMetric);
    std::string key = subject->addKey(type, "Thread");
    std::string otherKey = subject->addKey(type, "Depth");
    std::string m6 = subject->addKeyValue(key, "M6");
    std::string m8 = subject->addKeyValue(key, "M8");
    std::string deep = subject->addKeyValue(otherKey, "deep");

    std::string addCase(const std::vector<std::string>& valueIds,
                        const std::vector<std::string>& processIds = {}) {
        FeatureCaseDescription description;
        description.featureTypeId = type;
        const std::string id = cases.createFeatureCase(description);
        for (const auto& value : valueIds)
            cases.addValue(value, id);
        for (const auto& process : processIds)
            processes.attach(process, id);
        return id;
    }
    std::vector<pNode> ask(const std::vector<std::string>& valueIds, int style = 0,
                           const std::string& materialClass = {}) {
        FeatureCaseDescription description;
        description.featureTypeId = type;
        description.valueIds = valueIds;
        description.materialClassId = materialClass;
        return cases.processesOfValues(description, style);
    }
    std::vector<std::string> namesOf(const std::vector<pNode>& nodes) {
        std::vector<std::string> names;
        for (const pNode& node : nodes)
            names.push_back(node.Name + (node.ExactMatch ? "!" : ""));
        return names;
    }
};

TEST_P(AttachmentContract, AProcessIsAnOrphanUntilItIsAttached) {
    const std::string a = addProcess("A");
    const std::string b = addProcess("B");
    EXPECT_THAT(orphans(), UnorderedElementsAre(a, b));
    const std::string featureCase = addCase({m6}, {a});
    EXPECT_THAT(orphans(), ElementsAre(b));
    EXPECT_TRUE(processes.detach(featureCase, a));
    EXPECT_THAT(orphans(), UnorderedElementsAre(a, b));
}

TEST_P(AttachmentContract, AProcessStaysAttachedUntilItsLastCaseLetsGo) {
    const std::string a = addProcess("A");
    const std::string first = addCase({m6}, {a});
    const std::string second = addCase({m8}, {a});
    EXPECT_TRUE(processes.detach(first, a));
    EXPECT_THAT(orphans(), IsEmpty());
    EXPECT_TRUE(processes.detach(second, a));
    EXPECT_THAT(orphans(), ElementsAre(a));
}

TEST_P(AttachmentContract, AttachingTwiceAndDetachingTwiceAreHarmless) {
    const std::string a = addProcess("A");
    const std::string featureCase = addCase({m6}, {a, a});
    EXPECT_THAT(ask({m6}), SizeIs(1));
    EXPECT_TRUE(processes.detach(featureCase, a));
    EXPECT_TRUE(processes.detach(featureCase, a));
    EXPECT_THAT(orphans(), ElementsAre(a));
}

TEST_P(AttachmentContract, AttachingTheUnknownFailsAndDetachingItDoesNot) {
    const std::string a = addProcess("A");
    const std::string featureCase = addCase({m6});
    EXPECT_EQ(thrownBy([&] { processes.attach(a, kUnknownId); }).number, errors::kNotFound);
    EXPECT_EQ(thrownBy([&] { processes.attach(kUnknownId, featureCase); }).number, errors::kNotFound);
    EXPECT_EQ(thrownBy([&] { processes.attach(a, ""); }).number, errors::kNotFound);
    EXPECT_TRUE(processes.detach(kUnknownId, a));
    EXPECT_TRUE(processes.detach(featureCase, kUnknownId));
    EXPECT_THAT(orphans(), ElementsAre(a));
}

TEST_P(AttachmentContract, AFoundProcessCarriesItsStoredFieldsAndItsCase) {
    const std::string a = processes.addProcess({"", "Tap M6", unit::kMetric, "Spiral flute", "Depth < 12"});
    const std::string featureCase = addCase({m6}, {a});
    const pNode expected{a, featureCase, "Tap M6", unit::kMetric, "Depth < 12", "Spiral flute", true};
    EXPECT_THAT(ask({m6}), ElementsAre(expected));
}

TEST_P(AttachmentContract, ProcessesAreFoundThroughEachCaseWithAnyOfTheValuesAndExactlyWithAll) {
    const std::string a = addProcess("A");
    const std::string b = addProcess("B");
    addCase({m6}, {a});
    addCase({m6, deep}, {b, a});
    addCase({m8}, {b});
    EXPECT_THAT(namesOf(ask({m6, deep})), ElementsAre("A", "A!", "B!"));
    EXPECT_THAT(namesOf(ask({m6})), ElementsAre("A!", "A!", "B!"));
    EXPECT_THAT(namesOf(ask({m8, deep})), ElementsAre("A", "B", "B"));
}

TEST_P(AttachmentContract, AskingForNothingOrTheUnknownFindsNothing) {
    addCase({m6}, {addProcess("A")});
    EXPECT_THAT(ask({}), IsEmpty());
    EXPECT_THAT(ask({kUnknownId}), IsEmpty());
    EXPECT_THAT(ask({"nonsense"}), IsEmpty());
    EXPECT_THAT(namesOf(ask({m6, kUnknownId})), ElementsAre("A"));
}

TEST_P(AttachmentContract, AskingForAValueTwiceAsksForItOnce) {
    addCase({m6}, {addProcess("A")});
    EXPECT_THAT(namesOf(ask({m6, m6})), ElementsAre("A!"));
}

TEST_P(AttachmentContract, TheMaterialClassNarrowsBothStylesAndStyleOneWantsItNamed) {
    const std::string steel = subject->addMaterialClass("P");
    const std::string cast = subject->addMaterialClass("K");
    const std::string any = addProcess("any");
    const std::string forSteel = addProcess("steel");
    const std::string forCast = addProcess("cast");
    processes.addMaterial(forSteel, subject->addMaterial("C45", steel));
    processes.addMaterial(forCast, subject->addMaterial("GG25", cast));
    addCase({m6}, {any, forSteel, forCast});
    EXPECT_THAT(namesOf(ask({m6}, 0, steel)), ElementsAre("any!", "steel!"));
    EXPECT_THAT(namesOf(ask({m6}, 1, steel)), ElementsAre("steel!"));
    for (const int style : {0, 1}) {
        EXPECT_THAT(namesOf(ask({m6}, style, "")), ElementsAre("any!", "cast!", "steel!"));
    }
    EXPECT_THAT(namesOf(ask({m6}, 0, kUnknownId)), ElementsAre("any!"));
    EXPECT_THAT(namesOf(ask({m6}, 1, kUnknownId)), testing::IsEmpty());
}

TEST_P(AttachmentContract, TheProcessUnitNarrowsBothStyles) {
    const std::string inch = processes.addProcess({"", "inch", pellmark::unit::kInch, "", ""});
    const std::string metric = processes.addProcess({"", "metric", pellmark::unit::kMetric, "", ""});
    addCase({m6}, {inch, metric});
    FeatureCaseDescription description;
    description.featureTypeId = type;
    description.valueIds = {m6};
    description.processUnit = pellmark::unit::kInch;
    for (const int style : {0, 1}) {
        EXPECT_THAT(namesOf(cases.processesOfValues(description, style)), ElementsAre("inch!"));
    }
}

TEST_P(AttachmentContract, AnotherStyleIsRefused) {
    EXPECT_EQ(thrownBy([&] { ask({m6}, 2); }).number, errors::kInvalidArgument);
    EXPECT_EQ(thrownBy([&] { ask({m6}, -1); }).number, errors::kInvalidArgument);
}

TEST_P(AttachmentContract, ADeletedProcessIsNoLongerFound) {
    const std::string a = addProcess("A");
    const std::string b = addProcess("B");
    addCase({m6}, {a, b});
    processes.deleteProcess(a);
    EXPECT_THAT(namesOf(ask({m6})), ElementsAre("B!"));
}

// --- feature cases ----------------------------------------------------------------------------------------

TEST_P(AttachmentContract, ANewFeatureCaseHasNoValues) {
    const std::string featureCase = addCase({});
    EXPECT_THAT(cases.matches(type, {m6}), ElementsAre(FeatureCaseMatch{featureCase, type, false}));
    EXPECT_THAT(cases.matches(type, {}), ElementsAre(FeatureCaseMatch{featureCase, type, true}));
}

TEST_P(AttachmentContract, MatchesAreAllCasesOfTheTypeOldestFirstAndExactWithTheVeryValues) {
    const std::string one = addCase({m6});
    const std::string both = addCase({deep, m6});
    const std::string again = addCase({m6, deep});
    const std::string otherType = subject->addFeatureType("Pocket", 2, "", unit::kMetric);
    FeatureCaseDescription description;
    description.featureTypeId = otherType;
    cases.createFeatureCase(description);
    EXPECT_THAT(cases.matches(type, {m6, deep}),
                ElementsAre(FeatureCaseMatch{one, type, false}, FeatureCaseMatch{both, type, true},
                            FeatureCaseMatch{again, type, true}));
    EXPECT_THAT(cases.matches(type, {deep}),
                testing::Each(testing::Field(&FeatureCaseMatch::exactMatch, false)));
}

TEST_P(AttachmentContract, MatchesOfNoTypeOrAnUnknownOneAreNone) {
    addCase({m6});
    EXPECT_THAT(cases.matches("-1", {m6}), IsEmpty());
    EXPECT_THAT(cases.matches("", {m6}), IsEmpty());
    EXPECT_THAT(cases.matches(kUnknownId, {m6}), IsEmpty());
}

TEST_P(AttachmentContract, AnUnknownValueIsNeverPartOfAnExactMatch) {
    addCase({m6});
    EXPECT_FALSE(cases.matches(type, {m6, kUnknownId})[0].exactMatch);
    EXPECT_FALSE(cases.matches(type, {m6, "nonsense"})[0].exactMatch);
}

TEST_P(AttachmentContract, ACaseOfAPartTypeAndAMaterialClassIsMadeLikeAnyOther) {
    FeatureCaseDescription description{
        type,       {}, 1, subject->addPartType("Plate"), unit::kMetric, subject->addMaterialClass("Steel"),
        unit::kInch};
    const std::string featureCase = cases.createFeatureCase(description);
    cases.addValue(m6, featureCase);
    EXPECT_THAT(cases.matches(type, {m6}), ElementsAre(FeatureCaseMatch{featureCase, type, true}));
}

TEST_P(AttachmentContract, AFeatureCaseNeedsAKnownFeatureType) {
    for (const std::string& wrong : {std::string(), std::string("-1"), kUnknownId}) {
        FeatureCaseDescription description;
        description.featureTypeId = wrong;
        EXPECT_EQ(thrownBy([&] { cases.createFeatureCase(description); }).number, errors::kNotFound) << wrong;
    }
}

TEST_P(AttachmentContract, AddingAValueTwiceIsHarmlessAndTheUnknownFails) {
    const std::string featureCase = addCase({m6, m6});
    EXPECT_TRUE(cases.matches(type, {m6})[0].exactMatch);
    EXPECT_EQ(thrownBy([&] { cases.addValue(kUnknownId, featureCase); }).number, errors::kNotFound);
    EXPECT_EQ(thrownBy([&] { cases.addValue(m6, kUnknownId); }).number, errors::kNotFound);
}

class FeatureCaseModelContract : public KnowledgeBaseContract {};

// --- the model behind the filters -------------------------------------------------------------------------

TEST_P(FeatureCaseModelContract, TheModelOfAnEmptyBaseIsEmpty) {
    EXPECT_EQ(cases.nvxFeatureTypes()->count(), 0U);
    EXPECT_EQ(cases.partTypes()->count(), 0U);
    EXPECT_EQ(cases.materialClasses()->count(), 0U);
    EXPECT_EQ(cases.featureTypes(-1, "", -1)->count(), 0U);
    EXPECT_EQ(cases.keys(kUnknownId)->count(), 0U);
    EXPECT_EQ(cases.values("")->count(), 0U);
}

TEST_P(FeatureCaseModelContract, FeatureTypesOfNorvexHaveNumbersForIds) {
    subject->addNvxFeatureType(1, "Hole");
    subject->addNvxFeatureType(12, "Pocket");
    EXPECT_THAT(rowsOf(*cases.nvxFeatureTypes()),
                ElementsAre(ElementsAre("1", "Hole"), ElementsAre("12", "Pocket")));
    EXPECT_THAT(cases.nvxFeatureTypes()->fields(), ElementsAre("_Id", "_Name"));
}

TEST_P(FeatureCaseModelContract, PartTypesAndMaterialClassesComeInTheirUsualOrder) {
    const std::string shaft = subject->addPartType("Shaft");
    const std::string block = subject->addPartType("Block");
    const std::string p = subject->addMaterialClass("P");
    const std::string m = subject->addMaterialClass("M");
    EXPECT_THAT(rowsOf(*cases.partTypes()),
                ElementsAre(ElementsAre(shaft, "Shaft"), ElementsAre(block, "Block")));
    EXPECT_THAT(rowsOf(*cases.materialClasses()), ElementsAre(ElementsAre(p, "P"), ElementsAre(m, "M")));
}

TEST_P(FeatureCaseModelContract, FeatureTypesAreNarrowedByEachPartOfTheQuestion) {
    const std::string shaft = subject->addPartType("Shaft");
    const std::string block = subject->addPartType("Block");
    subject->addFeatureType("hole mm shaft", 1, shaft, unit::kMetric);
    subject->addFeatureType("hole in block", 1, block, unit::kInch);
    subject->addFeatureType("pocket mm block", 2, block, unit::kMetric);
    const auto names = [&](std::int16_t nvx, const std::string& part, std::int16_t unitCode) {
        return column(*cases.featureTypes(nvx, part, unitCode), "_Name");
    };
    EXPECT_THAT(names(-1, "", -1), ElementsAre("hole mm shaft", "hole in block", "pocket mm block"));
    EXPECT_THAT(names(1, "", -1), ElementsAre("hole mm shaft", "hole in block"));
    EXPECT_THAT(names(-1, block, -1), ElementsAre("hole in block", "pocket mm block"));
    EXPECT_THAT(names(-1, "", unit::kMetric), ElementsAre("hole mm shaft", "pocket mm block"));
    EXPECT_THAT(names(1, block, unit::kInch), ElementsAre("hole in block"));
    EXPECT_THAT(names(2, shaft, -1), IsEmpty());
    EXPECT_THAT(names(-1, kUnknownId, -1), IsEmpty());
}

TEST_P(FeatureCaseModelContract, AFeatureTypeWithoutPartTypeOrUnitFitsEveryOne) {
    const std::string shaft = subject->addPartType("Shaft");
    subject->addFeatureType("face", 3, "", unit::kNone);
    EXPECT_EQ(cases.featureTypes(3, shaft, unit::kInch)->count(), 1U);
    EXPECT_EQ(cases.featureTypes(-1, "", unit::kMetric)->count(), 1U);
    EXPECT_EQ(cases.featureTypes(4, shaft, unit::kInch)->count(), 0U);
}

TEST_P(FeatureCaseModelContract, KeysAndTheirValuesComeKeyByKey) {
    const std::string type = subject->addFeatureType("Hole", 1, "", -1);
    const std::string other = subject->addFeatureType("Pocket", 2, "", -1);
    const std::string thread = subject->addKey(type, "Thread");
    const std::string depth = subject->addKey(type, "Depth");
    const std::string radius = subject->addKey(other, "Radius");
    const std::string deep = subject->addKeyValue(depth, "deep");
    const std::string m6 = subject->addKeyValue(thread, "M6");
    subject->addKeyValue(radius, "R2");
    const std::string m8 = subject->addKeyValue(thread, "M8");
    EXPECT_THAT(rowsOf(*cases.keys(type)),
                ElementsAre(ElementsAre(thread, "Thread"), ElementsAre(depth, "Depth")));
    auto values = cases.values(type);
    EXPECT_THAT(values->fields(), ElementsAre("_Id", "_Name", "_KeyId"));
    EXPECT_THAT(rowsOf(*values), ElementsAre(ElementsAre(m6, "M6", thread), ElementsAre(m8, "M8", thread),
                                             ElementsAre(deep, "deep", depth)));
}

FOR_EVERY_KNOWLEDGE_BASE(AttachmentContract);
FOR_EVERY_KNOWLEDGE_BASE(FeatureCaseModelContract);

}  // namespace
}  // namespace pellmark::test
