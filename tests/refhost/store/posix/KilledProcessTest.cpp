#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <functional>

#include "base/Error.h"
#include "refhost/store/SqliteKnowledgeBaseService.h"
#include "refhost/store/Statement.h"
#include "support/TemporaryFolder.h"

namespace norvex {
namespace {

constexpr std::size_t kIdLength = 38;

const OpenOptions kEmpty{std::chrono::seconds(30), false};

/// A process of its own that runs a function and ends with its result.
class Child {
  public:
    explicit Child(const std::function<int()>& body) : id_(fork()) {
        if (id_ != 0) return;
        int result = 99;
        try {
            result = body();
        } catch (const std::exception& error) {
            std::fprintf(stderr, "%s\n", error.what());
        }
        _exit(result);
    }
    ~Child() {
        if (id_ > 0) kill();
    }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    void kill() {
        ::kill(id_, SIGKILL);
        wait();
    }
    int wait() {
        int status = 0;
        waitpid(id_, &status, 0);
        id_ = -1;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

  private:
    pid_t id_;
};

struct KilledProcessTest : testing::Test {
    pellmark::test::TemporaryFolder folder;
    std::string path = folder.file("base.nkb");

    static std::string integrityOf(SqliteKnowledgeBaseService& service) {
        Statement check(service.base()->connection(), "PRAGMA integrity_check");
        return check.step() ? check.text(0) : "";
    }
};

TEST_F(KilledProcessTest, EverythingThatWasStoredSurvives) {
    { SqliteKnowledgeBaseService create(path, kEmpty); }
    int channel[2];
    ASSERT_EQ(pipe(channel), 0);
    Child writer([&] {
        SqliteKnowledgeBaseService service(path, kEmpty);
        while (true) {
            const std::string id = service.processStore().addProcess({"", "typed", 71, "", ""});
            if (write(channel[1], id.data(), id.size()) != static_cast<ssize_t>(kIdLength)) return 1;
        }
    });
    close(channel[1]);
    std::vector<std::string> stored;
    char id[kIdLength];
    while (stored.size() < 200 && read(channel[0], id, kIdLength) == static_cast<ssize_t>(kIdLength)) {
        stored.emplace_back(id, kIdLength);
    }
    writer.kill();
    while (read(channel[0], id, kIdLength) == static_cast<ssize_t>(kIdLength))
        stored.emplace_back(id, kIdLength);
    close(channel[0]);

    SqliteKnowledgeBaseService again(path, kEmpty);
    ASSERT_GE(stored.size(), 200U);
    for (const auto& record : again.processStore().processRecords(stored))
        ASSERT_TRUE(record.has_value());
    EXPECT_EQ(integrityOf(again), "ok");
}

TEST_F(KilledProcessTest, AFileWhoseCreationWasKilledIsCompletedByTheNext) {
    for (int attempt = 0; attempt < 5; ++attempt) {
        const std::string file = folder.file("new" + std::to_string(attempt) + ".nkb");
        Child creator([&] {
            SqliteKnowledgeBaseService service(file);
            return pause();
        });
        while (!std::filesystem::exists(file))
            usleep(static_cast<useconds_t>(100 * (attempt + 1)));
        creator.kill();
        SqliteKnowledgeBaseService service(file);
        EXPECT_GE(service.processStore().processes("")->count(), 60U);
        EXPECT_EQ(service.userRights().users().size(), 3U);
        EXPECT_EQ(integrityOf(service), "ok");
    }
}

TEST_F(KilledProcessTest, ProcessesThatCreateTheSameFileAtOnceFillItOnce) {
    const auto open = [&] {
        return SqliteKnowledgeBaseService(path).userRights().users().size() == 3 ? 0 : 1;
    };
    Child first(open);
    Child second(open);
    Child third(open);
    EXPECT_EQ(first.wait(), 0);
    EXPECT_EQ(second.wait(), 0);
    EXPECT_EQ(third.wait(), 0);
    SqliteKnowledgeBaseService alone(folder.file("alone.nkb"));
    SqliteKnowledgeBaseService shared(path);
    EXPECT_EQ(shared.processStore().processes("")->count(), alone.processStore().processes("")->count());
}

TEST_F(KilledProcessTest, TwoProcessesWriteToOneFileAtOnce) {
    { SqliteKnowledgeBaseService create(path, kEmpty); }
    const auto write = [&] {
        SqliteKnowledgeBaseService service(path, kEmpty);
        for (int i = 0; i < 100; ++i) {
            const std::string id = service.processStore().addProcess({"", "A", 71, "", ""});
            service.stepStore().addStep({"", "Drill", id, 1, 602});
            if (service.processStore().processes("")->count() == 0) return 1;
        }
        return 0;
    };
    Child first(write);
    Child second(write);
    EXPECT_EQ(first.wait(), 0);
    EXPECT_EQ(second.wait(), 0);
    SqliteKnowledgeBaseService service(path, kEmpty);
    EXPECT_EQ(service.processStore().processes("")->count(), 200U);
    EXPECT_EQ(integrityOf(service), "ok");
}

}  // namespace
}  // namespace norvex
