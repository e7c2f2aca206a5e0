#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>

#include "base/Error.h"
#include "refhost/store/CuttingData.h"
#include "refhost/store/KnowledgeBase.h"
#include "refhost/store/Schema.h"
#include "refhost/store/SqliteKnowledgeBaseService.h"
#include "refhost/store/Statement.h"
#include "support/TemporaryFolder.h"

namespace norvex {
namespace {

using pellmark::Error;
using pellmark::test::readFile;
using pellmark::test::TemporaryFolder;
using pellmark::test::writeFile;
using testing::HasSubstr;
namespace errors = pellmark::errors;

OpenOptions impatient(bool seed = false) {
    return {std::chrono::milliseconds(50), seed};
}

struct KnowledgeBaseFileTest : testing::Test {
    TemporaryFolder folder;
    std::string path = folder.file("base.nkb");

    /// The text with which opening fails; "" when it does not fail.
    std::string refusal(const std::string& of) {
        try {
            KnowledgeBase::open(of, impatient());
        } catch (const Error& error) {
            EXPECT_EQ(error.number(), errors::kKnowledgeBase);
            EXPECT_THAT(error.description(), HasSubstr("'" + of + "'"));
            return error.description();
        }
        return {};
    }
    void expectRefusedAndUntouched(const std::string& words) {
        const std::string before = readFile(path);
        EXPECT_THAT(refusal(path), HasSubstr(words));
        EXPECT_TRUE(readFile(path) == before) << "the file has changed";
    }
    void create() { KnowledgeBase::open(path, impatient()); }
};

TEST_F(KnowledgeBaseFileTest, AMissingFileIsCreatedAndFilled) {
    SqliteKnowledgeBaseService service(path);
    EXPECT_TRUE(std::filesystem::exists(path));
    EXPECT_GE(service.processStore().processes("")->count(), 60U);
}

TEST_F(KnowledgeBaseFileTest, AnEmptyFileIsTakenForAMissingOne) {
    writeFile(path, "");
    SqliteKnowledgeBaseService service(path);
    EXPECT_GE(service.processStore().processes("")->count(), 60U);
}

TEST_F(KnowledgeBaseFileTest, ThePathMayHoldAnyCharacters) {
    const std::string odd = folder.file(
        "\xC3\x9C"
        "bung \xE8\xA8\x98's base.nkb");
    KnowledgeBase::open(odd, impatient());
    SqliteKnowledgeBaseService again(odd, impatient());
    again.processStore().addProcess({"", "A", 71, "", ""});
    EXPECT_TRUE(std::filesystem::exists(std::filesystem::path(std::u8string(odd.begin(), odd.end()))));
}

TEST_F(KnowledgeBaseFileTest, WhatWasStoredIsThereAfterReopening) {
    std::string id;
    {
        SqliteKnowledgeBaseService service(path, impatient());
        id = service.processStore().addProcess({"", "Kept", 71, "", ""});
    }
    SqliteKnowledgeBaseService again(path, impatient());
    EXPECT_EQ(again.processStore().process(id).Name, "Kept");
    EXPECT_EQ(again.processStore().processes("")->count(), 1U);
}

TEST_F(KnowledgeBaseFileTest, ReopeningDoesNotFillItAgain) {
    std::size_t count = 0;
    { count = SqliteKnowledgeBaseService(path).processStore().processes("")->count(); }
    EXPECT_EQ(SqliteKnowledgeBaseService(path).processStore().processes("")->count(), count);
}

TEST_F(KnowledgeBaseFileTest, TheFileUsesAWriteAheadLogAndForeignKeys) {
    auto base = KnowledgeBase::open(path, impatient());
    Statement mode(base->connection(), "PRAGMA journal_mode");
    ASSERT_TRUE(mode.step());
    EXPECT_EQ(mode.text(0), "wal");
    Statement keys(base->connection(), "PRAGMA foreign_keys");
    ASSERT_TRUE(keys.step());
    EXPECT_EQ(keys.integer(0), 1);
}

TEST_F(KnowledgeBaseFileTest, AConnectionTakesNoStatementThatDamagesTheFileOrHidesAMistake) {
    auto base = KnowledgeBase::open(path, impatient());
    Connection& connection = base->connection();
    EXPECT_THROW(connection.execute("SELECT \"no such column\""), Error);
    EXPECT_THROW(connection.execute("CREATE TABLE t (a CHECK (a <> \"text\"))"), Error);
    connection.execute("PRAGMA writable_schema = ON");
    EXPECT_THROW(connection.execute("DELETE FROM sqlite_schema"), Error);
    Statement trusted(connection, "PRAGMA trusted_schema");
    ASSERT_TRUE(trusted.step());
    EXPECT_EQ(trusted.integer(0), 0);
}

TEST_F(KnowledgeBaseFileTest, TheLibraryIsThePinnedOneAndSearchesText) {
    EXPECT_STREQ(sqlite3_libversion(), SQLITE_VERSION);
    auto base = KnowledgeBase::open(path, impatient());
    base->connection().execute("CREATE VIRTUAL TABLE temp.words USING fts5 (text)");
    base->connection().execute("INSERT INTO temp.words VALUES ('Tapping drill 6.8')");
    Statement find(base->connection(), "SELECT count(*) FROM temp.words WHERE words MATCH 'drill'");
    ASSERT_TRUE(find.step());
    EXPECT_EQ(find.integer(0), 1);
}

TEST_F(KnowledgeBaseFileTest, AFileThatIsNoDatabaseIsRefused) {
    writeFile(path, "Name,Unit\r\nDrill,71\r\n");
    expectRefusedAndUntouched("damaged");
    writeFile(path, std::string(5000, 'x'));
    expectRefusedAndUntouched("damaged");
}

TEST_F(KnowledgeBaseFileTest, ATruncatedFileIsRefused) {
    create();
    const std::string whole = readFile(path);
    for (const std::size_t left :
         {std::size_t{50}, std::size_t{100}, std::size_t{4096}, whole.size() / 2, whole.size() - 1}) {
        writeFile(path, whole.substr(0, left));
        expectRefusedAndUntouched("damaged");
    }
}

TEST_F(KnowledgeBaseFileTest, AFileWithADestroyedPageIsRefused) {
    create();
    std::string bytes = readFile(path);
    ASSERT_GT(bytes.size(), 5U * 4096);
    bytes.replace(2 * 4096, 4096, 4096, '\xFF');
    writeFile(path, bytes);
    expectRefusedAndUntouched("damaged");
}

TEST_F(KnowledgeBaseFileTest, AnotherProgramsDatabaseIsRefused) {
    {
        Connection(path, Opening::Create, std::chrono::milliseconds(50))
            .execute("CREATE TABLE recipe (name TEXT)");
    }
    expectRefusedAndUntouched("another program");
}

TEST_F(KnowledgeBaseFileTest, ANewerSchemaIsRefused) {
    create();
    {
        Connection(path, Opening::Existing, std::chrono::milliseconds(50))
            .execute("PRAGMA user_version = 99");
    }
    expectRefusedAndUntouched("newer program (version 99");
}

TEST_F(KnowledgeBaseFileTest, ARefusedFileIsNotChangedByTheLogThatAKilledProgramLeft) {
    create();
    {
        Connection killed(path, Opening::Existing, std::chrono::milliseconds(50));
        killed.keepLogOnClose(true);
        killed.execute("PRAGMA user_version = 99");
    }
    ASSERT_TRUE(std::filesystem::exists(path + "-wal"));
    expectRefusedAndUntouched("newer program");
}

TEST_F(KnowledgeBaseFileTest, AFolderInPlaceOfTheFileOrAMissingOneIsRefused) {
    EXPECT_THAT(refusal(folder.path()), HasSubstr("cannot be opened"));
    EXPECT_THAT(refusal(folder.file("nowhere/base.nkb")), HasSubstr("cannot be opened"));
}

TEST_F(KnowledgeBaseFileTest, AFileThatAnotherProgramHoldsLockedIsRefused) {
    create();
    Connection holder(path, Opening::Existing, std::chrono::milliseconds(50));
    holder.execute("PRAGMA locking_mode = EXCLUSIVE; BEGIN EXCLUSIVE; UPDATE tally SET value = value;");
    EXPECT_THAT(refusal(path), HasSubstr("in use by another program"));
    holder.execute("COMMIT; PRAGMA locking_mode = NORMAL; SELECT count(*) FROM tally;");
    EXPECT_EQ(refusal(path), "");
}

TEST_F(KnowledgeBaseFileTest, AChangeThatWaitsTooLongForTheLockFailsAndWorksAfterwards) {
    SqliteKnowledgeBaseService service(path, impatient());
    Connection other(path, Opening::Existing, std::chrono::milliseconds(50));
    other.execute("BEGIN IMMEDIATE");
    try {
        service.processStore().addProcess({"", "A", 71, "", ""});
        FAIL() << "the lock was ignored";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), errors::kKnowledgeBase);
        EXPECT_THAT(error.description(), HasSubstr("in use by another program"));
        EXPECT_THAT(error.description(), HasSubstr(path));
    }
    EXPECT_EQ(service.processStore().processes("")->count(), 0U) << "reading needs no lock";
    other.execute("COMMIT");
    service.processStore().addProcess({"", "A", 71, "", ""});
    EXPECT_EQ(service.processStore().processes("")->count(), 1U);
}

/// Five hundred processes that are selected and deleted must not be five hundred waits.
TEST_F(KnowledgeBaseFileTest, OfManyChangesThatWaitForOneLockOnlyTheFirstWaits) {
    SqliteKnowledgeBaseService service(path, {std::chrono::milliseconds(200), false});
    Connection other(path, Opening::Existing, std::chrono::milliseconds(50));
    other.execute("BEGIN IMMEDIATE");
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < 100; ++i)
        EXPECT_THROW(service.processStore().addProcess({"", "A", 71, "", ""}), Error);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10)) << "100 waits take 20 s";
}

TEST_F(KnowledgeBaseFileTest, AChangeWaitsForALockThatIsLetGo) {
    SqliteKnowledgeBaseService first(path, impatient());
    SqliteKnowledgeBaseService second(path, impatient());
    Transaction open(first.base()->connection(), Transaction::Kind::Write);
    first.processStore().addProcess({"", "A", 71, "", ""});
    EXPECT_EQ(second.processStore().processes("")->count(), 0U) << "what is not committed is not seen";
    open.commit();
    EXPECT_EQ(second.processStore().processes("")->count(), 1U);
}

TEST_F(KnowledgeBaseFileTest, AnAbandonedTransactionLeavesNothing) {
    SqliteKnowledgeBaseService service(path, impatient());
    {
        Transaction abandoned(service.base()->connection(), Transaction::Kind::Write);
        service.processStore().addProcess({"", "A", 71, "", ""});
    }
    EXPECT_EQ(service.processStore().processes("")->count(), 0U);
}

TEST_F(KnowledgeBaseFileTest, WhatAFeatureCaseWasMadeForIsStoredWithIt) {
    SqliteKnowledgeBaseService service(path);
    auto& cases = service.featureCaseStore();
    const auto partTypes = cases.partTypes();
    const auto classes = cases.materialClasses();
    const std::string type = cases.featureTypes(-1, "", -1)->text(0, 0);
    const std::string id =
        cases.createFeatureCase({type, {}, 2, partTypes->text(0, 0), 70, classes->text(1, 0), 71});
    Statement read(service.base()->connection(),
                   "SELECT c.nvx_feature_type, p.name, c.unit, m.name, c.process_unit FROM feature_case c "
                   "JOIN part_type p ON p.row = c.part_type "
                   "JOIN material_class m ON m.row = c.material_class WHERE c.id = ?");
    read.bindId(id);
    ASSERT_TRUE(read.step());
    EXPECT_EQ(read.integer(0), 2);
    EXPECT_EQ(read.text(1), partTypes->text(0, 1));
    EXPECT_EQ(read.integer(2), 70);
    EXPECT_EQ(read.text(3), classes->text(1, 1));
    EXPECT_EQ(read.integer(4), 71);
}

struct MigrationTest : KnowledgeBaseFileTest {};

TEST_F(MigrationTest, VersionsAscendFromOne) {
    int expected = 1;
    for (const Migration& migration : migrations())
        EXPECT_EQ(migration.version, expected++);
    EXPECT_EQ(currentSchemaVersion(), expected - 1);
}

TEST_F(MigrationTest, AFileOfTheFirstVersionGetsSourcesAndTheTableOfSpeedsAndFeeds) {
    const std::string step = "{C200E360-38C5-11CE-AE62-08002B2B79EF}";
    {
        Connection connection(path, Opening::Create, std::chrono::milliseconds(50));
        migrate(connection, migrations().first(1));
        connection.execute("INSERT INTO process (id, name) VALUES (randomblob(16), 'Kept')");
        Statement add(connection, "INSERT INTO process_step (id, process, name) VALUES (?, 1, 'Drill')");
        add.bindId(step).run();
    }
    SqliteKnowledgeBaseService service(path);
    EXPECT_EQ(service.processStore().processes("")->count(), 1U) << "no sample data is added";
    EXPECT_EQ(service.stepStore().technologySources({step}).at(0), pellmark::TechnologySource::DbStep);
    service.stepStore().setTechnologySource(step, pellmark::TechnologySource::File);
    EXPECT_EQ(service.stepStore().technologySources({step}).at(0), pellmark::TechnologySource::File);
    EXPECT_EQ(readCuttingData(service.base()->connection()).classes().size(), 6U);
}

TEST_F(MigrationTest, OnlyTheMissingStepsRunAndTheFileKeepsItsData) {
    {
        SqliteKnowledgeBaseService service(path, impatient());
        service.processStore().addProcess({"", "Kept", 71, "", ""});
    }
    Connection connection(path, Opening::Existing, std::chrono::milliseconds(50));
    std::vector<Migration> list(migrations().begin(), migrations().end());
    const int next = currentSchemaVersion() + 1;
    list.push_back({next, "ALTER TABLE process ADD COLUMN note TEXT"});
    migrate(connection, list);
    EXPECT_EQ(schemaVersion(connection), next);
    migrate(connection, list);
    Statement read(connection, "SELECT name, note FROM process");
    ASSERT_TRUE(read.step());
    EXPECT_EQ(read.text(0), "Kept");
    EXPECT_TRUE(read.isNull(1));
}

}  // namespace
}  // namespace norvex
