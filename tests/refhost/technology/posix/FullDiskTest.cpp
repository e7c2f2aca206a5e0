#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <filesystem>

#include "refhost/technology/Cycles.h"
#include "refhost/technology/ProcessFileWriter.h"
#include "support/TemporaryFolder.h"

namespace norvex {
namespace {

using pellmark::test::readFile;
using pellmark::test::TemporaryFolder;
using pellmark::test::writeFile;

/// While one lives, no file of this process can grow past some bytes, as on a disk that is full.
class FullDisk {
  public:
    explicit FullDisk(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before_);
        rlimit full = before_;
        full.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &full);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

  private:
    rlimit before_{};
    void (*handler_)(int);
};

TEST(FullDiskTest, ASaveThatRunsOutOfRoomIsToldAndLeavesThePreviousFileAlone) {
    const TemporaryFolder folder;
    const std::string path = folder.file("steps.prc");
    writeFile(path, "the previous file");
    const Operation drill = Operation::withDefaults(cycle::kDrilling, pellmark::unit::kMetric);
    const std::vector<const Operation*> many(2000, &drill);
    {
        const FullDisk disk(4096);
        EXPECT_FALSE(saveProcessFile(path, many));
    }
    EXPECT_EQ(readFile(path), "the previous file");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(std::filesystem::path(path).parent_path()),
                            std::filesystem::directory_iterator()),
              1);
    EXPECT_TRUE(saveProcessFile(path, many));
}

}  // namespace
}  // namespace norvex
