#include "base/Error.h"
#include "featurecases/cFeatureCase.h"
#include "support/HolesAndSlotsFixture.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Which case of the knowledge base a view stands for, and how one comes to be stored.
class StoredFeatureCaseTest : public HolesAndSlotsFixture {};

TEST_F(StoredFeatureCaseTest, TheFirstExactMatchWins) {
    base.addFeatureCase(hole, {d8});
    const std::string first = base.addFeatureCase(hole, {d10, m8});
    base.addFeatureCase(hole, {d10, m8});
    open();
    describeHole();
    EXPECT_EQ(view().GetFirstFeatureTypeExactMatchId(), first);
}

TEST_F(StoredFeatureCaseTest, NoExactMatchAndAFailingStoreAnswerNothing) {
    base.addFeatureCase(hole, {d10});
    open();
    describeHole();
    EXPECT_EQ(view().GetFirstFeatureTypeExactMatchId(), "");
    base.throwOn("matches");
    EXPECT_EQ(view().GetFirstFeatureTypeExactMatchId(), "");
    EXPECT_TRUE(trace.trapped("cFeatureCase::GetFirstFeatureTypeExactMatchId"));
}

TEST_F(StoredFeatureCaseTest, AnExistingCaseIsNotCreatedAgain) {
    const std::string existing = base.addFeatureCase(hole, {d10, m8});
    open();
    describeHole();
    EXPECT_EQ(view().existingOrNewFeatureCase(), existing);
    EXPECT_THAT(base.callsOf("createFeatureCase"), IsEmpty());
}

TEST_F(StoredFeatureCaseTest, ANewCaseIsCreatedWithOneCallPerValue) {
    open();
    describeHole();
    base.forgetCalls();
    const std::string created = view().existingOrNewFeatureCase();
    EXPECT_THAT(base.calls(),
                ElementsAre("matches " + hole, "createFeatureCase " + hole, "addValue " + d10 + " " + created,
                            "addValue " + m8 + " " + created));
    EXPECT_EQ(view().GetFirstFeatureTypeExactMatchId(), created);
}

TEST_F(StoredFeatureCaseTest, AStoreThatCannotAnswerIsNotGivenASecondCase) {
    base.addFeatureCase(hole, {d10, m8});
    open();
    describeHole();
    base.throwOn("matches");
    EXPECT_THROW(view().existingOrNewFeatureCase(), Error);
    EXPECT_THAT(base.callsOf("createFeatureCase"), IsEmpty());
}

TEST_F(StoredFeatureCaseTest, WithoutAFeatureTypeThereIsNoCaseToCreate) {
    open();
    EXPECT_THROW(view().existingOrNewFeatureCase(), Error);
}

TEST_F(StoredFeatureCaseTest, AValueThatIsRefusedEndsTheCreationWithItsError) {
    open();
    describeHole();
    base.throwOn("addValue", errors::kKnowledgeBase, "The disk is full.");
    EXPECT_THROW(view().existingOrNewFeatureCase(), Error);
}

}  // namespace
}  // namespace pellmark::test
