#include "knowledge/RowFinder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "knowledge/ArrangedRecords.h"
#include "knowledge/MemoryRecordSet.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class RowFinderTest : public testing::Test {
  protected:
    void add(const std::string& name, const std::string& number, const std::string& unitCode = "71") {
        records.addRow({name, number, unitCode});
    }
    std::vector<std::uint32_t> find(const RowQuery& query) {
        const auto shown = [](const std::string& field, const std::string& stored) {
            if (field != "_Unit") return stored;
            return std::string(stored == "71" ? "Metric" : "Inch");
        };
        const auto progress = [this](std::size_t done, std::size_t all) {
            steps.push_back({done, all});
            return steps.size() < endAfter;
        };
        const auto places = RowFinder(records, shown, progress).find(query);
        ended = !places;
        return places.value_or(std::vector<std::uint32_t>());
    }
    static RowQuery looking(const std::string& text) { return {text, {"_Name", "_Number"}, {}, "", false}; }
    static RowQuery sorting(const std::string& field, bool descending = false) {
        return {"", {}, {}, field, descending};
    }

    MemoryRecordSet records{{"_Name", "_Number", "_Unit"}};
    std::vector<std::pair<std::size_t, std::size_t>> steps;
    std::size_t endAfter = SIZE_MAX;
    bool ended = false;
};

TEST_F(RowFinderTest, RecordsThatHoldTheTextInOneOfTheFieldsAreFoundInTheirOrder) {
    add("Tap M10", "1");
    add("Drill", "2");
    add("tap m8", "10");
    EXPECT_THAT(find(looking("TAP")), ElementsAre(0, 2));
    EXPECT_THAT(find(looking("10")), ElementsAre(0, 2));
    EXPECT_THAT(find(looking("x")), IsEmpty());
    EXPECT_FALSE(ended);
}

TEST_F(RowFinderTest, ValuesThatAreMetAreFoundAndUnknownFieldsPassedOver) {
    add("Tap", "1", "70");
    add("Drill", "2", "71");
    RowQuery query = looking("metric");
    query.fields.emplace_back("_Nothing");
    query.values = {{"_Unit", "71"}, {"_Nothing", ""}};
    EXPECT_THAT(find(query), ElementsAre(1));
}

TEST_F(RowFinderTest, TextsAreSortedInNaturalOrderAndEqualOnesAsTheyStood) {
    add("M10", "");
    add("M3", "");
    add("m3", "");
    add("M1", "");
    EXPECT_THAT(find(sorting("_Name")), ElementsAre(3, 1, 2, 0));
    EXPECT_THAT(find(sorting("_Name", true)), ElementsAre(0, 2, 1, 3));
}

TEST_F(RowFinderTest, AColumnOfNumbersIsSortedByValue) {
    for (const char* number : {"10", "-3", "2.5", "2.25", "0"})
        add("x", number);
    EXPECT_THAT(find(sorting("_Number")), ElementsAre(1, 4, 3, 2, 0));
    add("x", "no number");
    EXPECT_THAT(find(sorting("_Number")), ElementsAre(1, 4, 2, 3, 0, 5)) << "as texts, then";
}

TEST_F(RowFinderTest, WordsThatOnlyAProgramTakesForNumbersAreTexts) {
    add("Nan", "nan");
    add("Infeed", "inf");
    add("Bore", "10");
    add("Drill", "9");
    EXPECT_THAT(find(sorting("_Number")), ElementsAre(3, 2, 1, 0));
    add("Hexadecimal", "0x1");
    add("Signed", "-3");
    EXPECT_THAT(find(sorting("_Number")), ElementsAre(5, 4, 3, 2, 1, 0));
}

TEST_F(RowFinderTest, AColumnIsSortedByWhatIsSeenOfIt) {
    add("a", "", "71");
    add("b", "", "70");
    add("c", "", "71");
    EXPECT_THAT(find(sorting("_Unit")), ElementsAre(1, 0, 2));
}

TEST_F(RowFinderTest, AnUnknownColumnLeavesTheOrder) {
    add("b", "");
    add("a", "");
    EXPECT_THAT(find(sorting("_Nothing")), ElementsAre(0, 1));
}

TEST_F(RowFinderTest, ALongWalkTellsHowFarItIsAndCanBeEnded) {
    for (int i = 0; i < 5000; ++i)
        add("x", std::to_string(i));
    RowQuery query = looking("4");
    query.sortField = "_Name";
    find(query);
    ASSERT_GE(steps.size(), 2U);
    EXPECT_EQ(steps[0], std::make_pair(std::size_t{2048}, std::size_t{10000}));
    EXPECT_EQ(steps[1].first, 4096U);
    EXPECT_FALSE(ended);
    steps.clear();
    endAfter = 2;
    find(query);
    EXPECT_TRUE(ended);
    EXPECT_EQ(steps.size(), 2U);
}

TEST_F(RowFinderTest, ALongSortCanBeEndedToo) {
    for (int i = 0; i < 5000; ++i)
        add("x", std::to_string(i));
    endAfter = 2;
    find(sorting("_Number", true));
    EXPECT_TRUE(ended);
    EXPECT_EQ(steps.back(), std::make_pair(std::size_t{4096}, std::size_t{5000}));
}

TEST(ArrangedRecordsTest, RecordsAndKeysComeInTheOrderOfThePlaces) {
    const Guid first = *Guid::parse("{00000001-0000-0000-0000-000000000000}");
    const Guid second = *Guid::parse("{00000002-0000-0000-0000-000000000000}");
    auto all = std::make_shared<MemoryRecordSet>(std::vector<std::string>{"_Id", "_Name"});
    all->addRow(first, {"a"});
    all->addRow(second, {"b"});
    ArrangedRecords arranged(all, {1, 0, 1});
    EXPECT_EQ(arranged.count(), 3U);
    EXPECT_EQ(arranged.text(0, 1), "b");
    EXPECT_EQ(arranged.text(1, 1), "a");
    EXPECT_EQ(arranged.text(3, 1), "");
    EXPECT_EQ(arranged.fields(), all->fields());
    EXPECT_THAT(*arranged.keys(), ElementsAre(second, first, second));
}

TEST(ArrangedRecordsTest, TheFirstRecordsAreThoseOfTheOrderThatThereIs) {
    auto all = std::make_shared<MemoryRecordSet>(std::vector<std::string>{"_Name"});
    for (const char* name : {"a", "b", "c"})
        all->addRow({name});
    EXPECT_EQ(firstRecords(all, 3), all);
    const auto two = firstRecords(all, 2);
    EXPECT_EQ(two->count(), 2U);
    EXPECT_EQ(two->text(1, 0), "b");
    EXPECT_EQ(two->keys(), std::nullopt) << "the records have none";
    EXPECT_EQ(firstRecords(all, 0)->count(), 0U);
}

/// A record set that counts how often its keys are asked for.
class CountedKeys : public MemoryRecordSet {
  public:
    CountedKeys() : MemoryRecordSet({"_Id"}) {}
    std::optional<std::vector<Guid>> keys() override {
        ++asked;
        return MemoryRecordSet::keys();
    }
    int asked = 0;
};

TEST(ArrangedRecordsTest, KeptKeysAreAskedForOnce) {
    auto counted = std::make_shared<CountedKeys>();
    counted->addRow(Guid::random(), {});
    KeptKeys kept(counted);
    EXPECT_EQ(kept.keys(), counted->MemoryRecordSet::keys());
    EXPECT_EQ(kept.keys(), counted->MemoryRecordSet::keys());
    EXPECT_EQ(counted->asked, 1);
    EXPECT_EQ(kept.count(), 1U);
    EXPECT_EQ(kept.text(0, 0), counted->text(0, 0));
}

}  // namespace
}  // namespace pellmark::test
