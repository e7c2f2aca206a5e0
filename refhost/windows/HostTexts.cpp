#include "refhost/windows/HostTexts.h"

#include "automation/Automation.h"
#include "refhost/windows/FileBytes.h"

namespace norvex {

namespace {

using pellmark::fromWide;
using pellmark::toWide;

std::wstring textOf(HMENU menu, UINT position) {
    std::wstring text(static_cast<std::size_t>(GetMenuStringW(menu, position, nullptr, 0, MF_BYPOSITION)) + 1,
                      L'\0');
    text.resize(static_cast<std::size_t>(
        GetMenuStringW(menu, position, text.data(), static_cast<int>(text.size()), MF_BYPOSITION)));
    return text;
}

}  // namespace

std::wstring textOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

HostTexts::HostTexts(const std::wstring& folder, std::int16_t languageCode)
    : table_(bytesOf(folder + L"\\Norvex.csv"), languageCode) {}

std::wstring HostTexts::wide(const std::string& english) const {
    return toWide(of(english));
}

void HostTexts::translateText(HWND window) const {
    const std::wstring text = textOf(window);
    if (!text.empty()) SetWindowTextW(window, wide(fromWide(text)).c_str());
}

void HostTexts::translate(HWND dialog) const {
    translateText(dialog);
    for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
        translateText(child);
}

void HostTexts::translate(HMENU menu) const {
    constexpr std::wstring_view kCtrl = L"Ctrl+";
    const int count = GetMenuItemCount(menu);
    for (int position = 0; position < count; ++position) {
        if (const HMENU inner = GetSubMenu(menu, position)) translate(inner);
        const std::wstring text = textOf(menu, static_cast<UINT>(position));
        if (text.empty()) continue;  // a line
        const std::size_t tab = text.find(L'\t');
        std::wstring translated = wide(fromWide(text.substr(0, tab)));
        if (tab != std::wstring::npos) {
            std::wstring keys = text.substr(tab + 1);
            if (keys.starts_with(kCtrl)) keys = wide("Ctrl") + L"+" + keys.substr(kCtrl.size());
            translated += L'\t' + keys;
        }
        MENUITEMINFOW item{};
        item.cbSize = sizeof item;
        item.fMask = MIIM_STRING;
        item.dwTypeData = translated.data();
        SetMenuItemInfoW(menu, static_cast<UINT>(position), TRUE, &item);
    }
}

}  // namespace norvex
