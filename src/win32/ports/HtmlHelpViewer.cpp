#include "win32/ports/HtmlHelpViewer.h"

#include "win32/ports/Win32CodePage.h"

namespace pellmark {

namespace {
constexpr UINT kHelpContext = 15;
using HtmlHelp = HWND(WINAPI*)(HWND, LPCSTR, UINT, DWORD_PTR);
}  // namespace

void HtmlHelpViewer::openContext(WindowHandle owner, const std::string& helpFile, std::int32_t context) {
    open(owner, helpFile, static_cast<DWORD_PTR>(static_cast<std::uint32_t>(context)));
}

void HtmlHelpViewer::openContext(WindowHandle owner, const std::string& helpFile, const std::string& topic) {
    const std::string ansi = Win32CodePage().toAnsi(topic);
    open(owner, helpFile, reinterpret_cast<DWORD_PTR>(ansi.c_str()));
}

void HtmlHelpViewer::open(WindowHandle owner, const std::string& helpFile, DWORD_PTR data) {
    if (library_ == nullptr)
        library_ = ::LoadLibraryExW(L"hhctrl.ocx", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    const auto show =
        library_ != nullptr ? reinterpret_cast<HtmlHelp>(::GetProcAddress(library_, "HtmlHelpA")) : nullptr;
    if (show == nullptr) {
        trace_.record("HtmlHelpViewer::open",
                      "HTML Help is missing, system error " + std::to_string(::GetLastError()));
        return;
    }
    const std::string path = Win32CodePage().toAnsi(helpFile);
    show(reinterpret_cast<HWND>(owner), path.c_str(), kHelpContext, data);
}

}  // namespace pellmark
