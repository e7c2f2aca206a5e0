#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "com/ChildProgram.h"
#include "com/LoadedServer.h"
#include "com/RegisteredLibrary.h"

namespace pellmark {
namespace {

struct Seeker {
    DWORD process;
    HWND found;
};

BOOL CALLBACK seekVisibleWindow(HWND window, LPARAM parameter) {
    auto& seeker = *reinterpret_cast<Seeker*>(parameter);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != seeker.process || !IsWindowVisible(window)) return TRUE;
    seeker.found = window;
    return FALSE;
}

/// A visible top-level window of another program; null when it has none.
HWND visibleWindowOf(DWORD process) {
    Seeker seeker{process, nullptr};
    EnumWindows(&seekVisibleWindow, reinterpret_cast<LPARAM>(&seeker));
    return seeker.found;
}

struct Caption {
    const wchar_t* text;
    HWND found;
};

BOOL CALLBACK seekCaption(HWND window, LPARAM parameter) {
    auto& caption = *reinterpret_cast<Caption*>(parameter);
    wchar_t text[64] = {};
    GetWindowTextW(window, text, static_cast<int>(std::size(text)));
    if (std::wstring(text) != caption.text) return TRUE;
    caption.found = window;
    return FALSE;
}

/// The control with this caption anywhere inside a window; null when there is none.
HWND descendantOf(HWND window, const wchar_t* text) {
    Caption caption{text, nullptr};
    EnumChildWindows(window, &seekCaption, reinterpret_cast<LPARAM>(&caption));
    return caption.found;
}

/// Scripts run by the system's own script host, which knows the two libraries by their registration alone.
class ScriptTest : public testing::Test {
  protected:
    ScriptTest() {
        wchar_t folder[MAX_PATH] = {};
        GetTempPathW(MAX_PATH, folder);
        SetEnvironmentVariableW(L"NORVEX_KNOWLEDGE_BASE", (std::wstring(folder) + L"script-test.db").c_str());
    }
    ~ScriptTest() override { SetEnvironmentVariableW(L"NORVEX_KNOWLEDGE_BASE", nullptr); }

    static ChildResult run(const wchar_t* script, const WhileRunning& whileRunning = {}) {
        return runChild(L"cscript.exe //nologo \"" + programFolder() + L"\\samples\\" + script + L"\"",
                        whileRunning);
    }

    Apartment apartment_;
    RegisteredLibrary host_{L"Norvex.dll"};
    RegisteredLibrary component_{L"Pellmark.dll"};
};

testing::AssertionResult says(const ChildResult& result, const std::string& line) {
    if (("\n" + result.output).find("\n" + line) != std::string::npos) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "no line that begins with \"" << line << "\" in:\n"
                                       << result.output;
}

TEST_F(ScriptTest, AScriptShowsTheProcessesAndReadsTheComponentsMembers) {
    const ChildResult result = run(L"vbscript\\processes.vbs");
    EXPECT_TRUE(says(result, "Processes in the knowledge base: "));
    EXPECT_FALSE(says(result, "Processes in the knowledge base: 0\n"));
    EXPECT_TRUE(says(result, "The list is shown; the call's result is empty: True\n"));
    EXPECT_TRUE(says(result, "The component keeps the host object: True\n"));
    EXPECT_TRUE(says(result, "CurrentView is now 1\n"));
    EXPECT_TRUE(says(result, "Without a host nothing happens: True\n"));
    EXPECT_TRUE(says(result, "Disposed; the host object is given back: True\n"));
}

TEST_F(ScriptTest, WrongCallsOfAScriptAreAnsweredWithAText) {
    const ChildResult result = run(L"vbscript\\processes.vbs");
    EXPECT_TRUE(says(result, "A number in the host's place: error D: Type mismatch\n"));
    EXPECT_TRUE(says(result,
                     "An object that is no host: error 65F9: NvxApplication is not the host's application "
                     "object: it has no member MainWindowHandle\n"));
    EXPECT_TRUE(says(result, "A case without its values: error "));
    EXPECT_TRUE(says(result, "A unit out of range: error 6: Overflow\n"));
    EXPECT_TRUE(says(result, "A method that does not exist: error "));
}

TEST_F(ScriptTest, AClassOfAScriptStandsInForTheHostAndAClosedPickerPicksNothing) {
    bool shown = false;
    const ChildResult result = run(L"vbscript\\openprocess.vbs", [&](unsigned long process) {
        if (const HWND picker = visibleWindowOf(process)) {
            shown = true;
            PostMessageW(picker, WM_CLOSE, 0, 0);
        }
    });
    EXPECT_TRUE(shown);
    EXPECT_TRUE(says(result, "No process was picked.\n"));
}

TEST_F(ScriptTest, TheProcessThatIsSelectedWhenTheUserConfirmsIsTheScriptsResult) {
    const ChildResult result = run(L"vbscript\\openprocess.vbs", [](unsigned long process) {
        const HWND picker = visibleWindowOf(process);
        const HWND confirm = picker == nullptr ? nullptr : descendantOf(picker, L"OK");
        if (confirm != nullptr) PostMessageW(confirm, BM_CLICK, 0, 0);
    });
    EXPECT_TRUE(says(result, "Picked: {"));
}

TEST_F(ScriptTest, AClassOfAScriptOffersTheTechnologyService) {
    const ChildResult result = run(L"vbscript\\technology.vbs");
    EXPECT_TRUE(says(result, "Taken over: True\n"));
    EXPECT_TRUE(says(result, "Finished: True\n"));
    EXPECT_TRUE(says(result, "Written: True\n"));
    EXPECT_TRUE(says(result, "Operations: 2\n"));
    EXPECT_TRUE(says(result, "Drill 6.5 in cycle 602\n"));
    EXPECT_TRUE(says(result, "  1101 = 95\n"));
    EXPECT_TRUE(says(result, "  1301 = emulsion\n"));
    EXPECT_TRUE(says(result, "Stored with a step: Drill 6.5\n"));
}

TEST_F(ScriptTest, AnArrayOfJScriptIsTakenForTheValues) {
    const ChildResult result = run(L"jscript\\case.js");
    EXPECT_TRUE(says(result, "Shown for one value of feature type {"));
    EXPECT_TRUE(says(result, "A number in the array's place: error 5\n"));
}

/// The log that a script run in its life writes.
class WantedLog {
  public:
    WantedLog() {
        CreateDirectoryW(folder_.c_str(), nullptr);
        SetEnvironmentVariableW(L"PELLMARK_LOG", folder_.c_str());
    }
    WantedLog(const WantedLog&) = delete;
    WantedLog& operator=(const WantedLog&) = delete;
    ~WantedLog() { SetEnvironmentVariableW(L"PELLMARK_LOG", nullptr); }

    std::string of(unsigned long process) const {
        const std::wstring path = folder_ + L"\\Pellmark-cscript-" + std::to_wstring(process) + L".log";
        std::ifstream file(std::filesystem::path(path), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

  private:
    std::wstring folder_ = programFolder() + L"\\log-test";
};

TEST_F(ScriptTest, TheLogThatTheEnvironmentAsksForNamesTheMemberAndTheReason) {
    const WantedLog log;
    unsigned long script = 0;
    const ChildResult result =
        run(L"vbscript\\whatiswrong.vbs", [&](unsigned long process) { script = process; });
    EXPECT_TRUE(says(result, "No error came back.\n"));
    const std::string text = log.of(script);
    EXPECT_THAT(text, testing::HasSubstr("Pellmark: version "));
    EXPECT_THAT(text, testing::HasSubstr(" ShowWindowProcessesView: called\r\n"));
    EXPECT_THAT(text, testing::HasSubstr("ProcessGuid \"no identifier\" is no identifier"));
    EXPECT_THAT(text, testing::HasSubstr("Application::ShowWindowProcessesView: error 438 from "
                                         "NvxApplication.MainWindowHandle"));
}

/// The text of a message box; "" when the window is none.
std::wstring textOfMessage(HWND box) {
    constexpr int kText = 0xFFFF;
    wchar_t text[1024] = {};
    if (const HWND label = GetDlgItem(box, kText))
        GetWindowTextW(label, text, static_cast<int>(std::size(text)));
    return text;
}

TEST(MissingLibraryTest, TheClassIsNamedToThePersonAndToTheCaller) {
    const Apartment apartment;
    const RegisteredLibrary component{L"Pellmark.dll"};
    const WantedLog log;
    unsigned long script = 0;
    std::wstring told;
    const ChildResult result =
        runChild(L"cscript.exe //nologo \"" + programFolder() + L"\\samples\\vbscript\\whatiswrong.vbs\"",
                 [&](unsigned long process) {
                     script = process;
                     const HWND box = visibleWindowOf(process);
                     if (box == nullptr) return;
                     told = textOfMessage(box);
                     PostMessageW(box, WM_COMMAND, IDOK, 0);
                 });
    EXPECT_NE(told.find(L"Norvex.KnowledgeBaseService"), std::wstring::npos);
    EXPECT_TRUE(says(result, "Error 26105: The host's class Norvex.KnowledgeBaseService cannot be created"));
    const std::string text = log.of(script);
    EXPECT_THAT(text.substr(0, text.find('\n')), testing::HasSubstr(" Pellmark: version "));
    EXPECT_THAT(text,
                testing::HasSubstr(" ShowWindowProcessesView: answered with error 0x800A65F9: The host's "
                                   "class Norvex.KnowledgeBaseService cannot be created"));
}

}  // namespace
}  // namespace pellmark
