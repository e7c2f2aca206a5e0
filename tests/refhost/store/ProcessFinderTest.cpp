#include "refhost/store/ProcessFinder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "refhost/store/Schema.h"
#include "refhost/store/SqliteKnowledgeBaseService.h"
#include "refhost/store/Statement.h"
#include "support/TemporaryFolder.h"

namespace norvex {
namespace {

using pellmark::RowQuery;
using pellmark::test::TemporaryFolder;
using testing::ElementsAre;
using testing::IsEmpty;

/// A knowledge base of some 21,000 processes, more than are looked at one by one.
struct ProcessFinderTest : testing::Test {
    static constexpr int kMany = 21'000;

    TemporaryFolder folder;
    SqliteKnowledgeBaseService service{folder.file("base.nkb"), {std::chrono::milliseconds(50), false}};
    Connection& connection = service.base()->connection();

    void addNamed(const std::string& name) { service.processStore().addProcess({"", name, 71, "d", "r"}); }
    void addMany() {
        Transaction all(connection, Transaction::Kind::Write);
        connection.execute(
            "WITH RECURSIVE n(i) AS (SELECT 100000 UNION ALL SELECT i + 1 FROM n WHERE i < 120999) "
            "INSERT INTO process (id, name, unit, rule, description) "
            "SELECT randomblob(16), 'P ' || i, 71, '', '' FROM n");
        all.commit();
    }
    std::shared_ptr<pellmark::RecordSet> find(const std::string& text, const std::string& sort = {}) {
        RowQuery query;
        query.text = text;
        query.fields = {"_Name", "_Rule", "_Description"};
        query.sortField = sort;
        return service.processStore().findProcesses(query);
    }
    static std::vector<std::string> names(pellmark::RecordSet& records) {
        std::vector<std::string> all;
        for (std::size_t i = 0; i < records.count(); ++i)
            all.push_back(records.text(i, 1));
        return all;
    }
};

TEST(RowMarksTest, EachRowIsMarkedByItself) {
    RowMarks marks;
    EXPECT_FALSE(marks.has(0));
    for (const std::uint32_t row : {0U, 63U, 64U, 128U, 1'000'000U})
        marks.add(row);
    for (const std::uint32_t row : {0U, 63U, 64U, 128U, 1'000'000U})
        EXPECT_TRUE(marks.has(row)) << row;
    for (const std::uint32_t row : {1U, 62U, 65U, 127U, 129U, 999'999U, 1'000'001U, 0xFFFFFFFFU})
        EXPECT_FALSE(marks.has(row)) << row;
}

TEST_F(ProcessFinderTest, WhatOneLetterFindsAlmostEverywhereEndsEarlyAndSaysSo) {
    addMany();
    const auto found = find("p");
    EXPECT_EQ(found->count(), 20'000U);
    EXPECT_TRUE(found->hasMore());
    EXPECT_EQ(found->text(0, 1), "P 100000");
    EXPECT_EQ(found->text(19'999, 1), "P 119999");
    const auto keys = found->keys();
    ASSERT_EQ(keys->size(), 20'000U);
    EXPECT_EQ(service.processStore().process((*keys)[19'999].text()).Name, "P 119999");
}

TEST_F(ProcessFinderTest, RareLettersAreFoundWhereverTheyStandInAllOfThem) {
    addMany();
    addNamed("the last z");
    addNamed("z\xC3\x84q");
    addNamed("ends in Q");
    EXPECT_THAT(names(*find("z")), ElementsAre("the last z", "z\xC3\x84q"));
    EXPECT_THAT(names(*find("q")), ElementsAre("ends in Q", "z\xC3\x84q"));
    EXPECT_THAT(names(*find("\xC3\xA4Q")), ElementsAre("z\xC3\x84q"));
    EXPECT_THAT(names(*find("zz")), IsEmpty());
    EXPECT_FALSE(find("z")->hasMore());
}

TEST_F(ProcessFinderTest, ThreeLettersAreFoundInAllOfThem) {
    addMany();
    EXPECT_EQ(find("p 1")->count(), static_cast<std::size_t>(kMany));
    EXPECT_FALSE(find("p 1")->hasMore());
    EXPECT_THAT(names(*find("20999")), ElementsAre("P 120999"));
}

TEST_F(ProcessFinderTest, ManyKeysComeInTheOrderOfTheRows) {
    addMany();
    const auto found = find("p 1", "_Name");
    const auto keys = found->keys();
    ASSERT_EQ(keys->size(), static_cast<std::size_t>(kMany));
    for (const std::size_t i : {0U, 1U, 12'345U, 20'999U})
        EXPECT_EQ(service.processStore().process((*keys)[i].text()).Name, found->text(i, 1));
}

TEST_F(ProcessFinderTest, AHiddenIdentifierIsSearchedWhereItIsShown) {
    addNamed("A");
    const auto all = service.processStore().processes("");
    const std::string id = all->text(0, 0);
    RowQuery query;
    query.text = id.substr(3, 8);
    query.fields = {"_Id", "_Name"};
    EXPECT_EQ(service.processStore().findProcesses(query)->count(), 1U);
    query.fields = {"_Name"};
    EXPECT_EQ(service.processStore().findProcesses(query)->count(), 0U);
}

TEST_F(ProcessFinderTest, WhatOtherToolsWriteIsFoundAndSorted) {
    addNamed("M10");
    connection.execute("INSERT INTO process (id, name) VALUES (randomblob(16), 'M9')");
    EXPECT_THAT(names(*find("", "_Name")), ElementsAre("M9", "M10"));
    connection.execute("UPDATE process SET name = 'M11 foreign' WHERE name = 'M9'");
    EXPECT_THAT(names(*find("", "_Name")), ElementsAre("M10", "M11 foreign"));
    EXPECT_THAT(names(*find("foreign")), ElementsAre("M11 foreign"));
    connection.execute("UPDATE process SET name = NULL WHERE name = 'M10'");
    EXPECT_THAT(names(*find("", "_Name")), ElementsAre("", "M11 foreign"));
    connection.execute("DELETE FROM process WHERE name IS NULL");
    EXPECT_THAT(names(*find("", "_Rule")), ElementsAre("M11 foreign"));
    connection.execute("INSERT INTO process_search (process_search) VALUES ('integrity-check')");
}

TEST_F(ProcessFinderTest, AnOrderThatIsStillRightIsNotReadAgain) {
    addNamed("b");
    addNamed("a");
    ProcessOrders orders;
    const ProcessRows first = orders.by(connection, "");
    EXPECT_EQ(orders.by(connection, ""), first);
    addNamed("c");
    EXPECT_NE(orders.by(connection, ""), first);
    EXPECT_EQ(orders.by(connection, "")->size(), 3U);
    connection.execute("UPDATE process SET attachments = 1");
    const ProcessRows later = orders.by(connection, "");
    EXPECT_EQ(orders.by(connection, ""), later) << "an attachment moves nothing";
}

TEST_F(ProcessFinderTest, TheListOnTheScreenLendsItsOrder) {
    addNamed("b");
    addNamed("a");
    const auto shown = service.processStore().processes("");
    shown->keys();
    addNamed("c");
    EXPECT_THAT(names(*find("", "")), ElementsAre("a", "b", "c")) << "unless it has changed since";
}

TEST_F(ProcessFinderTest, AFileOfTheSecondVersionIsSearchedAndSortedAfterIt) {
    const std::string path = folder.file("old.nkb");
    {
        Connection old(path, Opening::Create, std::chrono::milliseconds(50));
        Transaction change(old, Transaction::Kind::Write);
        migrate(old, migrations().subspan(0, 2));
        old.execute(
            "INSERT INTO process (id, name, unit, rule) VALUES (randomblob(16), 'Tap M10', 71, 'd = 10'), "
            "(randomblob(16), 'Tap M3', 71, NULL)");
        change.commit();
    }
    SqliteKnowledgeBaseService reopened(path, {std::chrono::milliseconds(50), false});
    RowQuery query;
    query.text = "tap";
    query.fields = {"_Name"};
    query.sortField = "_Name";
    const auto found = reopened.processStore().findProcesses(query);
    EXPECT_THAT(names(*found), ElementsAre("Tap M3", "Tap M10"));
}

}  // namespace
}  // namespace norvex
