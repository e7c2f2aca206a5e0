#include "win32/ports/HtmlHelpViewer.h"

#include <gmock/gmock.h>
#include <objbase.h>

#include <cstring>
#include <vector>

#include "support/RecordingTrace.h"
#include "win32/ports/Win32CodePage.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kMissing = "C:\\no such folder\\qdl.chm";

/// While it lives, what is asked of the system's HTML Help comes here.
class CallsOfTheSystem {
  public:
    struct Call {
        HWND owner;
        std::string file;
        UINT command;
        DWORD_PTR data;
        std::string text;  ///< what the data points to, where the test says that it does
    };

    explicit CallsOfTheSystem(bool dataIsText) {
        calls.clear();
        isText = dataIsText;
        const HMODULE library = ::LoadLibraryExW(L"hhctrl.ocx", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
        code_ = reinterpret_cast<unsigned char*>(::GetProcAddress(library, "HtmlHelpA"));
        // mov rax, here; jmp rax
        unsigned char detour[kDetour] = {0x48, 0xB8, 0, 0, 0, 0, 0, 0, 0, 0, 0xFF, 0xE0};
        const auto here = reinterpret_cast<DWORD_PTR>(&note);
        std::memcpy(detour + 2, &here, sizeof here);
        std::memcpy(before_, code_, kDetour);
        write(detour);
    }
    ~CallsOfTheSystem() { write(before_); }
    CallsOfTheSystem(const CallsOfTheSystem&) = delete;
    CallsOfTheSystem& operator=(const CallsOfTheSystem&) = delete;

    static std::vector<Call> calls;

  private:
    static constexpr std::size_t kDetour = 12;

    static HWND WINAPI note(HWND owner, LPCSTR file, UINT command, DWORD_PTR data) {
        calls.push_back({owner, file, command, data, isText ? reinterpret_cast<const char*>(data) : ""});
        return reinterpret_cast<HWND>(1);
    }
    void write(const unsigned char* bytes) {
        DWORD protection = 0;
        ASSERT_TRUE(::VirtualProtect(code_, kDetour, PAGE_EXECUTE_READWRITE, &protection));
        std::memcpy(code_, bytes, kDetour);
        ::VirtualProtect(code_, kDetour, protection, &protection);
    }

    static bool isText;
    unsigned char* code_ = nullptr;
    unsigned char before_[kDetour] = {};
};

std::vector<CallsOfTheSystem::Call> CallsOfTheSystem::calls;
bool CallsOfTheSystem::isText = false;

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

TEST_F(HtmlHelpViewerTest, AContextIsAskedForByItsNumberOverItsOwner) {
    const std::string file = "C:\\\xC3\x98\\qdl.chm";
    const CallsOfTheSystem system(false);
    EXPECT_TRUE(viewer_.openContext(77, file, 5000));
    ASSERT_EQ(CallsOfTheSystem::calls.size(), 1U);
    const auto& call = CallsOfTheSystem::calls[0];
    EXPECT_EQ(reinterpret_cast<WindowHandle>(call.owner), 77U);
    EXPECT_EQ(call.file, Win32CodePage().toAnsi(file));
    EXPECT_EQ(call.command, 15U);
    EXPECT_EQ(call.data, 5000U);
}

TEST_F(HtmlHelpViewerTest, ATextIsSentWithTheCommandOfANumber) {
    const CallsOfTheSystem system(true);
    EXPECT_TRUE(viewer_.openContext(77, kMissing, std::string("\xC3\x98 intro")));
    ASSERT_EQ(CallsOfTheSystem::calls.size(), 1U);
    EXPECT_EQ(CallsOfTheSystem::calls[0].command, 15U);
    EXPECT_EQ(CallsOfTheSystem::calls[0].text, Win32CodePage().toAnsi("\xC3\x98 intro"));
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
