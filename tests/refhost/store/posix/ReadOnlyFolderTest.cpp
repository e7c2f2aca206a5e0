#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <functional>

#include "base/Error.h"
#include "refhost/store/SqliteKnowledgeBaseService.h"
#include "support/TemporaryFolder.h"

namespace norvex {
namespace {

const OpenOptions kImpatient{std::chrono::milliseconds(50), true};

/// Nobody's rights, also where the tests are run by an administrator, whom no folder keeps out.
int asNobody(const std::function<int()>& body) {
    const pid_t child = fork();
    if (child == 0) {
        constexpr uid_t kNobody = 65534;
        int result = 99;
        if (geteuid() == 0 && setresuid(kNobody, kNobody, kNobody) != 0) _exit(98);
        try {
            result = body();
        } catch (const std::exception& error) {
            std::fprintf(stderr, "%s\n", error.what());
        }
        _exit(result);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

struct ReadOnlyFolderTest : testing::Test {
    ReadOnlyFolderTest() {
        using std::filesystem::perms;
        { SqliteKnowledgeBaseService create(path, kImpatient); }
        // The file itself may be written to; what stands in the way is the folder.
        std::filesystem::permissions(path, perms::all);
        std::filesystem::permissions(
            folder.path(), perms::all & ~(perms::owner_write | perms::group_write | perms::others_write));
    }
    ~ReadOnlyFolderTest() override {
        std::filesystem::permissions(folder.path(), std::filesystem::perms::owner_all);
    }

    pellmark::test::TemporaryFolder folder;
    std::string path = folder.file("base.db");
};

TEST_F(ReadOnlyFolderTest, ABaseInItIsReadAndItsChangesAreRefused) {
    const int result = asNobody([&] {
        SqliteKnowledgeBaseService service(path, kImpatient);
        if (!service.base()->isReadOnly()) return 1;
        pellmark::RowQuery query;
        query.text = "tap";
        query.fields = {"_Name"};
        if (service.processStore().processes("")->count() < 60) return 2;
        if (service.processStore().findProcesses(query)->count() == 0) return 3;
        try {
            service.processStore().addProcess({"", "New", 71, "", ""});
        } catch (const pellmark::Error& error) {
            return error.description().find("is read-only") == std::string::npos ? 4 : 0;
        }
        return 5;
    });
    EXPECT_EQ(result, 0);
}

TEST_F(ReadOnlyFolderTest, AFileThatSomebodyElseMayWriteToIsReadAndNothingIsLeftBesideIt) {
    using std::filesystem::perms;
    std::filesystem::permissions(folder.path(), perms::all);
    // Whom the file belongs to decides only where the tests are not run by it.
    const perms mine = geteuid() == 0 ? perms::owner_write : perms::none;
    std::filesystem::permissions(path, perms::owner_read | perms::group_read | perms::others_read | mine);
    const int result = asNobody([&] {
        SqliteKnowledgeBaseService service(path, kImpatient);
        if (!service.base()->isReadOnly()) return 1;
        return service.processStore().processes("")->count() < 60 ? 2 : 0;
    });
    EXPECT_EQ(result, 0);
    EXPECT_FALSE(std::filesystem::exists(path + "-wal"));
    EXPECT_FALSE(std::filesystem::exists(path + "-shm"));
}

TEST_F(ReadOnlyFolderTest, AMissingBaseInItIsRefused) {
    const std::string missing = folder.file("other.db");
    const int result = asNobody([&] {
        try {
            KnowledgeBase::open(missing, kImpatient);
        } catch (const pellmark::Error& error) {
            return error.description().find("cannot be opened") == std::string::npos ? 1 : 0;
        }
        return 2;
    });
    EXPECT_EQ(result, 0);
}

}  // namespace
}  // namespace norvex
