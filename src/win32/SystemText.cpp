#include "win32/SystemText.h"

#include <string_view>

#include "win32/WideText.h"

namespace pellmark {

std::string systemText(DWORD systemError) {
    wchar_t text[512] = {};
    const DWORD length = ::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                          systemError, 0, text, 512, nullptr);
    std::wstring_view said(text, length);
    while (!said.empty() && said.back() <= L' ')
        said.remove_suffix(1);
    return said.empty() ? "System error " + std::to_string(systemError) + "." : fromWide(said);
}

}  // namespace pellmark
