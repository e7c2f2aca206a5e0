#include "refhost/store/ProcessRecordSet.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "refhost/store/SqliteKnowledgeBaseService.h"
#include "support/TemporaryFolder.h"

namespace norvex {
namespace {

using pellmark::ProcessStore;
using pellmark::test::TemporaryFolder;

struct ProcessRecordSetTest : testing::Test {
    TemporaryFolder folder;
    SqliteKnowledgeBaseService service{folder.file("base.nkb"), {std::chrono::milliseconds(50), false}};
    Connection& connection = service.base()->connection();

    void add(int count) {
        Transaction all(connection, Transaction::Kind::Write);
        for (int i = 0; i < count; ++i) {
            service.processStore().addProcess({"", "P" + std::to_string(100000 + i), 71, "d", "r"});
        }
        all.commit();
    }
    /// Whether the log could be written back into the file to its end, which an open view prevents.
    bool logCanBeReset() {
        service.processStore().addProcess({"", "zzz", 71, "", ""});
        Statement checkpoint(connection, "PRAGMA wal_checkpoint(TRUNCATE)");
        return checkpoint.step() && checkpoint.integer(0) == 0;
    }
};

TEST_F(ProcessRecordSetTest, TheViewIsHeldUntilTheKeysHaveBeenDelivered) {
    add(3);
    auto all = service.processStore().processes("");
    EXPECT_FALSE(logCanBeReset());
    all->keys();
    EXPECT_TRUE(logCanBeReset());
    EXPECT_EQ(all->text(2, 1), "P100002");
    EXPECT_TRUE(logCanBeReset()) << "reading a page later holds no view either";
}

TEST_F(ProcessRecordSetTest, TheViewIsReleasedWithARecordSetThatWasNeverAskedForKeys) {
    add(3);
    auto all = service.processStore().processes("");
    EXPECT_EQ(all->text(0, 1), "P100000");
    all.reset();
    EXPECT_TRUE(logCanBeReset());
}

TEST_F(ProcessRecordSetTest, ANewProcessNeverTakesThePlaceOfTheDeletedOneThatWasAddedLast) {
    add(3);
    auto all = service.processStore().processes("");
    const auto keys = all->keys();
    ASSERT_TRUE(service.processStore().deleteProcess((*keys)[2].text()));
    service.processStore().addProcess({"", "intruder", 70, "", ""});
    EXPECT_EQ(all->text(2, 1), "");
    EXPECT_EQ(all->text(2, 0), "");
}

TEST_F(ProcessRecordSetTest, ARecordReadForTheFirstTimeAfterItsDeletionIsEmpty) {
    add(3);
    auto all = service.processStore().processes("");
    const auto keys = all->keys();
    ASSERT_TRUE(service.processStore().deleteProcess((*keys)[1].text()));
    service.processStore().addProcess({"", "P100001", 70, "", ""});
    for (std::size_t field = 0; field < 5; ++field)
        EXPECT_EQ(all->text(1, field), "");
    EXPECT_EQ(all->text(2, 1), "P100002");
}

TEST_F(ProcessRecordSetTest, EveryCellIsTheSameByPositionAndByRow) {
    add(1300);
    auto byPosition = service.processStore().processes("");
    auto byRow = service.processStore().processes("");
    const auto keys = byRow->keys();
    ASSERT_EQ(keys->size(), 1300U);
    for (std::size_t i = 0; i < 1300; i += 7) {
        for (std::size_t field = 0; field < 5; ++field) {
            ASSERT_EQ(byPosition->text(i, field), byRow->text(i, field)) << i;
        }
        ASSERT_EQ(byRow->text(i, 0), (*keys)[i].text());
    }
}

TEST_F(ProcessRecordSetTest, ReadingPageAfterPageGoesAroundWhatHasChangedSinceTheQuery) {
    add(1000);
    auto all = service.processStore().processes("");
    const auto keys = all->keys();
    ProcessStore& store = service.processStore();
    ASSERT_TRUE(store.deleteProcess((*keys)[300].text()));
    store.addProcess({"", "P100400", 70, "", "added"});
    store.updateProcess({(*keys)[500].text(), "A first now", 71, "", ""});
    for (std::size_t i = 0; i < 1000; ++i) {
        const std::string expected = i == 300   ? ""
                                     : i == 500 ? "A first now"
                                                : "P" + std::to_string(100000 + i);
        ASSERT_EQ(all->text(i, 1), expected) << i;
        ASSERT_EQ(all->text(i, 0), i == 300 ? "" : (*keys)[i].text());
    }
}

TEST_F(ProcessRecordSetTest, EqualNamesAcrossPagesAreReadEachOnce) {
    Transaction filling(connection, Transaction::Kind::Write);
    for (int i = 0; i < 400; ++i)
        service.processStore().addProcess({"", i % 2 == 0 ? "same" : "SAME", 71, "", ""});
    filling.commit();
    auto all = service.processStore().processes("");
    const auto keys = all->keys();
    for (std::size_t i = 0; i < 400; ++i)
        ASSERT_EQ(all->text(i, 0), (*keys)[i].text()) << i;
}

TEST_F(ProcessRecordSetTest, RecordSetsThatOverlapDoNotDisturbEachOther) {
    add(200);
    auto first = service.processStore().processes("");
    auto second = service.processStore().processes("");
    service.processStore().deleteProcess(first->text(0, 0));
    auto third = service.processStore().processes("");
    EXPECT_EQ(first->count(), 200U);
    EXPECT_EQ(third->count(), 199U);
    first.reset();
    EXPECT_EQ(second->text(199, 1), "P100199");
    EXPECT_EQ(third->text(198, 1), "P100199");
}

TEST_F(ProcessRecordSetTest, ARecordSetOutlivesItsService) {
    add(2);
    auto other = std::make_unique<SqliteKnowledgeBaseService>(
        service.base()->path(), OpenOptions{std::chrono::milliseconds(50), false});
    auto all = other->processStore().processes("");
    other.reset();
    EXPECT_EQ(all->text(1, 1), "P100001");
    EXPECT_EQ(all->keys()->size(), 2U);
}

}  // namespace
}  // namespace norvex
