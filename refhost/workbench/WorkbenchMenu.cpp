#include "refhost/workbench/WorkbenchMenu.h"

#include "automation/Automation.h"
#include "base/Text.h"
#include "refhost/texts/Languages.h"
#include "refhost/workbench/Resources.h"

namespace norvex {

using pellmark::toWide;

namespace {

constexpr int kSettingsMenu = 3;
constexpr int kLanguageMenu = 0;
constexpr int kUserMenu = 1;

/// What needs a knowledge base.
constexpr UINT kOfKnowledgeBase[] = {IDM_PROCESSES_VIEW,    IDM_CASE_VIEW,    IDM_OPEN_PROCESS,
                                     IDM_OPEN_FEATURE_CASE, IDM_EDIT_PROCESS, IDM_EDIT_FEATURE_CASE};

void emptyMenu(HMENU menu) {
    while (GetMenuItemCount(menu) > 0)
        DeleteMenu(menu, 0, MF_BYPOSITION);
}

/// A name as a menu entry that its first letter chooses.
std::wstring entryOf(std::string_view name) {
    std::wstring entry = L"&";
    for (const wchar_t c : toWide(name))
        entry += c == L'&' ? std::wstring(L"&&") : std::wstring(1, c);
    return entry;
}

}  // namespace

HMENU WorkbenchMenu::settings(int position) const {
    return GetSubMenu(GetSubMenu(GetMenu(window_), kSettingsMenu), position);
}

void WorkbenchMenu::build(HWND window, const HostTexts& texts, HostSession& session) {
    window_ = window;
    const HMENU before = GetMenu(window_);
    const HMENU menu = LoadMenuW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDR_MENU));
    texts.translate(menu);
    SetMenu(window_, menu);
    DestroyMenu(before);
    fill(session);
}

void WorkbenchMenu::fill(HostSession& session) {
    const HMENU languageMenu = settings(kLanguageMenu);
    const HMENU userMenu = settings(kUserMenu);
    emptyMenu(languageMenu);
    emptyMenu(userMenu);
    for (const auto& language : languages()) {
        AppendMenuW(languageMenu, MF_STRING, static_cast<UINT_PTR>(IDM_FIRST_LANGUAGE + language.code),
                    entryOf(language.ownName).c_str());
    }
    users_ = session.users();
    constexpr std::size_t kMostUsers = IDM_LAST_USER - IDM_FIRST_USER + 1;
    if (users_.size() > kMostUsers) users_.resize(kMostUsers);
    for (std::size_t at = 0; at < users_.size(); ++at)
        AppendMenuW(userMenu, MF_STRING, IDM_FIRST_USER + at, entryOf(users_[at]).c_str());
}

void WorkbenchMenu::refresh(HostSession& session, bool hasComponent) {
    const HMENU languageMenu = settings(kLanguageMenu);
    for (const auto& language : languages()) {
        CheckMenuItem(languageMenu, static_cast<UINT>(IDM_FIRST_LANGUAGE + language.code),
                      language.code == session.language() ? MF_CHECKED : MF_UNCHECKED);
    }
    const HMENU userMenu = settings(kUserMenu);
    for (std::size_t at = 0; at < users_.size(); ++at) {
        CheckMenuItem(userMenu, static_cast<UINT>(IDM_FIRST_USER + at),
                      pellmark::equalNoCase(users_[at], session.user()) ? MF_CHECKED : MF_UNCHECKED);
    }
    const HMENU bar = GetMenu(window_);
    CheckMenuRadioItem(bar, IDM_INCH, IDM_METRIC,
                       session.unit() == pellmark::unit::kInch ? IDM_INCH : IDM_METRIC, MF_BYCOMMAND);
    const auto offer = [bar](UINT id, bool isPossible) {
        EnableMenuItem(bar, id, MF_BYCOMMAND | (isPossible ? MF_ENABLED : MF_GRAYED));
    };
    for (const UINT id : kOfKnowledgeBase)
        offer(id, session.knowledgeBase() != nullptr);
    offer(IDM_CLOSE_MANAGER, hasComponent);
}

bool WorkbenchMenu::isUser(int id) const {
    return id >= IDM_FIRST_USER && id - IDM_FIRST_USER < static_cast<int>(users_.size());
}

const std::string& WorkbenchMenu::userOf(int id) const {
    return users_.at(static_cast<std::size_t>(id - IDM_FIRST_USER));
}

}  // namespace norvex
