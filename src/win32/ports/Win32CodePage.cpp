#include "win32/ports/Win32CodePage.h"

#include <windows.h>

#include "win32/WideText.h"

namespace pellmark {

std::string Win32CodePage::toAnsi(std::string_view utf8) const {
    const std::wstring wide = toWide(utf8);
    if (wide.empty()) return "";
    // Where UTF-8 is the code page nothing is missing, and the system refuses to be told what to do then.
    const bool isUtf8 = ::GetACP() == CP_UTF8;
    const DWORD flags = isUtf8 ? 0 : WC_NO_BEST_FIT_CHARS;
    const char* const missing = isUtf8 ? nullptr : "?";
    const auto length = static_cast<int>(wide.size());
    const int size = ::WideCharToMultiByte(CP_ACP, flags, wide.data(), length, nullptr, 0, missing, nullptr);
    std::string ansi(static_cast<std::size_t>(size), '\0');
    ::WideCharToMultiByte(CP_ACP, flags, wide.data(), length, ansi.data(), size, missing, nullptr);
    return ansi;
}

std::string Win32CodePage::fromAnsi(std::string_view ansi) const {
    if (ansi.empty()) return "";
    const auto length = static_cast<int>(ansi.size());
    const int size = ::MultiByteToWideChar(CP_ACP, 0, ansi.data(), length, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(size), L'\0');
    ::MultiByteToWideChar(CP_ACP, 0, ansi.data(), length, wide.data(), size);
    return fromWide(wide);
}

}  // namespace pellmark
