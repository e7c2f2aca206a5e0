#include "win32/ports/Win32Clipboard.h"

#include <algorithm>
#include <string>

#include "base/Error.h"
#include "ports/ClipboardHtml.h"
#include "win32/Handles.h"
#include "win32/WideText.h"

namespace pellmark {

namespace {

constexpr int kAttempts = 12;
constexpr DWORD kPauseMs = 30;

/// Closes the clipboard, which belongs to nobody while it is open.
struct Open {
    Open() = default;
    ~Open() { ::CloseClipboard(); }
    Open(const Open&) = delete;
    Open& operator=(const Open&) = delete;
};

bool openPatiently(HWND owner) {
    for (int attempt = 1; ::OpenClipboard(owner) == FALSE; ++attempt) {
        if (attempt == kAttempts) return false;
        ::Sleep(kPauseMs);
    }
    return true;
}

[[noreturn]] void fail() {
    throw Error(errors::kDeviceError, "Clipboard",
                "The clipboard could not take the rows (code " + std::to_string(::GetLastError()) + ").");
}

/// The characters with a zero behind them, in the kind of memory that the clipboard takes.
template <class Text>
GlobalMemory memoryOf(const Text& text) {
    using Character = typename Text::value_type;
    GlobalMemory memory(::GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(Character)));
    auto* const target = memory ? static_cast<Character*>(::GlobalLock(memory.get())) : nullptr;
    if (target == nullptr) fail();
    *std::copy(text.begin(), text.end(), target) = Character{};
    ::GlobalUnlock(memory.get());
    return memory;
}

/// From success on the memory is the clipboard's.
void give(UINT format, GlobalMemory memory) {
    if (::SetClipboardData(format, memory.get()) == nullptr) fail();
    memory.release();
}

}  // namespace

bool Win32Clipboard::put(const ClipboardContent& content, WindowHandle owner) {
    GlobalMemory text = memoryOf(toWide(content.text));
    GlobalMemory html;
    if (!content.htmlFragment.empty()) html = memoryOf(clipboardHtml(content.htmlFragment));
    if (!openPatiently(reinterpret_cast<HWND>(owner))) return false;
    const Open open;
    if (::EmptyClipboard() == FALSE) fail();
    give(CF_UNICODETEXT, std::move(text));
    if (html) give(::RegisterClipboardFormatW(L"HTML Format"), std::move(html));
    return true;
}

}  // namespace pellmark
