#include "win32/forms/Surroundings.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string>

#include "win32/WideText.h"

#include <uxtheme.h>  // needs the system's types

namespace pellmark {

namespace {

constexpr const wchar_t* kContainerClass = L"Pellmark.Container";
constexpr const wchar_t* kFormClass = L"Pellmark.Form";
constexpr const wchar_t* kSplitterClass = L"Pellmark.Splitter";

/// A function of user32 that older systems lack.
template <class Function>
Function userFunction(const char* name) {
    return reinterpret_cast<Function>(::GetProcAddress(::GetModuleHandleW(L"user32.dll"), name));
}

/// 0 where the system does not say. What it draws itself follows this, also where a test says another one.
UINT systemsDpiOf(HWND window) {
    static const auto dpiForWindow = userFunction<UINT(WINAPI*)(HWND)>("GetDpiForWindow");
    return dpiForWindow != nullptr ? dpiForWindow(window) : 0;
}

int systemDpi() {
    const HDC screen = ::GetDC(nullptr);
    const int dpi = ::GetDeviceCaps(screen, LOGPIXELSY);
    ::ReleaseDC(nullptr, screen);
    return dpi;
}

}  // namespace

Surroundings::Surroundings(HINSTANCE component, const Operations& operations)
    : instance_(component), operations_(operations), theme_(component, operations.trace()) {
    const ActivationContext::Active themed(theme_);
    INITCOMMONCONTROLSEX wanted{
        sizeof wanted, ICC_LISTVIEW_CLASSES | ICC_TAB_CLASSES | ICC_STANDARD_CLASSES | ICC_BAR_CLASSES};
    ::InitCommonControlsEx(&wanted);
    ::BufferedPaintInit();  // the memory that windows are drawn in is kept from one drawing to the next
}

Surroundings::~Surroundings() {
    // Fails, as it should, while another component of the process still shows windows of these classes.
    ::UnregisterClassW(kFormClass, instance_);
    ::UnregisterClassW(kContainerClass, instance_);
    ::UnregisterClassW(kSplitterClass, instance_);
    ::BufferedPaintUnInit();
}

int Surroundings::dpiOf(HWND window) const {
    if (dpiOverride_) return *dpiOverride_;
    const auto dpi = static_cast<int>(systemsDpiOf(window));
    return dpi > 0 ? dpi : systemDpi();
}

int Surroundings::metric(int index, HWND window) const {
    static const auto forDpi = userFunction<int(WINAPI*)(int, UINT)>("GetSystemMetricsForDpi");
    const UINT dpi = systemsDpiOf(window);
    return forDpi != nullptr && dpi > 0 ? forDpi(index, dpi) : ::GetSystemMetrics(index);
}

void Surroundings::addFrame(RECT& client, DWORD style, DWORD exStyle, HWND window) const {
    using ForDpi = BOOL(WINAPI*)(RECT*, DWORD, BOOL, DWORD, UINT);
    static const auto forDpi = userFunction<ForDpi>("AdjustWindowRectExForDpi");
    const UINT dpi = window != nullptr ? systemsDpiOf(window) : 0;
    if (forDpi == nullptr || dpi == 0 || !forDpi(&client, style, FALSE, exStyle, dpi))
        ::AdjustWindowRectEx(&client, style, FALSE, exStyle);
}

FontHandle Surroundings::messageFont(int dpi) const {
    using ForDpi = BOOL(WINAPI*)(UINT, UINT, PVOID, UINT, UINT);
    static const auto parametersForDpi = userFunction<ForDpi>("SystemParametersInfoForDpi");
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    if (parametersForDpi == nullptr ||
        !parametersForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, static_cast<UINT>(dpi))) {
        if (!::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0)) return {};
        metrics.lfMessageFont.lfHeight = ::MulDiv(metrics.lfMessageFont.lfHeight, dpi, systemDpi());
    }
    return FontHandle(::CreateFontIndirectW(&metrics.lfMessageFont));
}

FontHandle Surroundings::fontOf(const Font& font, int dpi) const {
    constexpr double kPointsPerInch = 72;
    FontHandle base = messageFont(dpi);
    LOGFONTW description{};
    if (::GetObjectW(base.get(), sizeof description, &description) == 0) return base;
    if (!font.name.empty()) {
        const std::wstring name = toWide(font.name);
        const std::size_t length = std::min(name.size(), std::size(description.lfFaceName) - 1);
        description.lfFaceName[name.copy(description.lfFaceName, length)] = L'\0';
    }
    if (font.size > 0) description.lfHeight = -std::lround(font.size * dpi / kPointsPerInch);
    if (font.bold) description.lfWeight = FW_BOLD;
    if (font.italic) description.lfItalic = TRUE;
    description.lfStrikeOut = font.strikethrough ? TRUE : FALSE;
    description.lfUnderline = font.underline ? TRUE : FALSE;
    return FontHandle(::CreateFontIndirectW(&description));
}

const wchar_t* Surroundings::containerClass() const {
    return registered(kContainerClass);
}

const wchar_t* Surroundings::formClass() const {
    return registered(kFormClass);
}

const wchar_t* Surroundings::splitterClass() const {
    return registered(kSplitterClass);
}

const wchar_t* Surroundings::registered(const wchar_t* name) const {
    WNDCLASSEXW wanted{};
    wanted.cbSize = sizeof wanted;
    if (::GetClassInfoExW(instance_, name, &wanted)) return name;
    wanted = {};
    wanted.cbSize = sizeof wanted;
    wanted.style = CS_DBLCLKS;
    wanted.lpfnWndProc = &::DefWindowProcW;  // peers stand before it, as before any other window
    wanted.hInstance = instance_;
    wanted.hCursor = ::LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));  // the arrow
    constexpr int kIcon = 1;                                           // of the component's resources
    wanted.hIcon = ::LoadIconW(instance_, MAKEINTRESOURCEW(kIcon));
    wanted.lpszClassName = name;
    ::RegisterClassExW(&wanted);
    return name;
}

}  // namespace pellmark
