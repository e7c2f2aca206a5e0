#include "win32/ports/HtmlHelpViewer.h"

#include <gmock/gmock.h>
#include <objbase.h>

#include "support/RecordingTrace.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kMissing = "C:\\no such folder\\qdl.chm";

class HtmlHelpViewerTest : public testing::Test {
  protected:
    RecordingTrace trace_;
    bool drawsPages_ = true;
    HtmlHelpViewer viewer_{trace_, [this] { return drawsPages_; }};
};

TEST_F(HtmlHelpViewerTest, AMissingHelpFileIsNotShownAndIsNoFailure) {
    EXPECT_FALSE(viewer_.openContext(0, kMissing, 5000));
    EXPECT_THAT(trace_.lines(), IsEmpty());
}

TEST_F(HtmlHelpViewerTest, WhereTheSystemCannotDrawPagesNothingOpens) {
    drawsPages_ = false;
    EXPECT_FALSE(viewer_.openContext(0, kMissing, 5000));
    EXPECT_FALSE(viewer_.openContext(0, kMissing, std::string("intro")));
    EXPECT_THAT(trace_.lines(), ElementsAre(HasSubstr("cannot draw"), HasSubstr("cannot draw")));
}

TEST_F(HtmlHelpViewerTest, ThatTheSystemDrawsPagesIsFoundOutByMakingADocument) {
    // The prefix of the tests leaves the engine out, as a machine may.
    ASSERT_TRUE(SUCCEEDED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
    CLSID document{};
    const bool named = SUCCEEDED(::CLSIDFromProgID(L"htmlfile", &document));
    IUnknown* made = nullptr;
    const bool drawn =
        named && SUCCEEDED(::CoCreateInstance(document, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IUnknown),
                                              reinterpret_cast<void**>(&made)));
    if (made != nullptr) made->Release();
    EXPECT_EQ(systemDrawsPages(), drawn);
    ::CoUninitialize();
}

TEST_F(HtmlHelpViewerTest, APageThatIsNotThereIsNotOpened) {
    EXPECT_FALSE(viewer_.openPage(0, "C:\\no such folder\\index.html"));
    EXPECT_THAT(trace_.lines(), ElementsAre(HasSubstr("index.html")));
}

TEST_F(HtmlHelpViewerTest, TheLibraryIsNotTakenFromTheCurrentFolder) {
    const HANDLE planted = ::CreateFileW(L"hhctrl.ocx", GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    ASSERT_NE(planted, INVALID_HANDLE_VALUE);
    ::CloseHandle(planted);
    viewer_.openContext(0, kMissing, 5000);
    ::DeleteFileW(L"hhctrl.ocx");
    wchar_t path[MAX_PATH] = L"";
    if (const HMODULE library = ::GetModuleHandleW(L"hhctrl.ocx"))
        ::GetModuleFileNameW(library, path, MAX_PATH);
    wchar_t system[MAX_PATH] = L"";
    ::GetSystemDirectoryW(system, MAX_PATH);
    EXPECT_EQ(::CompareStringOrdinal(path, ::lstrlenW(system), system, ::lstrlenW(system), TRUE), CSTR_EQUAL);
}

TEST_F(HtmlHelpViewerTest, TheLibraryStaysUnderAHelpWindowThatOutlivesTheViewer) {
    RecordingTrace trace;
    {
        HtmlHelpViewer viewer(trace, [] { return true; });
        viewer.openContext(0, kMissing, 5000);
    }
    ASSERT_TRUE(trace.lines().empty());
    EXPECT_NE(::GetModuleHandleW(L"hhctrl.ocx"), nullptr);
}

}  // namespace
}  // namespace pellmark::test
