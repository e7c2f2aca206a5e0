#include "processes/ProcessMerge.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pellmark::test {
namespace {

using testing::IsEmpty;

const ProcessRecord kBefore{"id", "Drill", unit::kInch, "short holes", "Depth < 3"};

TEST(ProcessMergeTest, WhereOnlyOneHasChangedAFieldThatChangeStands) {
    ProcessRecord mine = kBefore;
    mine.Name = "Drill deep";
    ProcessRecord theirs = kBefore;
    theirs.Unit = unit::kMetric;
    theirs.Rule = "Depth < 4";
    theirs.Description = "";
    const MergedProcess merged = mergedProcess(kBefore, mine, theirs);
    EXPECT_EQ(merged.record, (ProcessRecord{"id", "Drill deep", unit::kMetric, "", "Depth < 4"}));
    EXPECT_THAT(merged.contested, IsEmpty());
}

TEST(ProcessMergeTest, WhereBothHaveMadeTheSameChangeNothingIsContested) {
    ProcessRecord both = kBefore;
    both.Name = "Drill deep";
    const MergedProcess merged = mergedProcess(kBefore, both, both);
    EXPECT_EQ(merged.record, both);
    EXPECT_THAT(merged.contested, IsEmpty());
}

TEST(ProcessMergeTest, WhereBothHaveChangedAFieldMineStaysAndTheirsIsNamed) {
    const ProcessRecord mine{"id", "mine", unit::kMetric, "my text", "Depth < 1"};
    const ProcessRecord theirs{"id", "theirs", unit::kNone, "their text", "Depth < 2"};
    const MergedProcess merged = mergedProcess(kBefore, mine, theirs);
    EXPECT_EQ(merged.record, mine);
    ASSERT_EQ(merged.contested.size(), 4U);
    const auto isField = [&](std::size_t index, const char* label, const char* text) {
        EXPECT_STREQ(merged.contested[index].label, label);
        EXPECT_EQ(merged.contested[index].theirs, text);
    };
    isField(0, "Name", "theirs");
    isField(1, "Unit", "");
    isField(2, "Rule", "Depth < 2");
    isField(3, "Description", "their text");
}

TEST(ProcessMergeTest, AContestedUnitIsNamedAsTheDialogOffersIt) {
    ProcessRecord before = kBefore;
    before.Unit = unit::kNone;
    ProcessRecord theirs = kBefore;
    ProcessRecord mine = kBefore;
    mine.Unit = unit::kMetric;
    EXPECT_EQ(mergedProcess(before, mine, theirs).contested.at(0).theirs, "Inch");
    std::swap(mine, theirs);
    EXPECT_EQ(mergedProcess(before, mine, theirs).contested.at(0).theirs, "Metric");
}

}  // namespace
}  // namespace pellmark::test
