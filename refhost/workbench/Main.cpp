// The reference host of Pellmark.dll: what an integrator starts to see the component, and reads to embed it.
#include <windows.h>

#include <commctrl.h>
#include <ole2.h>
#include <shellapi.h>

#include <string>
#include <vector>

#include "automation/Automation.h"
#include "base/Error.h"
#include "refhost/workbench/CommandLine.h"
#include "refhost/workbench/WorkbenchWindow.h"

namespace {

std::vector<std::string> arguments() {
    int count = 0;
    wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> all;
    for (int at = 1; at < count; ++at)
        all.push_back(pellmark::fromWide(words[at]));
    LocalFree(words);
    return all;
}

int tell(const std::string& text, UINT icon) {
    MessageBoxW(nullptr, pellmark::toWide(text).c_str(), L"Norvex Workbench", MB_OK | icon);
    return icon == MB_ICONERROR ? 1 : 0;
}

int runWorkbench() {
    const norvex::CommandLine options = norvex::parseCommandLine(arguments());
    if (options.help) return tell(norvex::commandLineHelp(), MB_ICONINFORMATION);
    if (!options.mistake.empty()) {
        return tell(options.mistake + "\n\n" + norvex::commandLineHelp(), MB_ICONERROR);
    }
    try {
        norvex::WorkbenchWindow(options).run();
        return 0;
    } catch (const std::exception& error) {
        return tell(error.what(), MB_ICONERROR);
    }
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    const INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_WIN95_CLASSES | ICC_BAR_CLASSES};
    InitCommonControlsEx(&controls);
    // OLE rather than COM alone: rows of the component's grids can be dragged out
    if (FAILED(OleInitialize(nullptr))) return tell("Automation cannot be started.", MB_ICONERROR);
    const int answer = runWorkbench();
    OleUninitialize();
    return answer;
}
