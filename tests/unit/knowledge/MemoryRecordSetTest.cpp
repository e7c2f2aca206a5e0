#include "knowledge/MemoryRecordSet.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/Error.h"

namespace pellmark {
namespace {

using testing::ElementsAre;

const Guid kFirst = *Guid::parse("{00000000-0000-0000-0000-000000000001}");
const Guid kSecond = *Guid::parse("{00000000-0000-0000-0000-000000000002}");

struct MemoryRecordSetTest : testing::Test {
    MemoryRecordSet records{{"_Id", "_Name", "_Rule"}};
};

TEST_F(MemoryRecordSetTest, CellsComeBackAsTheyWereAdded) {
    records.addRow({kFirst.text(), "Drill", ""});
    records.addRow({kSecond.text(), "\"Ream\"\r\n\xF0\x9F\x94\xA9", "Diameter >= 6"});
    ASSERT_EQ(records.count(), 2U);
    EXPECT_EQ(records.text(0, 0), kFirst.text());
    EXPECT_EQ(records.text(0, 1), "Drill");
    EXPECT_EQ(records.text(0, 2), "");
    EXPECT_EQ(records.text(1, 1), "\"Ream\"\r\n\xF0\x9F\x94\xA9");
    EXPECT_EQ(records.text(1, 2), "Diameter >= 6");
}

TEST_F(MemoryRecordSetTest, AnIdInLowerCaseWithoutBracesComesBackInRegistryForm) {
    records.addRow({"abcdef00-0000-0000-0000-000000000001", "", ""});
    EXPECT_EQ(records.text(0, 0), "{ABCDEF00-0000-0000-0000-000000000001}");
}

TEST_F(MemoryRecordSetTest, KeysAreTheIdsInOrder) {
    records.addRow(kSecond, {"b", ""});
    records.addRow(kFirst, {"a", ""});
    EXPECT_THAT(*records.keys(), ElementsAre(kSecond, kFirst));
}

TEST_F(MemoryRecordSetTest, AnEmptyTableWithIdsHasAnEmptyBlockOfKeys) {
    ASSERT_TRUE(records.keys().has_value());
    EXPECT_TRUE(records.keys()->empty());
}

TEST_F(MemoryRecordSetTest, AnIdThatIsNoGuidIsKeptAndThereIsNoBlockOfKeys) {
    records.addRow({kFirst.text(), "", ""});
    records.addRow({"43", "Hole", ""});
    EXPECT_EQ(records.text(1, 0), "43");
    EXPECT_FALSE(records.keys().has_value());
}

TEST_F(MemoryRecordSetTest, TheNilGuidIsAnIdLikeAnyOther) {
    records.addRow({Guid{}.text(), "", ""});
    records.addRow(Guid{}, {"", ""});
    EXPECT_EQ(records.text(0, 0), Guid{}.text());
    EXPECT_EQ(records.text(1, 0), Guid{}.text());
    EXPECT_THAT(*records.keys(), ElementsAre(Guid{}, Guid{}));
}

TEST_F(MemoryRecordSetTest, WithoutAnIdFieldThereIsNoBlockOfKeys) {
    MemoryRecordSet values({"_CLFileCode", "_Value"});
    values.addRow({"432", "0.5"});
    EXPECT_FALSE(values.keys().has_value());
    EXPECT_EQ(values.text(0, 1), "0.5");
}

TEST_F(MemoryRecordSetTest, OutsideTheTableTextsAreEmpty) {
    records.addRow({kFirst.text(), "Drill", ""});
    EXPECT_EQ(records.text(1, 1), "");
    EXPECT_EQ(records.text(0, 3), "");
}

TEST_F(MemoryRecordSetTest, ARowWithTheWrongNumberOfTextsIsRefusedWhole) {
    EXPECT_THROW(records.addRow({kFirst.text(), "Drill"}), Error);
    EXPECT_THROW(records.addRow(kFirst, {"Drill"}), Error);
    EXPECT_EQ(records.count(), 0U);
}

TEST_F(MemoryRecordSetTest, ManyThousandRowsComeBackInOrderAndCostLittleMoreThanTheirTexts) {
    constexpr std::size_t kRows = 10000;
    Guid id = kFirst;
    for (std::size_t i = 0; i < kRows; ++i) {
        id.bytes[1] = static_cast<std::uint8_t>(i % 256);
        records.addRow(id, {"Name " + std::to_string(i), i % 3 == 0 ? "" : "rule"});
    }
    for (std::size_t i = 0; i < kRows; ++i)
        ASSERT_EQ(records.text(i, 1), "Name " + std::to_string(i));
    EXPECT_EQ(records.text(4096, 2), "rule");
    EXPECT_EQ(records.keys()->size(), kRows);
    EXPECT_EQ(records.keys()->at(4097).bytes[1], 4097 % 256);
    EXPECT_LT(records.bytes(), kRows * 80);
}

TEST_F(MemoryRecordSetTest, FieldsAreFoundWithoutCase) {
    EXPECT_EQ(records.fieldIndex("_ID"), 0U);
    EXPECT_EQ(records.fieldIndex("_Unit"), std::nullopt);
    EXPECT_EQ(records.requireField("_name"), 1U);
}

TEST_F(MemoryRecordSetTest, AFieldThatMustBeThereIsNamedWhereItIsNot) {
    try {
        records.requireField("_Unit");
        ADD_FAILURE() << "another field was taken for it";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), errors::kHostInterface);
        EXPECT_EQ(error.description(), "The record set of RecordSet lacks the field _Unit.");
    }
}

}  // namespace
}  // namespace pellmark
