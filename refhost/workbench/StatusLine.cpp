#include "refhost/workbench/StatusLine.h"

#include <commctrl.h>

#include <algorithm>
#include <utility>

#include "automation/Automation.h"
#include "refhost/windows/Placing.h"

namespace norvex {

namespace {

HFONT statusFontAt(int dpi) {
    using ForDpi = BOOL(WINAPI*)(UINT, UINT, PVOID, UINT, UINT);
    static const auto parametersForDpi = reinterpret_cast<ForDpi>(
        GetProcAddress(GetModuleHandleW(L"user32.dll"), "SystemParametersInfoForDpi"));
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    const bool isKnown =
        parametersForDpi != nullptr &&
        parametersForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, static_cast<UINT>(dpi));
    if (!isKnown && !SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0))
        return nullptr;
    return CreateFontIndirectW(&metrics.lfStatusFont);
}

}  // namespace

StatusLine::~StatusLine() {
    if (font_ != nullptr) DeleteObject(font_);
}

bool StatusLine::create(HWND parent) {
    window_ = CreateWindowExW(0, STATUSCLASSNAMEW, nullptr, WS_CHILD | WS_VISIBLE | SBARS_SIZEGRIP, 0, 0, 0,
                              0, parent, nullptr, GetModuleHandleW(nullptr), nullptr);
    if (window_ != nullptr) takeFont();
    return exists();
}

void StatusLine::fit() {
    SendMessageW(window_, WM_SIZE, 0, 0);
    InvalidateRect(window_, nullptr, TRUE);  // or its grip stays where its end was before
}

void StatusLine::tell(UINT message, WPARAM wide, LPARAM data) {
    SendMessageW(window_, message, wide, data);
}

void StatusLine::takeFont() {
    takeFontFor(dpiOf(window_));
}

void StatusLine::takeFontFor(int dpi) {
    const HFONT font = statusFontAt(dpi);
    if (font == nullptr) return;
    SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    if (const HFONT before = std::exchange(font_, font)) DeleteObject(before);
}

int StatusLine::height() const {
    RECT line{};
    GetWindowRect(window_, &line);
    return static_cast<int>(line.bottom - line.top);
}

void StatusLine::say(const std::string& text) {
    std::wstring line = pellmark::toWide(text);
    std::replace_if(
        line.begin(), line.end(), [](wchar_t c) { return c == L'\r' || c == L'\n'; }, L' ');
    SendMessageW(window_, SB_SETTEXTW, 0, reinterpret_cast<LPARAM>(line.c_str()));
}

}  // namespace norvex
