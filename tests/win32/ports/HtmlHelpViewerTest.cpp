#include "win32/ports/HtmlHelpViewer.h"

#include <gmock/gmock.h>

#include "support/RecordingTrace.h"

namespace pellmark::test {
namespace {

TEST(HtmlHelpViewerTest, AMissingHelpFileIsNoFailure) {
    RecordingTrace trace;
    HtmlHelpViewer viewer(trace);
    viewer.openContext(0, "C:\\no such folder\\qdl.chm", 5000);
    // Without the system's HTML Help there is a line about that and nothing else.
    EXPECT_LE(trace.lines().size(), 1U);
}

TEST(HtmlHelpViewerTest, TheLibraryIsNotTakenFromTheCurrentFolder) {
    RecordingTrace trace;
    HtmlHelpViewer viewer(trace);
    const HANDLE planted = ::CreateFileW(L"hhctrl.ocx", GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    ASSERT_NE(planted, INVALID_HANDLE_VALUE);
    ::CloseHandle(planted);
    viewer.openContext(0, "C:\\no such folder\\qdl.chm", 5000);
    ::DeleteFileW(L"hhctrl.ocx");
    wchar_t path[MAX_PATH] = L"";
    if (const HMODULE library = ::GetModuleHandleW(L"hhctrl.ocx"))
        ::GetModuleFileNameW(library, path, MAX_PATH);
    wchar_t system[MAX_PATH] = L"";
    ::GetSystemDirectoryW(system, MAX_PATH);
    EXPECT_EQ(::CompareStringOrdinal(path, ::lstrlenW(system), system, ::lstrlenW(system), TRUE), CSTR_EQUAL);
}

TEST(HtmlHelpViewerTest, TheLibraryStaysUnderAHelpWindowThatOutlivesTheViewer) {
    RecordingTrace trace;
    {
        HtmlHelpViewer viewer(trace);
        viewer.openContext(0, "C:\\no such folder\\qdl.chm", 5000);
    }
    ASSERT_TRUE(trace.lines().empty());
    EXPECT_NE(::GetModuleHandleW(L"hhctrl.ocx"), nullptr);
}

}  // namespace
}  // namespace pellmark::test
