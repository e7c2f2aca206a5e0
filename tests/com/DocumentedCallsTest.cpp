#include <gtest/gtest.h>

#include <iterator>

#include "com/ChildProgram.h"
#include "com/LoadedServer.h"
#include "com/RegisteredLibrary.h"

namespace pellmark {
namespace {

BOOL CALLBACK closeDialog(HWND window, LPARAM process) {
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    wchar_t kind[32] = {};
    GetClassNameW(window, kind, static_cast<int>(std::size(kind)));
    const bool isDialog = std::wstring(kind) == L"Pellmark.Form" && GetParent(window) == nullptr;
    if (owner == static_cast<DWORD>(process) && isDialog && IsWindowVisible(window) &&
        IsWindowEnabled(window))
        PostMessageW(window, WM_CLOSE, 0, 0);
    return TRUE;
}

/// The programs that docs/automation.md shows, as the build takes them out of the page.
class DocumentedCallsTest : public testing::Test {
  protected:
    DocumentedCallsTest() {
        wchar_t folder[MAX_PATH] = {};
        GetTempPathW(MAX_PATH, folder);
        SetEnvironmentVariableW(L"NORVEX_KNOWLEDGE_BASE",
                                (std::wstring(folder) + L"documented-calls.db").c_str());
    }
    ~DocumentedCallsTest() override { SetEnvironmentVariableW(L"NORVEX_KNOWLEDGE_BASE", nullptr); }

    /// Every modal window is closed as soon as it is there.
    static std::string outputOf(const std::wstring& command) {
        const ChildResult result = runChild(
            command, [](unsigned long process) { EnumWindows(&closeDialog, static_cast<LPARAM>(process)); });
        EXPECT_EQ(result.exitCode, 0U) << result.output;
        return result.output;
    }
    static std::wstring script(const wchar_t* name) {
        return L"cscript.exe //nologo \"" + programFolder() + L"\\documented\\" + name + L"\"";
    }

    static constexpr const char* kAnswers =
        "OpenProcess: []\nOpenFeatureCase: []\nCurrentView: 1\nHost kept: True\n";

    Apartment apartment_;
    RegisteredLibrary host_{L"Norvex.dll"};
    RegisteredLibrary component_{L"Pellmark.dll"};
};

TEST_F(DocumentedCallsTest, VBScriptCallsEveryMethod) {
    EXPECT_EQ(outputOf(script(L"calls.vbs")), kAnswers);
}

TEST_F(DocumentedCallsTest, JScriptCallsEveryMethod) {
    std::string output = outputOf(script(L"calls.js"));
    const std::size_t at = output.find("Host kept: true");
    if (at != std::string::npos) output[at + std::string("Host kept: ").size()] = 'T';
    EXPECT_EQ(output, kAnswers);
}

TEST_F(DocumentedCallsTest, AProgramOfTheGeneratedHeaderCallsEveryMethod) {
    EXPECT_EQ(outputOf(L"\"" + programFolder() + L"\\documented_calls.exe\""), kAnswers);
}

}  // namespace
}  // namespace pellmark
