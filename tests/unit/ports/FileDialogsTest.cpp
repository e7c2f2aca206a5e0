#include "ports/FileDialogs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

TEST(FileDialogsTest, AFilterIsPairsOfDescriptionAndPattern) {
    EXPECT_THAT(filterPairs("Text (*.txt)|*.txt*|All|*.*|"),
                ElementsAre(Pair("Text (*.txt)", "*.txt*"), Pair("All", "*.*")));
    EXPECT_THAT(filterPairs("Text|*.txt"), ElementsAre(Pair("Text", "*.txt")));
    EXPECT_THAT(filterPairs("Text|*.txt|All"), ElementsAre(Pair("Text", "*.txt")));
    EXPECT_THAT(filterPairs(""), IsEmpty());
}

TEST(FileDialogsTest, OneChosenFileIsItsPath) {
    EXPECT_THAT(chosenPaths("C:\\Data\\a.prc"), ElementsAre("C:\\Data\\a.prc"));
    EXPECT_THAT(chosenPaths(std::string("C:\\a.prc\0\0", 10)), ElementsAre("C:\\a.prc"));
    EXPECT_THAT(chosenPaths(""), IsEmpty());
}

TEST(FileDialogsTest, SeveralChosenFilesStandInTheirFolder) {
    EXPECT_THAT(chosenPaths(std::string("C:\\Data\0a.prc\0b.prc\0\0", 22)),
                ElementsAre("C:\\Data\\a.prc", "C:\\Data\\b.prc"));
    EXPECT_THAT(chosenPaths(std::string("C:\\Data\0a.prc\0\0", 16)), ElementsAre("C:\\Data\\a.prc"));
    EXPECT_THAT(chosenPaths(std::string("C:\\\0a.prc\0b.prc", 15)), ElementsAre("C:\\a.prc", "C:\\b.prc"));
}

}  // namespace
}  // namespace pellmark::test
