#include "settings/TraceLog.h"

#include <gmock/gmock.h>

#include <stdexcept>

#include "support/FakeClock.h"
#include "support/MemoryFileSystem.h"
#include "support/MemoryRegistry.h"
#include "support/PortableCodePage.h"

namespace pellmark::test {

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

constexpr char kKey[] = "Software\\Orvane\\Norvex\\ExtensionSettings\\GlobalQDLSettings";
constexpr char kLog[] = "C:\\Temp\\Pellmark-Norvex-1234.log";

}  // namespace

class TraceLogTest : public ::testing::Test {
  protected:
    void setDebugMode(const std::string& text) {
        registry.setText(Registry::kCurrentUser, kKey, "DebugMode", text);
    }

    TraceOwner owner() {
        return {"Norvex", 1234, [this] { return wanted; }};
    }

    std::string wanted;
    std::vector<std::string> debugger;
    MemoryRegistry registry;
    PortableCodePage codePage;
    MemoryFileSystem files;
    FakeClock clock;
    TraceLog log{[this](const std::string& line) { debugger.push_back(line); },
                 registry,
                 codePage,
                 files,
                 clock,
                 owner()};
};

TEST_F(TraceLogTest, EveryLineGoesToTheDebuggerWithTimeAndOperation) {
    log.record("cProcess::Delete", "error 5 from x: no");
    EXPECT_THAT(debugger, ElementsAre("2026-11-20 21:53:07.123 cProcess::Delete: error 5 from x: no"));
    EXPECT_FALSE(files.has(kLog));
}

TEST_F(TraceLogTest, WhileDebugModeIsOnLinesAreAppendedToTheLogFile) {
    setDebugMode("1");
    log.record("cProcess::Delete", "one");
    clock.time = "2026-11-20 21:53:08.000";
    log.record("cProcess::Save", "two");
    EXPECT_EQ(
        files.contents(kLog),
        "2026-11-20 21:53:07.123 cProcess::Delete: one\r\n2026-11-20 21:53:08.000 cProcess::Save: two\r\n");
    EXPECT_EQ(debugger.size(), 2U);
}

TEST_F(TraceLogTest, DebugModeIsReadAfreshForEachLine) {
    log.record("a", "before");
    setDebugMode("-1");
    log.record("b", "while on");
    setDebugMode("0");
    log.record("c", "after");
    EXPECT_EQ(files.contents(kLog), "2026-11-20 21:53:07.123 b: while on\r\n");
}

TEST_F(TraceLogTest, ADebugModeThatIsNoNumberCountsAsOffAndIsToldTheDebugger) {
    setDebugMode("yes");
    log.record("cProcess::Delete", "one");
    EXPECT_FALSE(files.has(kLog));
    EXPECT_THAT(debugger, ElementsAre(HasSubstr("cProcess::Delete: one"),
                                      HasSubstr("cQDLExtSettings::DebugMode: error 13")));
}

TEST_F(TraceLogTest, AFileThatCannotBeWrittenIsToldTheDebuggerOnce) {
    setDebugMode("1");
    files.breakDown(true);
    log.record("cProcess::Delete", "one");
    EXPECT_THAT(debugger,
                ElementsAre(HasSubstr("cProcess::Delete: one"), HasSubstr("TraceLog::record: error 57")));
}

TEST_F(TraceLogTest, WithoutATemporaryFolderThereIsNoFile) {
    setDebugMode("1");
    files.temporary = "";
    log.record("cProcess::Delete", "one");
    EXPECT_EQ(debugger.size(), 1U);
    EXPECT_FALSE(files.has("\\Pellmark-Norvex-1234.log"));
}

TEST_F(TraceLogTest, AWantedFolderGetsTheLogWhateverDebugModeSays) {
    files.makeFolder("D:\\Logs");
    wanted = "D:\\Logs";
    log.record("a", "one");
    wanted = "D:\\Logs\\";
    setDebugMode("1");
    log.record("b", "two");
    EXPECT_EQ(files.contents("D:\\Logs\\Pellmark-Norvex-1234.log"),
              "2026-11-20 21:53:07.123 a: one\r\n2026-11-20 21:53:07.123 b: two\r\n");
    EXPECT_FALSE(files.has(kLog));
}

TEST_F(TraceLogTest, AWantedFolderThatIsNotThereIsToldTheDebugger) {
    wanted = "D:\\Nowhere";
    log.record("a", "one");
    EXPECT_THAT(debugger, ElementsAre(HasSubstr("a: one"), HasSubstr("D:\\Nowhere")));
}

TEST_F(TraceLogTest, ALogThatHasGrownTooLongLosesItsOlderHalf) {
    setDebugMode("1");
    files.makeFile(kLog, std::string(TraceLog::kMostBytes - 10, 'x') + "\r\n");
    log.record("a", "the one that is too many");
    EXPECT_EQ(files.contents(kLog), "2026-11-20 21:53:07.123 a: the one that is too many\r\n");
    std::string lines;
    while (lines.size() < TraceLog::kMostBytes)
        lines += "line " + std::to_string(lines.size()) + "\r\n";
    files.makeFile(kLog, lines);
    log.record("a", "last");
    const std::string kept = files.contents(kLog);
    EXPECT_LE(kept.size(), TraceLog::kMostBytes / 2);
    EXPECT_GT(kept.size(), TraceLog::kMostBytes / 2 - 100);
    EXPECT_THAT(kept, StartsWith("line "));
    EXPECT_TRUE(kept.ends_with("a: last\r\n"));
}

TEST_F(TraceLogTest, ALogOfExactlyTheGreatestSizeIsLeftAlone) {
    setDebugMode("1");
    const std::string line = "2026-11-20 21:53:07.123 a: one\r\n";
    files.makeFile(kLog, std::string(TraceLog::kMostBytes - line.size(), 'x'));
    log.record("a", "one");
    EXPECT_EQ(files.contents(kLog).size(), TraceLog::kMostBytes);
}

TEST_F(TraceLogTest, ALineStaysOneLine) {
    log.record("cProcess::Delete", "first\r\nsecond");
    EXPECT_THAT(debugger, ElementsAre("2026-11-20 21:53:07.123 cProcess::Delete: first  second"));
}

TEST_F(TraceLogTest, AThrowingDebuggerOutputDoesNotKeepTheLineFromTheFile) {
    setDebugMode("1");
    TraceLog failing([](const std::string&) { throw std::runtime_error("no"); }, registry, codePage, files,
                     clock, owner());
    failing.record("cProcess::Delete", "one");
    EXPECT_THAT(files.contents(kLog), StartsWith("2026-11-20 21:53:07.123 cProcess::Delete: one"));
}

TEST_F(TraceLogTest, ADebuggerOutputThatRecordsItselfDoesNotRecurse) {
    TraceLog* self = nullptr;
    int calls = 0;
    TraceLog echoing(
        [&](const std::string&) {
            ++calls;
            self->record("echo", "again");
        },
        registry, codePage, files, clock, owner());
    self = &echoing;
    echoing.record("cProcess::Delete", "one");
    EXPECT_EQ(calls, 1);
}

TEST_F(TraceLogTest, WithoutADebuggerOutputTheFileIsStillWritten) {
    setDebugMode("1");
    TraceLog silent({}, registry, codePage, files, clock, owner());
    silent.record("cProcess::Delete", "one");
    EXPECT_TRUE(files.has(kLog));
}

}  // namespace pellmark::test
