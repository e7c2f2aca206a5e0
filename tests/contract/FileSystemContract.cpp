#include "contract/FileSystemContract.h"

#include <gmock/gmock.h>

#include "ports/FileTests.h"
#include "support/MemoryFileSystem.h"
#include "support/NoIdle.h"
#include "support/PortableCodePage.h"
#include "support/RecordingTrace.h"
#include "support/ThrownError.h"
#include "util/cFileIO.h"

namespace pellmark::test {

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

class MemoryFilesUnderTest : public FileSystemUnderTest {
  public:
    MemoryFilesUnderTest() { files_.makeFolder(folder()); }
    FileSystem& files() override { return files_; }
    std::string folder() override { return "C:\\Work"; }
    void makeFolder(const std::string& path) override { files_.makeFolder(path); }
    void setAttributes(const std::string& path, std::uint32_t attributes) override {
        files_.setAttributes(path, attributes);
    }

  private:
    MemoryFileSystem files_;
};

std::unique_ptr<FileSystemUnderTest> makeMemoryFiles() {
    return std::make_unique<MemoryFilesUnderTest>();
}

}  // namespace

std::vector<std::string> FileSystemContract::listed(const std::string& pattern) {
    std::vector<std::string> names;
    for (const auto& entry : files().list(in(pattern)))
        names.push_back(entry.name);
    return names;
}

TEST_P(FileSystemContract, AReplacingFileTakesTheOthersPlace) {
    files().write(in("new"), "new");
    files().write(in("old"), "old");
    files().replace(in("new"), in("old"));
    EXPECT_EQ(contents("old"), "new");
    EXPECT_THAT(listed("*"), ElementsAre("old"));
    files().replace(in("old"), in("Other"));
    EXPECT_THAT(listed("*"), ElementsAre("Other"));
}

TEST_P(FileSystemContract, AReadOnlyFileIsNotReplaced) {
    if (!whyReadOnlyIsNotKept().empty()) GTEST_SKIP() << whyReadOnlyIsNotKept();
    files().write(in("new"), "new");
    files().write(in("old"), "old");
    setAttributes("old", FileSystem::kReadOnly);
    EXPECT_EQ(errorOf([&] { files().replace(in("new"), in("old")); }).number(), errors::kPermissionDenied);
    setAttributes("old", 0);
    EXPECT_EQ(contents("old"), "old");
    EXPECT_EQ(contents("new"), "new");
}

TEST_P(FileSystemContract, ARemovedFileIsGoneAndCannotBeRemovedAgain) {
    files().write(in("a"), "a");
    files().remove(in("a"));
    EXPECT_THAT(listed("*"), IsEmpty());
    EXPECT_EQ(errorOf([&] { files().remove(in("a")); }).number(), errors::kFileNotFound);
    EXPECT_EQ(errorOf([&] { files().replace(in("a"), in("b")); }).number(), errors::kFileNotFound);
}

TEST_P(FileSystemContract, AFileHoldsWhatWasWritten) {
    files().write(in("a.txt"), std::string("one\0two", 7));
    EXPECT_EQ(files().size(in("a.txt")), 7U);
    EXPECT_EQ(contents("a.txt"), std::string("one\0two", 7));
}

TEST_P(FileSystemContract, WritingReplacesTheWholeFile) {
    files().write(in("a.txt"), "a long text");
    files().write(in("A.TXT"), "short");
    EXPECT_EQ(contents("a.txt"), "short");
    EXPECT_THAT(listed("*"), ElementsAre("a.txt"));
}

TEST_P(FileSystemContract, OverwritingLeavesWhatLiesBehindTheFirstBytes) {
    files().overwrite(in("a.bin"), "abcdef");
    files().overwrite(in("a.bin"), "XY");
    EXPECT_EQ(contents("a.bin"), "XYcdef");
    files().overwrite(in("a.bin"), "12345678");
    EXPECT_EQ(contents("a.bin"), "12345678");
}

TEST_P(FileSystemContract, AppendingCreatesTheFileAndThenGoesOnBehindIt) {
    files().append(in("a.log"), "one ");
    files().append(in("a.log"), "two");
    EXPECT_EQ(contents("a.log"), "one two");
}

TEST_P(FileSystemContract, ReadingTakesUpToCountBytesFromTheOffset) {
    files().write(in("a.txt"), "0123456789");
    EXPECT_EQ(files().read(in("a.txt"), 2, 3), "234");
    EXPECT_EQ(files().read(in("a.txt"), 8, 100), "89");
    EXPECT_EQ(files().read(in("a.txt"), 10, 5), "");
    EXPECT_EQ(files().read(in("a.txt"), 1000, 5), "");
}

TEST_P(FileSystemContract, AMissingFileIsNotFoundAndNamed) {
    const Error error = errorOf([&] { files().read(in("none.txt"), 0, 1); });
    EXPECT_EQ(error.number(), errors::kFileNotFound);
    EXPECT_THAT(error.description(), HasSubstr("none.txt"));
    EXPECT_EQ(errorOf([&] { files().size(in("none.txt")); }).number(), errors::kFileNotFound);
}

TEST_P(FileSystemContract, AMissingFolderIsNotMadeOnTheWay) {
    EXPECT_EQ(errorOf([&] { files().write(in("none\\a.txt"), "x"); }).number(), errors::kPathNotFound);
    EXPECT_EQ(errorOf([&] { files().append(in("none\\a.txt"), "x"); }).number(), errors::kPathNotFound);
    EXPECT_EQ(errorOf([&] { files().size(in("none\\a.txt")); }).number(), errors::kPathNotFound);
}

TEST_P(FileSystemContract, AFolderIsNoFile) {
    makeFolder("sub");
    EXPECT_EQ(errorOf([&] { files().write(in("sub"), "x"); }).number(), errors::kPermissionDenied);
    EXPECT_EQ(errorOf([&] { files().size(in("sub")); }).number(), errors::kPermissionDenied);
}

TEST_P(FileSystemContract, AReadOnlyFileIsReadButNotWritten) {
    if (!whyReadOnlyIsNotKept().empty()) GTEST_SKIP() << whyReadOnlyIsNotKept();
    files().write(in("a.txt"), "kept");
    setAttributes("a.txt", FileSystem::kReadOnly);
    EXPECT_EQ(errorOf([&] { files().write(in("a.txt"), "x"); }).number(), errors::kPermissionDenied);
    EXPECT_EQ(errorOf([&] { files().append(in("a.txt"), "x"); }).number(), errors::kPermissionDenied);
    EXPECT_EQ(contents("a.txt"), "kept");
}

TEST_P(FileSystemContract, TheNameOfADeviceIsRefusedInAnyFolderAndWithAnyExtension) {
    for (const char* const name : {"nul", "NUL.csv", "con.txt", "com1", "Lpt9.prc", "aux .txt"}) {
        const Error error = errorOf([&] { files().write(in(name), "x"); });
        EXPECT_EQ(error.number(), errors::kBadFileName) << name;
        EXPECT_THAT(error.description(), HasSubstr("device")) << name;
        EXPECT_EQ(errorOf([&] { files().read(in(name), 0, 1); }).number(), errors::kBadFileName) << name;
        EXPECT_THAT(listed(name), IsEmpty()) << name;
    }
    EXPECT_THAT(listed("*"), IsEmpty());
}

TEST_P(FileSystemContract, NamesThatOnlyBeginLikeADeviceAreFiles) {
    files().write(in("nullify.csv"), "x");
    files().write(in("com10"), "x");
    EXPECT_THAT(listed("*"), UnorderedElementsAre("com10", "nullify.csv"));
}

TEST_P(FileSystemContract, AnEmptyNameIsRefused) {
    EXPECT_EQ(errorOf([&] { files().write("", "x"); }).number(), errors::kBadFileName);
}

TEST_P(FileSystemContract, AListingMatchesItsPatternWithoutCaseAndLeavesTheDotsOut) {
    files().write(in("a.prc"), "");
    files().write(in("B.PRC"), "");
    files().write(in("c.txt"), "");
    files().write(in("noextension"), "");
    makeFolder("sub");
    EXPECT_THAT(listed("*.prc"), UnorderedElementsAre("a.prc", "B.PRC"));
    EXPECT_THAT(listed("?.txt"), ElementsAre("c.txt"));
    EXPECT_THAT(listed("*.*"), UnorderedElementsAre("a.prc", "B.PRC", "c.txt", "noextension", "sub"));
    EXPECT_THAT(listed("A.PRC"), ElementsAre("a.prc"));
}

TEST_P(FileSystemContract, AListingTellsFoldersAndAttributes) {
    makeFolder("sub");
    files().write(in("a.txt"), "");
    setAttributes("a.txt", FileSystem::kReadOnly | FileSystem::kHidden);
    const auto folder = files().list(in("sub"));
    const auto file = files().list(in("a.txt"));
    ASSERT_EQ(folder.size(), 1U);
    ASSERT_EQ(file.size(), 1U);
    EXPECT_TRUE(folder[0].isFolder());
    EXPECT_FALSE(file[0].isFolder());
    EXPECT_EQ(file[0].attributes & 3U, FileSystem::kReadOnly | FileSystem::kHidden);
}

TEST_P(FileSystemContract, AListingOfWhatIsMissingIsEmpty) {
    files().write(in("a.txt"), "");
    EXPECT_THAT(listed("*.prc"), IsEmpty());
    EXPECT_THAT(listed("none\\*"), IsEmpty());
    EXPECT_THAT(listed("a.txt\\*"), IsEmpty());
    EXPECT_THAT(files().list(in("")), IsEmpty());
    EXPECT_THAT(files().list(""), IsEmpty());
}

TEST_P(FileSystemContract, NamesOutsideTheCodePageAreReached) {
    const std::string name = "\xE5\x88\x80\xE5\x85\xB7.prc";
    files().write(in(name), "tool");
    EXPECT_EQ(contents(name), "tool");
    EXPECT_THAT(listed("*"), ElementsAre(name));
}

TEST_P(FileSystemContract, APathLongerThanTheClassicLimitIsReached) {
    std::string path;
    for (int i = 0; i < 6; ++i) {
        path += (i == 0 ? "" : "\\") + std::string(60, static_cast<char>('a' + i));
        makeFolder(path);
    }
    files().write(in(path + "\\deep.txt"), "reached");
    EXPECT_EQ(contents(path + "\\deep.txt"), "reached");
    EXPECT_THAT(listed(path + "\\*"), ElementsAre("deep.txt"));
    EXPECT_TRUE(listingFindsFile(files(), in(path + "\\deep.txt")));
}

TEST_P(FileSystemContract, TheTemporaryFolderExistsAndEndsInABackslash) {
    const std::string folder = files().temporaryFolder();
    ASSERT_FALSE(folder.empty());
    EXPECT_EQ(folder.back(), '\\');
    EXPECT_TRUE(listingFindsFolder(files(), folder));
}

TEST_P(FileSystemContract, TestsByListingTellFilesFromFolders) {
    files().write(in("a.txt"), "");
    makeFolder("sub");
    EXPECT_TRUE(listingFindsFile(files(), in("a.txt")));
    EXPECT_FALSE(listingFindsFile(files(), in("sub")));
    EXPECT_TRUE(listingFindsFolder(files(), in("sub")));
    EXPECT_TRUE(listingFindsFolder(files(), in("sub\\")));
    EXPECT_FALSE(listingFindsFolder(files(), in("a.txt")));
    EXPECT_TRUE(listingFindsFolder(files(), "C:\\"));
}

TEST_P(FileSystemContract, TheFileHelpersWalkCompareAndAppendOverEveryPort) {
    RecordingTrace trace;
    PortableCodePage codePage;
    NoIdle idle;
    const cFileIO io(files(), codePage, idle, trace);
    makeFolder("sub");
    makeFolder("_vti_cnf");
    EXPECT_TRUE(io.WriteFile(in("a.txt"), "\xC3\x98 8\r\n"));
    io.AppendFile(in("a.txt"), "M8");
    io.AppendFiles(in("a.txt"), in("sub\\b.txt"));
    EXPECT_TRUE(io.WriteFile(in("_vti_cnf\\c.txt"), "hidden from the walk"));
    std::vector<std::string> found;
    io.EnumFiles(in(""), found);
    EXPECT_THAT(found, ElementsAre(in("a.txt"), in("sub\\b.txt")));
    EXPECT_TRUE(io.FileCompare(in("a.txt"), in("sub\\b.txt")));
    EXPECT_EQ(io.GetFileString(in("sub\\b.txt")), "\xC3\x98 8\r\nM8");
    EXPECT_THAT(trace.lines(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Memory, FileSystemContract, ::testing::Values(&makeMemoryFiles));

}  // namespace pellmark::test
