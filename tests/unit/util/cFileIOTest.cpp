#include "util/cFileIO.h"

#include <gmock/gmock.h>

#include "support/MemoryFileSystem.h"
#include "support/NoIdle.h"
#include "support/PortableCodePage.h"
#include "support/RecordingTrace.h"

namespace pellmark::test {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class CFileIOTest : public ::testing::Test {
  protected:
    std::vector<std::string> walkFiles(const std::string& folder) {
        std::vector<std::string> found;
        io.EnumFiles(folder, found);
        return found;
    }
    std::vector<std::string> walkFolders(const std::string& folder) {
        std::vector<std::string> found;
        io.EnumFolders(folder, found);
        return found;
    }
    bool compare(const std::string& bytes1, const std::string& bytes2) {
        files.makeFile("C:\\1", bytes1);
        files.makeFile("C:\\2", bytes2);
        return io.FileCompare("C:\\1", "C:\\2");
    }

    MemoryFileSystem files;
    PortableCodePage codePage;
    NoIdle idle;
    RecordingTrace trace;
    cFileIO io{files, codePage, idle, trace};
};

TEST_F(CFileIOTest, ATextIsSplitAtEveryLineBreakAndEmptyPiecesAreDropped) {
    EXPECT_THAT(io.GetStringLineCollection("a\r\n\r\nb"), ElementsAre("a", "b"));
    EXPECT_THAT(io.GetStringLineCollection("\ra\rb\nc\n\r"), ElementsAre("a", "b", "c"));
    EXPECT_THAT(io.GetStringLineCollection(" \r\n"), ElementsAre(" "));
    EXPECT_THAT(io.GetStringLineCollection(""), IsEmpty());
    EXPECT_THAT(io.GetStringLineCollection("\r\n"), IsEmpty());
}

TEST_F(CFileIOTest, AFileNameLosesTheCharactersThatItMayNotHold) {
    EXPECT_EQ(io.ValidateFileName("C:\\Work\\a\"b/c:d*e?f<g>h|i.prc"), "C:\\Work\\abcdefghi.prc");
    EXPECT_EQ(io.ValidateFileName("C:\\Work\\tab\there\x01.prc"), "C:\\Work\\tabhere.prc");
    EXPECT_EQ(io.ValidateFileName("\"quoted\".csv"), "quoted.csv");
}

TEST_F(CFileIOTest, TheFolderOfAFileNameIsKeptAsItIs) {
    EXPECT_EQ(io.ValidateFileName("C:\\We\"ird?\\name.prc"), "C:\\We\"ird?\\name.prc");
    EXPECT_EQ(io.ValidateFileName("C:\\Work\\"), "C:\\Work\\");
    EXPECT_EQ(io.ValidateFileName("Gr\xC3\xB6\xC3\x9F"
                                  "e.prc"),
              "Gr\xC3\xB6\xC3\x9F"
              "e.prc");
    EXPECT_EQ(io.ValidateFileName(""), "");
}

TEST_F(CFileIOTest, AFilesLinesComeInOrderWithoutBlankOnes) {
    files.makeFile("C:\\a.txt", "Fr\xE4sen\r\n\r\nBohren\n");
    EXPECT_THAT(io.GetFileLineCollection("C:\\a.txt"), ElementsAre("Fr\xC3\xA4sen", "Bohren"));
}

TEST_F(CFileIOTest, AFilesTextHasUniformLineBreaksAndNoneAtItsEnd) {
    files.makeFile("C:\\a.txt", "\xD8 8\n\rM8\r\n\r\nlast\r\n");
    EXPECT_EQ(io.GetFileString("C:\\a.txt"), "\xC3\x98 8\r\n\r\nM8\r\n\r\nlast");
    files.makeFile("C:\\b.txt", "one line");
    EXPECT_EQ(io.GetFileString("C:\\b.txt"), "one line");
    files.makeFile("C:\\c.txt", "");
    EXPECT_EQ(io.GetFileString("C:\\c.txt"), "");
    files.makeFile("C:\\d.txt", "\r\nsecond\nx");
    EXPECT_EQ(io.GetFileString("C:\\d.txt"), "\r\nsecond\r\nx");
}

TEST_F(CFileIOTest, AMissingFileHasNoTextAndIsTraced) {
    EXPECT_EQ(io.GetFileString("C:\\none.txt"), "");
    EXPECT_THAT(io.GetFileLineCollection("C:\\none.txt"), IsEmpty());
    EXPECT_TRUE(trace.trapped("cFileIO::GetFileString"));
    EXPECT_TRUE(trace.trapped("cFileIO::GetFileLineCollection"));
}

TEST_F(CFileIOTest, WritingReplacesTheFileWithTheTextInTheCodePageAndNothingMore) {
    files.makeFile("C:\\a.txt", "something longer than that");
    EXPECT_TRUE(io.WriteFile("C:\\a.txt", "\xC3\x98 8 \xE5\x88\x80"));
    EXPECT_EQ(files.contents("C:\\a.txt"), "\xD8 8 ?");
    EXPECT_THAT(trace.lines(), ElementsAre(testing::AllOf(testing::HasSubstr("cFileIO::WriteFile"),
                                                          testing::HasSubstr("C:\\a.txt: 1 character(s)"),
                                                          testing::HasSubstr("\xE5\x88\x80"))));
}

TEST_F(CFileIOTest, AFileThatCannotBeWrittenAnswersFalseAndIsTraced) {
    EXPECT_FALSE(io.WriteFile("C:\\none\\a.txt", "x"));
    EXPECT_FALSE(io.WriteFile("C:\\Temp\\nul.csv", "x"));
    EXPECT_EQ(trace.lines().size(), 2U);
    EXPECT_TRUE(trace.trapped("cFileIO::WriteFile"));
}

TEST_F(CFileIOTest, BytesAreWrittenFromTheFirstOneOnAndTheRestStays) {
    files.makeFile("C:\\a.bin", "abcdef");
    io.WriteBinaryFile("C:\\a.bin", {0, 0xFF});
    EXPECT_EQ(files.contents("C:\\a.bin"), std::string("\0\xFF", 2) + "cdef");
    io.WriteBinaryFile("C:\\new.bin", {1});
    EXPECT_EQ(files.contents("C:\\new.bin"), "\x01");
}

TEST_F(CFileIOTest, OnlyAFileThatIsNeitherHiddenNorTheSystemsExists) {
    files.makeFile("C:\\Work\\a.txt");
    files.makeFile("C:\\Work\\read.txt", "", FileSystem::kReadOnly);
    files.makeFile("C:\\Work\\hidden.txt", "", FileSystem::kHidden);
    files.makeFile("C:\\Work\\system.txt", "", FileSystem::kSystem);
    EXPECT_TRUE(io.FileExists("C:\\work\\A.TXT"));
    EXPECT_TRUE(io.FileExists("C:\\Work\\read.txt"));
    EXPECT_TRUE(io.FileExists("C:\\Work\\*.txt"));
    EXPECT_FALSE(io.FileExists("C:\\Work\\hidden.txt"));
    EXPECT_FALSE(io.FileExists("C:\\Work\\system.txt"));
    EXPECT_FALSE(io.FileExists("C:\\Work\\none.txt"));
    EXPECT_FALSE(io.FileExists("C:\\Work"));
    EXPECT_FALSE(io.FileExists(""));
}

TEST_F(CFileIOTest, OnlyAFolderThatIsNeitherHiddenNorTheSystemsExistsAsOne) {
    files.makeFolder("C:\\Work\\sub");
    files.makeFolder("C:\\Work\\hidden", FileSystem::kHidden);
    files.makeFile("C:\\Work\\a.txt");
    EXPECT_TRUE(io.FolderExists("C:\\Work\\sub"));
    EXPECT_TRUE(io.FolderExists("C:\\Work\\sub\\"));
    EXPECT_TRUE(io.FolderExists("C:\\"));
    EXPECT_FALSE(io.FolderExists("D:\\"));
    EXPECT_FALSE(io.FolderExists("C:\\Work\\hidden"));
    EXPECT_FALSE(io.FolderExists("C:\\Work\\a.txt"));
    EXPECT_FALSE(io.FolderExists("C:\\Work\\none"));
    EXPECT_FALSE(io.FolderExists(""));
}

TEST_F(CFileIOTest, ATestThatFailsAnswersFalseAndIsTraced) {
    files.breakDown(true);
    EXPECT_FALSE(io.FileExists("C:\\a.txt"));
    EXPECT_FALSE(io.FolderExists("C:\\Work"));
    EXPECT_TRUE(trace.trapped("cFileIO::FileExists"));
    EXPECT_TRUE(trace.trapped("cFileIO::FolderExists"));
}

TEST_F(CFileIOTest, APathIsWhatStandsBeforeTheLastBackslash) {
    EXPECT_EQ(io.GetFilePath("C:\\Work\\a.prc"), "C:\\Work");
    EXPECT_EQ(io.GetFilePath("C:\\Work\\"), "C:\\Work");
    EXPECT_EQ(io.GetFilePath("a.prc"), "");
}

TEST_F(CFileIOTest, EmptyFilesAreEqual) {
    EXPECT_TRUE(compare("", ""));
    EXPECT_EQ(files.reads, 0);
}

TEST_F(CFileIOTest, FilesOfDifferentLengthsDifferAndAreNotRead) {
    EXPECT_FALSE(compare(std::string(10000, 'x'), std::string(10001, 'x')));
    EXPECT_EQ(files.reads, 0);
}

TEST_F(CFileIOTest, FilesAreComparedInBlocksOf10000BytesAndTheRemainder) {
    EXPECT_TRUE(compare(std::string(20001, 'x'), std::string(20001, 'x')));
    EXPECT_THAT(files.readSizes, ElementsAre(10000, 10000, 10000, 10000, 1, 1));
}

TEST_F(CFileIOTest, ADifferenceIsFoundInEveryBlockAndEndsTheComparison) {
    const std::string same(25000, 'x');
    for (const std::size_t at : {0U, 9999U, 10000U, 20000U, 24999U}) {
        std::string other = same;
        other[at] = 'y';
        EXPECT_FALSE(compare(same, other)) << at;
    }
    files.reads = 0;
    EXPECT_FALSE(compare(same, "y" + same.substr(1)));
    EXPECT_EQ(files.reads, 2);
}

TEST_F(CFileIOTest, AMissingFileEqualsNothingAndIsTraced) {
    EXPECT_FALSE(io.FileCompare("C:\\none", "C:\\none"));
    EXPECT_TRUE(trace.trapped("cFileIO::FileCompare"));
}

TEST_F(CFileIOTest, TheWholeSourceIsAppendedByteForByte) {
    files.makeFile("C:\\source", std::string("\xFF\0\r\n", 4));
    files.makeFile("C:\\target", "before ");
    io.AppendFiles("C:\\source", "C:\\target");
    EXPECT_EQ(files.contents("C:\\target"), "before " + std::string("\xFF\0\r\n", 4));
    EXPECT_EQ(files.contents("C:\\source").size(), 4U);
}

TEST_F(CFileIOTest, AMissingSourceLeavesTheTargetAloneAndIsTraced) {
    io.AppendFiles("C:\\none", "C:\\target");
    EXPECT_FALSE(files.has("C:\\target"));
    EXPECT_TRUE(trace.trapped("cFileIO::AppendFiles"));
}

TEST_F(CFileIOTest, ATextIsAppendedAsItIs) {
    io.AppendFile("C:\\a.txt", "\xC3\x98");
    io.AppendFile("C:\\a.txt", " 8");
    EXPECT_EQ(files.contents("C:\\a.txt"), "\xD8 8");
    io.AppendFile("C:\\a.txt", "\xE5\x88\x80");
    EXPECT_EQ(files.contents("C:\\a.txt"), "\xD8 8?");
    EXPECT_THAT(trace.lines(), ElementsAre(testing::HasSubstr("cFileIO::AppendFile")));
}

TEST_F(CFileIOTest, WhatCannotBeDoneEndsQuietlyAndIsTraced) {
    files.breakDown(true);
    io.AppendFile("C:\\a.txt", "x");
    io.WriteBinaryFile("C:\\a.bin", {1});
    EXPECT_THAT(io.GetFiles("C:\\Work"), IsEmpty());
    EXPECT_TRUE(trace.trapped("cFileIO::AppendFile"));
    EXPECT_TRUE(trace.trapped("cFileIO::WriteBinaryFile"));
    EXPECT_TRUE(trace.trapped("cFileIO::GetFiles"));
}

TEST_F(CFileIOTest, TheFilesOfAFolderAreItsNormalOnesByNameWhateverTheMask) {
    files.makeFile("C:\\Work\\b.txt");
    files.makeFile("C:\\Work\\a.prc");
    files.makeFile("C:\\Work\\hidden.txt", "", FileSystem::kHidden);
    files.makeFolder("C:\\Work\\sub");
    io.setMask("*.prc");
    EXPECT_THAT(io.GetFiles("C:\\Work"), ElementsAre("a.prc", "b.txt"));
    EXPECT_THAT(io.GetFiles("C:\\Work\\"), ElementsAre("a.prc", "b.txt"));
    EXPECT_THAT(io.GetFiles("C:\\None"), IsEmpty());
}

TEST_F(CFileIOTest, AWalkAddsTheFilesOfEveryFolderHiddenAndSystemOnesIncluded) {
    files.makeFile("C:\\Work\\z.prc");
    files.makeFile("C:\\Work\\a\\deep\\x.prc", "", FileSystem::kHidden);
    files.makeFile("C:\\Work\\a\\y.prc", "", FileSystem::kSystem | FileSystem::kReadOnly);
    std::vector<std::string> found{"there before"};
    io.EnumFiles("C:\\Work\\", found);
    EXPECT_THAT(found, ElementsAre("there before", "C:\\Work\\z.prc", "C:\\Work\\a\\y.prc",
                                   "C:\\Work\\a\\deep\\x.prc"));
}

TEST_F(CFileIOTest, AWalkAddsOnlyTheFilesThatMatchTheMask) {
    files.makeFile("C:\\Work\\a.prc");
    files.makeFile("C:\\Work\\a.prcx");
    files.makeFile("C:\\Work\\sub.prc\\B.PRC");
    files.makeFile("C:\\Work\\noextension");
    EXPECT_EQ(io.Mask(), "*.*");
    EXPECT_EQ(walkFiles("C:\\Work").size(), 4U);
    io.setMask("*.prc");
    EXPECT_THAT(walkFiles("C:\\Work"), ElementsAre("C:\\Work\\a.prc", "C:\\Work\\sub.prc\\B.PRC"));
}

TEST_F(CFileIOTest, AWalkAddsEverySubFolderAndNotTheFolderItself) {
    files.makeFolder("C:\\Work\\a\\deep");
    files.makeFolder("C:\\Work\\b");
    files.makeFile("C:\\Work\\c.txt");
    EXPECT_THAT(walkFolders("C:\\Work"), ElementsAre("C:\\Work\\a", "C:\\Work\\a\\deep", "C:\\Work\\b"));
}

TEST_F(CFileIOTest, AFolderThatAWebServerKeepsForItselfIsInNoWalkNorIsAnythingBelowIt) {
    files.makeFile("C:\\Work\\_vti_cnf\\deep\\x.prc");
    files.makeFile("C:\\Work\\_VTI_bin\\x.prc");
    files.makeFile("C:\\Work\\_vti.prc");
    files.makeFolder("C:\\Work\\a_vti");
    EXPECT_THAT(walkFolders("C:\\Work"), ElementsAre("C:\\Work\\a_vti"));
    EXPECT_THAT(walkFiles("C:\\Work"), ElementsAre("C:\\Work\\_vti.prc"));
}

TEST_F(CFileIOTest, AWalkNamesALinkToAFolderButDoesNotFollowIt) {
    files.makeFile("C:\\Work\\link\\x.prc");
    files.setAttributes("C:\\Work\\link", FileSystem::kReparsePoint);
    EXPECT_THAT(walkFolders("C:\\Work"), ElementsAre("C:\\Work\\link"));
    EXPECT_THAT(walkFiles("C:\\Work"), IsEmpty());
}

TEST_F(CFileIOTest, AWalkLetsTheUserInterfaceBreatheForEveryEntry) {
    files.makeFile("C:\\Work\\a.txt");
    files.makeFile("C:\\Work\\sub\\b.txt");
    walkFiles("C:\\Work");
    EXPECT_EQ(idle.yields, 3);
}

TEST_F(CFileIOTest, AWalkThatFailsKeepsWhatItFoundAndIsTraced) {
    files.breakDown(true);
    EXPECT_THAT(walkFiles("C:\\Work"), IsEmpty());
    EXPECT_THAT(walkFolders("C:\\Work"), IsEmpty());
    EXPECT_TRUE(trace.trapped("cFileIO::EnumFiles"));
    EXPECT_TRUE(trace.trapped("cFileIO::EnumFolders"));
}

}  // namespace pellmark::test
