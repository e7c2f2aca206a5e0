#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "refhost/store/SqliteKnowledgeBaseService.h"
#include "refhost/store/Statement.h"
#include "support/TemporaryFolder.h"

namespace norvex {
namespace {

/// What another tool may have written into the file.
struct ForeignDataTest : testing::Test {
    pellmark::test::TemporaryFolder folder;
    SqliteKnowledgeBaseService service{folder.file("base.nkb"), {std::chrono::milliseconds(50), false}};
    const std::string id = "{00000001-0000-4000-8000-000000000001}";

    void insert(const std::string& values) {
        const std::string sql =
            "INSERT INTO process (id, name, unit, rule, description) VALUES "
            "(x'01000000000000408000000000000001', " +
            values + ")";
        service.base()->connection().execute(sql.c_str());
    }
};

TEST_F(ForeignDataTest, NullsReadAsEmptyTexts) {
    insert("NULL, NULL, NULL, NULL");
    EXPECT_EQ(service.processStore().process(id), (pellmark::ProcessRecord{id, "", 0, "", ""}));
    auto all = service.processStore().processes("");
    ASSERT_EQ(all->count(), 1U);
    EXPECT_EQ(all->text(0, 0), id);
    for (std::size_t field = 1; field < 5; ++field)
        EXPECT_EQ(all->text(0, field), "");
    EXPECT_EQ(all->keys()->size(), 1U);
    EXPECT_EQ(service.processStore().processRecords({id})[0]->Name, "");
}

TEST_F(ForeignDataTest, NumbersAndBytesInPlaceOfTextsAreReadAsText) {
    insert("12.5, 71, 7, x'4142'");
    const auto record = service.processStore().process(id);
    EXPECT_EQ(record.Name, "12.5");
    EXPECT_EQ(record.Rule, "7");
    EXPECT_EQ(record.Description, "AB");
}

TEST_F(ForeignDataTest, AUnitCodeOutOfRangeIsNoUnit) {
    insert("'A', 100000, '', ''");
    EXPECT_EQ(service.processStore().process(id).Unit, 0);
    EXPECT_EQ(service.processStore().processes("")->text(0, 2), "100000");
}

TEST_F(ForeignDataTest, ATextLongerThanItsFieldIsReadWhole) {
    insert("'" + std::string(700, 'n') + "', 71, '', ''");
    EXPECT_EQ(service.processStore().process(id).Name.size(), 700U);
}

TEST_F(ForeignDataTest, BytesThatAreNoTextDoNoHarm) {
    insert("CAST(x'FFFE00C3' AS TEXT), 71, '', ''");
    auto all = service.processStore().processes("");
    EXPECT_EQ(all->text(0, 0), id);
    EXPECT_FALSE(all->text(0, 1).empty());
}

TEST_F(ForeignDataTest, ARowNumberBeyondThoseThatThereAreIsSaid) {
    service.base()->connection().execute(
        "INSERT INTO process (row, id, name) VALUES (4294967296, randomblob(16), 'far')");
    try {
        service.processStore().processes("")->keys();
        ADD_FAILURE() << "the row was taken for another one";
    } catch (const HostError& error) {
        EXPECT_EQ(error.number(), pellmark::errors::kKnowledgeBase);
        EXPECT_EQ(error.source(), "KnowledgeBase");
        EXPECT_THAT(error.description(), testing::EndsWith("has used up its row numbers."));
    }
}

TEST_F(ForeignDataTest, SortingKeysThatAreNotThoseOfTheProcessesAreDamageAndNoCrash) {
    insert("'A', 71, '', ''");
    const auto sort = [this] {
        pellmark::RowQuery byName;
        byName.sortField = "_Name";
        return service.processStore().findProcesses(byName)->count();
    };
    ASSERT_EQ(sort(), 1U);
    for (const char* spoil : {"INSERT INTO process_key VALUES (99, x'02', x'02', x'02')",
                              "DELETE FROM process_key WHERE process <> 99", "DELETE FROM process_key"}) {
        service.base()->connection().execute(spoil);
        EXPECT_THROW(sort(), FileError) << spoil;
    }
    EXPECT_EQ(service.processStore().processes("")->count(), 1U) << "the list itself can be read";
}

}  // namespace
}  // namespace norvex
