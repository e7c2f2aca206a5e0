#include "win32/ports/HtmlHelpViewer.h"

#include <objbase.h>
#include <shellapi.h>

#include "win32/WideText.h"
#include "win32/ports/Win32CodePage.h"

namespace pellmark {

namespace {

constexpr UINT kHelpContext = 15;
using HtmlHelp = HWND(WINAPI*)(HWND, LPCSTR, UINT, DWORD_PTR);

/// The system's document of HTML, in which the help window shows its pages.
constexpr CLSID kHtmlDocument{0x25336920, 0x03F9, 0x11CF, {0x8F, 0xD0, 0x00, 0xAA, 0x00, 0x68, 0x6F, 0x13}};
constexpr IID kUnknown{0x00000000, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};

}  // namespace

bool systemDrawsPages() {
    IUnknown* document = nullptr;
    const HRESULT made = ::CoCreateInstance(kHtmlDocument, nullptr, CLSCTX_INPROC_SERVER, kUnknown,
                                            reinterpret_cast<void**>(&document));
    if (document != nullptr) document->Release();
    return SUCCEEDED(made);
}

bool HtmlHelpViewer::openContext(WindowHandle owner, const std::string& helpFile, std::int32_t context) {
    return open(owner, helpFile, static_cast<DWORD_PTR>(static_cast<std::uint32_t>(context)));
}

bool HtmlHelpViewer::openContext(WindowHandle owner, const std::string& helpFile, const std::string& topic) {
    const std::string ansi = Win32CodePage().toAnsi(topic);
    return open(owner, helpFile, reinterpret_cast<DWORD_PTR>(ansi.c_str()));
}

bool HtmlHelpViewer::open(WindowHandle owner, const std::string& helpFile, DWORD_PTR data) {
    if (library_ == nullptr)
        library_ = ::LoadLibraryExW(L"hhctrl.ocx", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    const auto show =
        library_ != nullptr ? reinterpret_cast<HtmlHelp>(::GetProcAddress(library_, "HtmlHelpA")) : nullptr;
    if (show == nullptr) {
        trace_.record("HtmlHelpViewer::open",
                      "HTML Help is missing, system error " + std::to_string(::GetLastError()));
        return false;
    }
    if (!drawsPages_()) {
        trace_.record("HtmlHelpViewer::open", "the system cannot draw the pages of a help file");
        return false;
    }
    const std::string path = Win32CodePage().toAnsi(helpFile);
    return show(reinterpret_cast<HWND>(owner), path.c_str(), kHelpContext, data) != nullptr;
}

bool HtmlHelpViewer::openPage(WindowHandle owner, const std::string& page) {
    const std::wstring path = toWide(page);
    SHELLEXECUTEINFOW wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.fMask = SEE_MASK_FLAG_NO_UI;  // the caller says what went wrong, in the person's language
    wanted.hwnd = reinterpret_cast<HWND>(owner);
    wanted.lpFile = path.c_str();
    wanted.nShow = SW_SHOWNORMAL;
    if (::ShellExecuteExW(&wanted)) return true;
    trace_.record("HtmlHelpViewer::openPage",
                  "no program opens " + page + ", system error " + std::to_string(::GetLastError()));
    return false;
}

}  // namespace pellmark
