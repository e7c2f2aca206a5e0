#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <set>

#include "base/Error.h"
#include "knowledge/Records.h"
#include "refhost/store/CuttingData.h"
#include "refhost/store/Schema.h"
#include "refhost/store/SqliteKnowledgeBaseService.h"
#include "refhost/store/Statement.h"
#include "support/TemporaryFolder.h"

namespace norvex {
namespace {

using pellmark::Error;
using pellmark::RowQuery;
using pellmark::test::readFile;
using pellmark::test::TemporaryFolder;
using pellmark::test::writeFile;
using testing::ElementsAre;
using testing::HasSubstr;
namespace errors = pellmark::errors;
namespace field = pellmark::field;

const OpenOptions kImpatient{std::chrono::milliseconds(50), true};

/// A knowledge base whose file nobody may write to.
struct ReadOnlyBaseTest : testing::Test {
    ~ReadOnlyBaseTest() override { protect(false); }

    TemporaryFolder folder;
    std::string path = folder.file("bas\xC3\xA9 #1 100%.db");

    void protect(bool on = true) const {
        using std::filesystem::perms;
        const std::filesystem::path file(std::u8string(path.begin(), path.end()));
        std::error_code ignored;
        std::filesystem::permissions(
            file, on ? perms::owner_read | perms::group_read | perms::others_read : perms::owner_all,
            ignored);
    }
    void createAndProtect() const {
        { SqliteKnowledgeBaseService create(path, kImpatient); }
        protect();
    }
    std::set<std::string> namesInFolder() const {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(
                 std::filesystem::path(std::u8string(folder.path().begin(), folder.path().end())))) {
            const std::u8string name = entry.path().filename().u8string();
            names.emplace(name.begin(), name.end());
        }
        return names;
    }
    std::string refusalOf(const std::function<void()>& change) const {
        try {
            change();
        } catch (const Error& error) {
            EXPECT_EQ(error.number(), errors::kKnowledgeBase);
            return error.description();
        }
        return "not refused";
    }
};

std::vector<std::string> namesOf(pellmark::RecordSet& records) {
    std::vector<std::string> names;
    for (std::size_t at = 0; at < records.count(); ++at)
        names.push_back(records.text(at, records.requireField(field::kName)));
    return names;
}

TEST_F(ReadOnlyBaseTest, IsListedWithItsStepsMaterialsAndCases) {
    createAndProtect();
    SqliteKnowledgeBaseService service(path, kImpatient);
    EXPECT_TRUE(service.base()->isReadOnly());
    const auto processes = service.processStore().processes("");
    ASSERT_GE(processes->count(), 60U);
    const auto keys = processes->keys();
    ASSERT_TRUE(keys);
    EXPECT_EQ(keys->size(), processes->count());
    const std::string id = processes->text(0, processes->requireField(field::kId));
    EXPECT_EQ(service.processStore().process(id).Name, processes->text(0, 1));
    EXPECT_GT(service.stepStore().steps(id)->count(), 0U);
    EXPECT_GT(service.materialStore().materials()->count(), 0U);
    EXPECT_GT(service.featureCaseStore().featureTypes(-1, "", -1)->count(), 0U);
    EXPECT_EQ(readCuttingData(service.base()->connection()).classes().size(), 6U);
    EXPECT_TRUE(service.userRights().may(pellmark::PermissionEdit)) << "an account's rights are its own";
}

TEST_F(ReadOnlyBaseTest, IsSearchedAndSorted) {
    createAndProtect();
    SqliteKnowledgeBaseService service(path, kImpatient);
    for (const char* text : {"m", "M8", "tap", "no such text"}) {
        RowQuery query;
        query.text = text;
        query.fields = {field::kName, field::kDescription};
        query.sortField = field::kName;
        const auto down = service.processStore().findProcesses(query);
        query.descending = true;
        const auto up = service.processStore().findProcesses(query);
        auto names = namesOf(*up);
        std::reverse(names.begin(), names.end());
        EXPECT_EQ(std::multiset<std::string>(names.begin(), names.end()), [&] {
            const auto all = namesOf(*down);
            return std::multiset<std::string>(all.begin(), all.end());
        }());
        EXPECT_EQ(down->count() > 0, std::string(text) != "no such text") << text;
    }
}

TEST_F(ReadOnlyBaseTest, IsSortedAlsoWhereAnotherProgramHasWrittenProcessesWithoutKeys) {
    {
        SqliteKnowledgeBaseService service(path, {std::chrono::milliseconds(50), false});
        service.processStore().addProcess({"", "Drill 9", 71, "", ""});
        service.base()->connection().execute(
            "INSERT INTO process (id, name) VALUES (randomblob(16), 'Drill 10'), (randomblob(16), 'Drill "
            "2')");
    }
    protect();
    SqliteKnowledgeBaseService service(path, kImpatient);
    RowQuery query;
    query.sortField = field::kName;
    for (int time = 0; time < 2; ++time) {
        EXPECT_THAT(namesOf(*service.processStore().findProcesses(query)),
                    ElementsAre("Drill 2", "Drill 9", "Drill 10"));
    }
    Statement left(service.base()->connection(), "SELECT count(*) FROM process_key WHERE name IS NULL");
    ASSERT_TRUE(left.step());
    EXPECT_EQ(left.integer(0), 3) << "the file's own keys are as they were";
}

TEST_F(ReadOnlyBaseTest, NothingIsWrittenToItOrBesideIt) {
    createAndProtect();
    const std::string before = readFile(path);
    const auto names = namesInFolder();
    {
        SqliteKnowledgeBaseService service(path, kImpatient);
        const auto list = service.processStore().processes("");
        list->keys();
        EXPECT_EQ(namesInFolder(), names) << "while it is open";
    }
    EXPECT_EQ(namesInFolder(), names);
    EXPECT_TRUE(readFile(path) == before);
}

TEST_F(ReadOnlyBaseTest, EveryChangeIsRefusedWithATextThatSaysWhatToDoAndChangesNothing) {
    createAndProtect();
    const std::string before = readFile(path);
    SqliteKnowledgeBaseService service(path, kImpatient);
    auto& processes = service.processStore();
    auto& steps = service.stepStore();
    auto& cases = service.featureCaseStore();
    const auto list = processes.processes("");
    const std::string process = list->text(0, 0);
    const std::string step = steps.steps(process)->text(0, 0);
    const std::string material = service.materialStore().materials()->text(0, 0);
    const std::string featureType = cases.featureTypes(-1, "", -1)->text(0, 0);
    const std::string value = cases.values(featureType)->text(0, 0);
    const std::string featureCase = cases.matches(featureType, {}).at(0).featureCaseId;
    const std::function<void()> changes[] = {
        [&] {
            processes.addProcess({"", "New", 71, "", ""});
        },
        [&] {
            processes.updateProcess({process, "Other", 71, "", ""});
        },
        [&] { processes.deleteProcess(process); },
        [&] { processes.attach(process, featureCase); },
        [&] { processes.detach(featureCase, process); },
        [&] { processes.addMaterial(process, material); },
        [&] { processes.removeMaterial(process, material); },
        [&] {
            cases.createFeatureCase({featureType, {}, -1, "", -1, "", -1});
        },
        [&] { cases.addValue(value, featureCase); },
        [&] {
            steps.addStep({"", "New", process, 1, 1});
        },
        [&] {
            steps.updateStep({step, "Other", process, 1, 1});
        },
        [&] { steps.deleteStep(step); },
        [&] {
            steps.addValue({step, 99999, "1"});
        },
        [&] {
            steps.updateValue({step, 432, "1"});
        },
        [&] {
            steps.setValue({step, 432, "1"});
        },
        [&] { steps.deleteValue(step, 432); },
        [&] { steps.setTechnologySource(step, pellmark::TechnologySource::User); },
    };
    for (const auto& change : changes) {
        const std::string refusal = refusalOf(change);
        EXPECT_THAT(refusal, HasSubstr("'" + path + "' is read-only"));
        EXPECT_THAT(refusal, HasSubstr("Remove the write protection"));
    }
    EXPECT_TRUE(readFile(path) == before);
    EXPECT_EQ(processes.process(process).Name, list->text(0, 1)) << "it is still read afterwards";
}

TEST_F(ReadOnlyBaseTest, OneOfAnOlderVersionIsRefusedAsItCannotBeBroughtUpToDate) {
    {
        Connection connection(path, Opening::Create, std::chrono::milliseconds(50));
        migrate(connection, migrations().first(2));
    }
    protect();
    const std::string before = readFile(path);
    const std::string refusal = refusalOf([&] { KnowledgeBase::open(path, kImpatient); });
    EXPECT_THAT(refusal,
                HasSubstr("'" + path + "' was written by an older program (version 2, this one needs 3)"));
    EXPECT_THAT(refusal, HasSubstr("because it is read-only. Remove the write protection"));
    EXPECT_TRUE(readFile(path) == before);
    protect(false);
    EXPECT_FALSE(KnowledgeBase::open(path, kImpatient)->isReadOnly());
}

TEST_F(ReadOnlyBaseTest, AnEmptyFileIsRefusedAsNoKnowledgeBaseCanBeMadeOfIt) {
    writeFile(path, "");
    protect();
    EXPECT_THAT(refusalOf([&] { KnowledgeBase::open(path, kImpatient); }), HasSubstr("is empty and cannot"));
}

TEST_F(ReadOnlyBaseTest, WhatIsOnlyInTheLogOfAKilledProgramIsSeen) {
    { SqliteKnowledgeBaseService create(path, kImpatient); }
    {
        Connection killed(path, Opening::Existing, std::chrono::milliseconds(50));
        killed.keepLogOnClose(true);
        killed.execute("UPDATE process SET name = 'Only in the log' WHERE row = 1");
    }
    protect();
    SqliteKnowledgeBaseService service(path, kImpatient);
    RowQuery query;
    query.text = "Only in the log";
    query.fields = {field::kName};
    EXPECT_EQ(service.processStore().findProcesses(query)->count(), 1U);
    EXPECT_THAT(refusalOf([&] {
                    service.processStore().addProcess({"", "New", 71, "", ""});
                }),
                HasSubstr("is read-only"));
}

TEST_F(ReadOnlyBaseTest, WhatAProgramThatHadItOpenBeforeGoesOnToWriteIsSeen) {
    SqliteKnowledgeBaseService writer(path, kImpatient);
    protect();
    SqliteKnowledgeBaseService reader(path, kImpatient);
    ASSERT_TRUE(reader.base()->isReadOnly());
    const std::size_t before = reader.processStore().processes("")->count();
    const std::string id = writer.processStore().addProcess({"", "Added meanwhile", 71, "", ""});
    EXPECT_EQ(reader.processStore().processes("")->count(), before + 1);
    EXPECT_EQ(reader.processStore().process(id).Name, "Added meanwhile");
    EXPECT_THAT(refusalOf([&] { reader.processStore().deleteProcess(id); }), HasSubstr("is read-only"));
}

TEST_F(ReadOnlyBaseTest, ADamagedOneIsRefusedAsBefore) {
    writeFile(path, std::string(5000, 'x'));
    protect();
    EXPECT_THAT(refusalOf([&] { KnowledgeBase::open(path, kImpatient); }), HasSubstr("damaged"));
}

}  // namespace
}  // namespace norvex
