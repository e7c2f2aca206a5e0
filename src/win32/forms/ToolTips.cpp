#include "win32/forms/ToolTips.h"

#include <utility>

#include "win32/WideText.h"
#include "win32/forms/FormWindow.h"

namespace pellmark {

void ToolTips::create() {
    const ActivationContext::Active themed(form_.surroundings().theme());
    window_ =
        ::CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0,
                          0, 0, 0, form_.window(), nullptr, form_.surroundings().instance(), nullptr);
    rescale();
}

void ToolTips::rescale() const {
    if (window_ == nullptr) return;
    // A description has up to 1,000 characters: on one line it would leave the screen.
    ::SendMessageW(window_, TTM_SETMAXTIPWIDTH, 0, form_.currentScale().pixels(Twips{9000}));
}

void ToolTips::set(HWND of, const std::string& text) {
    if (window_ == nullptr) {
        if (text.empty()) return;
        create();
    }
    std::wstring wide = toWide(text);
    TOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = form_.window();
    tool.uId = reinterpret_cast<UINT_PTR>(of);
    tool.lpszText = wide.data();
    ::SendMessageW(window_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    if (!text.empty()) ::SendMessageW(window_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

void ToolTips::destroy() {
    if (const HWND window = std::exchange(window_, nullptr)) ::DestroyWindow(window);
}

}  // namespace pellmark
