#include "knowledge/ProcessListRecordset.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ThrownError.h"

namespace pellmark {
namespace {

using test::errorOf;
using testing::ElementsAre;

struct ProcessListRecordsetTest : testing::Test {
    pNode node(int number, std::int16_t unitCode) {
        pNode made;
        made.id = idOf(number).text();
        made.FeatureCaseId = idOf(900).text();
        made.Name = "P" + std::to_string(number);
        made.unit = unitCode;
        made.Rule = "Depth < 3";
        made.Description = "Why";
        return made;
    }
    static Guid idOf(int number) {
        Guid id;
        id.bytes[15] = static_cast<std::uint8_t>(number);
        id.bytes[0] = 1;
        return id;
    }
    std::vector<std::string> names() {
        std::vector<std::string> texts;
        for (std::size_t i = 0; i < records.count(); ++i)
            texts.push_back(records.text(i, 2));
        return texts;
    }
    ProcessListRecordset records;
};

TEST_F(ProcessListRecordsetTest, HasTheSixFieldsInOrder) {
    EXPECT_THAT(records.fields(),
                ElementsAre("_Id", "_FeatureCaseId", "_Name", "_Unit", "_Rule", "_Description"));
}

TEST_F(ProcessListRecordsetTest, ARowHoldsEveryMemberOfItsNode) {
    records.addRow(node(1, 71));
    ASSERT_EQ(records.count(), 1U);
    EXPECT_EQ(records.text(0, 0), idOf(1).text());
    EXPECT_EQ(records.text(0, 1), idOf(900).text());
    EXPECT_EQ(records.text(0, 2), "P1");
    EXPECT_EQ(records.text(0, 3), "71");
    EXPECT_EQ(records.text(0, 4), "Depth < 3");
    EXPECT_EQ(records.text(0, 5), "Why");
}

TEST_F(ProcessListRecordsetTest, TheUnitFilterHasTwoBlanksBeforeTheSign) {
    EXPECT_EQ(ProcessListRecordset::unitFilter(71), "(_Unit  = 71)");
    EXPECT_EQ(ProcessListRecordset::unitFilter(70), "(_Unit  = 70)");
    EXPECT_EQ(ProcessListRecordset::unitFilter(0), "(_Unit  = 0)");
}

TEST_F(ProcessListRecordsetTest, NoUnitMakesAnEmptyFilterAndShowsBothUnits) {
    records.addRow(node(1, 70));
    records.addRow(node(2, 71));
    EXPECT_EQ(ProcessListRecordset::unitFilter(-1), "");
    records.setFilter(ProcessListRecordset::unitFilter(-1));
    EXPECT_THAT(names(), ElementsAre("P1", "P2"));
}

TEST_F(ProcessListRecordsetTest, AFilterLeavesTheRowsOfItsUnitInOrder) {
    for (int i = 1; i <= 4; ++i)
        records.addRow(node(i, i % 2 == 0 ? 71 : 70));
    records.setFilter("(_Unit  = 71)");
    EXPECT_THAT(names(), ElementsAre("P2", "P4"));
    EXPECT_THAT(*records.keys(), ElementsAre(idOf(2), idOf(4)));
    records.setFilter("");
    EXPECT_EQ(records.count(), 4U);
    records.addRow(node(5, 0));
    records.setFilter("(_Unit  = 0)");
    EXPECT_THAT(names(), ElementsAre("P5"));
}

TEST_F(ProcessListRecordsetTest, ARowAddedUnderAFilterShowsOnlyWhenItFits) {
    records.setFilter("(_Unit  = 70)");
    records.addRow(node(1, 71));
    records.addRow(node(2, 70));
    EXPECT_THAT(names(), ElementsAre("P2"));
}

TEST_F(ProcessListRecordsetTest, AnyOtherFilterIsRefusedAndTheOldOneStays) {
    records.addRow(node(1, 70));
    records.setFilter("(_Unit  = 70)");
    for (const char* wrong : {"(_Unit = 71)", "_Unit  = 71", "(_Unit  = )", "(_Unit  = 71", "(_Unit  = -1)",
                              "(_Unit  = 7x)", "(_Unit  = 71) ", "(_Name  = 71)", "(_Unit  = 99999999999)"}) {
        EXPECT_EQ(errorOf([&] { records.setFilter(wrong); }).number(), errors::kInvalidArgument) << wrong;
    }
    EXPECT_EQ(records.filter(), "(_Unit  = 70)");
    EXPECT_EQ(records.count(), 1U);
}

TEST_F(ProcessListRecordsetTest, TextsOfFullLengthFitAndOneMoreIsRefused) {
    pNode full = node(1, 71);
    full.Name.assign(500, 'n');
    full.Rule.assign(250, 'r');
    full.Description.assign(1000, 'd');
    records.addRow(full);
    for (std::string pNode::*text : {&pNode::Name, &pNode::Rule, &pNode::Description}) {
        pNode longer = full;
        (longer.*text) += "x";
        EXPECT_EQ(errorOf([&] { records.addRow(longer); }).number(), errors::kValueTooLong);
    }
    EXPECT_EQ(records.count(), 1U);
    full.Rule += "xy";
    EXPECT_EQ(errorOf([&] { records.addRow(full); }).description(),
              "The rule has 252 characters; it cannot have more than 250.");
}

TEST_F(ProcessListRecordsetTest, LengthsCountUtf16Units) {
    pNode wide = node(1, 71);
    wide.Rule.clear();
    for (int i = 0; i < 125; ++i)
        wide.Rule += "\xF0\x9F\x94\xA9";  // two units each
    records.addRow(wide);
    wide.Rule += "x";
    EXPECT_EQ(errorOf([&] { records.addRow(wide); }).number(), errors::kValueTooLong);
}

TEST_F(ProcessListRecordsetTest, AnIdThatIsNoGuidIsRefusedAndAnEmptyOneIsNone) {
    pNode wrong = node(1, 71);
    wrong.id = "eleven";
    EXPECT_EQ(errorOf([&] { records.addRow(wrong); }).number(), errors::kTypeMismatch);
    EXPECT_EQ(errorOf([&] { records.addRow(wrong); }).description(),
              "'eleven' in the field _Id is not a GUID.");
    pNode without = node(1, 71);
    without.FeatureCaseId = "";
    records.addRow(without);
    EXPECT_EQ(records.text(0, 1), "");
    EXPECT_TRUE(records.keys().has_value());
    without.id = "";
    records.addRow(without);
    EXPECT_FALSE(records.keys().has_value()) << "not every row has a key";
}

TEST_F(ProcessListRecordsetTest, AFeatureCaseThatIsNoGuidIsRefused) {
    pNode wrong = node(1, 71);
    wrong.FeatureCaseId = "case";
    EXPECT_EQ(errorOf([&] { records.addRow(wrong); }).description(),
              "'case' in the field _FeatureCaseId is not a GUID.");
}

TEST_F(ProcessListRecordsetTest, OutsideTheShownRowsTextsAreEmpty) {
    records.addRow(node(1, 70));
    records.addRow(node(2, 71));
    records.setFilter(ProcessListRecordset::unitFilter(70));
    EXPECT_EQ(records.text(1, 2), "");
}

}  // namespace
}  // namespace pellmark
