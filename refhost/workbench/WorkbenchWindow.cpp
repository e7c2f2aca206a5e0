#include "refhost/workbench/WorkbenchWindow.h"

#include <commctrl.h>
#include <commdlg.h>

#include <algorithm>

#include "automation/Guard.h"
#include "base/Error.h"
#include "base/Text.h"
#include "refhost/texts/Languages.h"
#include "refhost/workbench/CaseDialog.h"
#include "refhost/workbench/Resources.h"

namespace norvex {

using pellmark::toWide;

namespace {

constexpr const wchar_t* kClassName = L"NorvexWorkbench";
constexpr const wchar_t* kAreaClassName = L"NorvexViewArea";
constexpr int kSettingsMenu = 3;
constexpr int kLanguageMenu = 0;
constexpr int kUserMenu = 1;

void registerClass(const wchar_t* name, WNDPROC procedure, int background) {
    WNDCLASSEXW description{};
    description.cbSize = sizeof(description);
    description.lpfnWndProc = procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));  // the arrow
    description.hbrBackground = reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(background) + 1);
    description.lpszClassName = name;
    RegisterClassExW(&description);
}

HMENU settingsMenu(HWND window, int position) {
    return GetSubMenu(GetSubMenu(GetMenu(window), kSettingsMenu), position);
}

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

const char* methodOf(int id) {
    switch (id) {
        case IDM_OPEN_PROCESS:
            return "OpenProcess";
        case IDM_OPEN_FEATURE_CASE:
            return "OpenFeatureCase";
        case IDM_EDIT_FEATURE_CASE:
            return "EditFeatureCase";
        default:
            return "EditProcess";
    }
}

}  // namespace

WorkbenchWindow::WorkbenchWindow(const CommandLine& options) : options_(options) {
    createWindows();
    session_ = std::make_unique<HostSession>(area_);
    manager_ = std::make_unique<ProcessManager>(session_->application());
    if (options_.language) session_->setLanguage(*options_.language);
    if (!options_.user.empty()) session_->setUser(options_.user);
    translate();
}

WorkbenchWindow::~WorkbenchWindow() {
    if (window_ != nullptr) DestroyWindow(window_);
}

void WorkbenchWindow::createWindows() {
    const HINSTANCE instance = GetModuleHandleW(nullptr);
    registerClass(kClassName, &WorkbenchWindow::procedure, COLOR_BTNFACE);
    registerClass(kAreaClassName, &DefWindowProcW, COLOR_APPWORKSPACE);
    constexpr int kWidth = 1180;
    constexpr int kHeight = 780;
    window_ = CreateWindowExW(0, kClassName, L"Norvex Workbench", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 60,
                              40, kWidth, kHeight, nullptr, LoadMenuW(instance, MAKEINTRESOURCEW(IDR_MENU)),
                              instance, this);
    area_ =
        CreateWindowExW(WS_EX_CONTROLPARENT, kAreaClassName, nullptr, WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN,
                        0, 0, 0, 0, window_, nullptr, instance, nullptr);
    status_ = CreateWindowExW(0, STATUSCLASSNAMEW, nullptr, WS_CHILD | WS_VISIBLE | SBARS_SIZEGRIP, 0, 0, 0,
                              0, window_, nullptr, instance, nullptr);
    if (window_ == nullptr || area_ == nullptr || status_ == nullptr) {
        throw pellmark::Error(pellmark::errors::kHostInterface, "Workbench",
                              "The main window cannot be created.");
    }
    layOut();
}

LRESULT CALLBACK WorkbenchWindow::procedure(HWND window, UINT message, WPARAM wide, LPARAM data) {
    if (message == WM_NCCREATE) {
        const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(data);
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
    }
    auto* self = reinterpret_cast<WorkbenchWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self == nullptr || self->window_ != window) return DefWindowProcW(window, message, wide, data);
    // nothing thrown may cross the system's own frames
    LRESULT answer = 0;
    pellmark::trapAndTell([self](const std::string& failure) { self->tell(failure); },
                          [&] { answer = self->handle(message, wide, data); });
    return answer;
}

LRESULT WorkbenchWindow::handle(UINT message, WPARAM wide, LPARAM data) {
    switch (message) {
        case WM_SIZE:
            layOut();
            return 0;
        case WM_SETTINGCHANGE:
        case WM_SYSCOLORCHANGE:
        case WM_THEMECHANGED:
            tellViews(message, wide, data);
            break;
        case WM_SETFOCUS:
            focusView();
            return 0;
        case WM_INITMENUPOPUP:
            trapAndTell("Settings", [this] {
                checkMenus();
                return std::string();
            });
            return 0;
        case WM_COMMAND:
            command(LOWORD(wide));
            focusView();
            return 0;
        case WM_CLOSE:
            // the component saves its layouts while its windows still exist
            trapAndTell("Dispose", [this] {
                manager_->dispose();
                return std::string();
            });
            DestroyWindow(window_);
            return 0;
        case WM_NCDESTROY:
            window_ = nullptr;
            PostQuitMessage(0);
            return 0;
        default:
            break;
    }
    return DefWindowProcW(window_, message, wide, data);
}

void WorkbenchWindow::tellViews(UINT message, WPARAM wide, LPARAM data) {
    SendMessageW(status_, message, wide, data);
    for (HWND view = GetWindow(area_, GW_CHILD); view != nullptr; view = GetWindow(view, GW_HWNDNEXT))
        SendMessageW(view, message, wide, data);
}

void WorkbenchWindow::layOut() {
    if (status_ == nullptr) return;
    SendMessageW(status_, WM_SIZE, 0, 0);
    InvalidateRect(status_, nullptr, TRUE);  // or its grip stays where its end was before
    RECT client{};
    RECT line{};
    GetClientRect(window_, &client);
    GetWindowRect(status_, &line);
    const int height = std::max<int>(client.bottom - (line.bottom - line.top), 0);
    SetWindowPos(area_, nullptr, 0, 0, client.right, height, SWP_NOZORDER | SWP_NOACTIVATE);
    fitView();
}

void WorkbenchWindow::fitView() {
    RECT area{};
    GetClientRect(area_, &area);
    for (HWND view = GetWindow(area_, GW_CHILD); view != nullptr; view = GetWindow(view, GW_HWNDNEXT)) {
        SetWindowPos(view, nullptr, 0, 0, area.right, area.bottom, SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

void WorkbenchWindow::focusView() {
    if (GetFocus() != window_) return;
    if (const HWND view = GetWindow(area_, GW_CHILD)) SetFocus(view);
}

void WorkbenchWindow::run() {
    ShowWindow(window_, SW_SHOWNORMAL);
    openKnowledgeBase(options_.knowledgeBase);
    showFirstView();
    focusView();
    readyPending_ = !options_.readyFile.empty();
    const HACCEL keys = LoadAcceleratorsW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDR_ACCELERATORS));
    MSG message{};
    for (;;) {
        if (readyPending_ && !PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE)) announceReady();
        if (GetMessageW(&message, nullptr, 0, 0) <= 0) return;
        if (window_ != nullptr && TranslateAcceleratorW(window_, keys, &message) != 0) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void WorkbenchWindow::announceReady() {
    readyPending_ = false;
    RedrawWindow(window_, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    GdiFlush();
    const HANDLE file = CreateFileW(toWide(options_.readyFile).c_str(), GENERIC_WRITE, 0, nullptr,
                                    CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        say("The file " + options_.readyFile + " cannot be written");
        return;
    }
    constexpr std::string_view kText = "ready\r\n";
    DWORD written = 0;
    WriteFile(file, kText.data(), static_cast<DWORD>(kText.size()), &written, nullptr);
    CloseHandle(file);
}

void WorkbenchWindow::showFirstView() {
    if (session_->knowledgeBase() == nullptr) return;
    if (options_.view == StartView::Processes) command(IDM_PROCESSES_VIEW);
    if (options_.view == StartView::Case) {
        trapAndTell("ShowWindowProcessCaseView", [this] {
            manager_->showProcessCase({});
            return std::string("shown");
        });
        fitView();
    }
}

void WorkbenchWindow::openKnowledgeBase(const std::string& file) {
    trapAndTell("Open Knowledge Base", [&] {
        manager_->dispose();  // it holds on to the knowledge base that it was made with
        session_->open(file);
        return std::string();
    });
    trapAndTell("Settings", [this] {
        fillMenus();
        const std::string path = session_->knowledgeBaseFile();
        SetWindowTextW(window_, toWide("Norvex Workbench - " + path).c_str());
        say(session_->knowledgeBase() != nullptr ? path : texts_.of("No knowledge base is open"));
        return std::string();
    });
}

void WorkbenchWindow::askForKnowledgeBase() {
    std::wstring path(MAX_PATH * 4, L'\0');
    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof(dialog);
    dialog.hwndOwner = window_;
    std::wstring filter =
        texts_.wide("Knowledge bases") + L" (*.db)|*.db|" + texts_.wide("All files") + L"|*.*|";
    std::replace(filter.begin(), filter.end(), L'|', L'\0');
    dialog.lpstrFilter = filter.c_str();
    dialog.lpstrFile = path.data();
    dialog.nMaxFile = static_cast<DWORD>(path.size());
    dialog.lpstrDefExt = L"db";
    dialog.Flags = OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_PATHMUSTEXIST;
    if (!GetOpenFileNameW(&dialog)) return;
    path.resize(path.find(L'\0'));
    openKnowledgeBase(pellmark::fromWide(path));
    if (session_->knowledgeBase() != nullptr) command(IDM_PROCESSES_VIEW);
}

void WorkbenchWindow::command(int id) {
    switch (id) {
        case IDM_OPEN_KNOWLEDGE_BASE:
            return askForKnowledgeBase();
        case IDM_EXIT:
            PostMessageW(window_, WM_CLOSE, 0, 0);
            return;
        case IDM_PROCESSES_VIEW:
            trapAndTell("ShowWindowProcessesView", [this] {
                manager_->showProcesses("");
                return std::string("shown");
            });
            return fitView();
        case IDM_CASE_VIEW:
        case IDM_OPEN_PROCESS:
        case IDM_OPEN_FEATURE_CASE:
        case IDM_EDIT_FEATURE_CASE:
        case IDM_EDIT_PROCESS:
            return callForCase(id);
        case IDM_DISPOSE:
            return trapAndTell("Dispose", [this] {
                manager_->dispose();
                return std::string("done");
            });
        default:
            break;
    }
    trapAndTell("Settings", [&] {
        if (id == IDM_INCH || id == IDM_METRIC) {
            session_->setUnit(id == IDM_INCH ? pellmark::unit::kInch : pellmark::unit::kMetric);
        } else if (id >= IDM_FIRST_USER && id - IDM_FIRST_USER < static_cast<int>(users_.size())) {
            session_->setUser(users_[static_cast<std::size_t>(id - IDM_FIRST_USER)]);
        } else if (id >= IDM_FIRST_LANGUAGE && id <= IDM_LAST_LANGUAGE) {
            session_->setLanguage(static_cast<std::int16_t>(id - IDM_FIRST_LANGUAGE));
            translate();
            reopenView();
        }
        return "user " + session_->user() + ", language " +
               std::string(languageOf(session_->language()).name);
    });
}

void WorkbenchWindow::reopenView() {
    // captions are set when the component's windows are made
    manager_->dispose();
    manager_->showProcesses("");
    fitView();
}

void WorkbenchWindow::callForCase(int id) {
    if (session_->knowledgeBase() == nullptr) return say(texts_.of("No knowledge base is open"));
    trapAndTell(id == IDM_CASE_VIEW ? "ShowWindowProcessCaseView" : methodOf(id), [&]() -> std::string {
        const auto description = CaseDialog(*session_->knowledgeBase(), texts_).show(window_);
        if (!description) return "cancelled";
        if (id == IDM_CASE_VIEW) {
            manager_->showProcessCase(*description);
            fitView();
            return "shown";
        }
        const std::string result = manager_->callModal(methodOf(id), *description);
        return result.empty() ? "returned nothing" : "returned " + result;
    });
}

void WorkbenchWindow::translate() {
    const HINSTANCE instance = GetModuleHandleW(nullptr);
    std::wstring path(MAX_PATH * 4, L'\0');
    path.resize(GetModuleFileNameW(instance, path.data(), static_cast<DWORD>(path.size())));
    texts_ = HostTexts(path.substr(0, path.rfind(L'\\')), session_->language());
    const HMENU before = GetMenu(window_);
    const HMENU menu = LoadMenuW(instance, MAKEINTRESOURCEW(IDR_MENU));
    texts_.translate(menu);
    SetMenu(window_, menu);
    DestroyMenu(before);
    fillMenus();
}

void WorkbenchWindow::fillMenus() {
    const HMENU languageMenu = settingsMenu(window_, kLanguageMenu);
    const HMENU userMenu = settingsMenu(window_, kUserMenu);
    emptyMenu(languageMenu);
    emptyMenu(userMenu);
    for (const auto& language : languages()) {
        AppendMenuW(languageMenu, MF_STRING, static_cast<UINT_PTR>(IDM_FIRST_LANGUAGE + language.code),
                    entryOf(language.ownName).c_str());
    }
    users_ = session_->users();
    constexpr std::size_t kMostUsers = IDM_LAST_USER - IDM_FIRST_USER + 1;
    if (users_.size() > kMostUsers) users_.resize(kMostUsers);
    for (std::size_t at = 0; at < users_.size(); ++at) {
        AppendMenuW(userMenu, MF_STRING, IDM_FIRST_USER + at, entryOf(users_[at]).c_str());
    }
}

void WorkbenchWindow::checkMenus() {
    const HMENU languageMenu = settingsMenu(window_, kLanguageMenu);
    for (const auto& language : languages()) {
        CheckMenuItem(languageMenu, static_cast<UINT>(IDM_FIRST_LANGUAGE + language.code),
                      language.code == session_->language() ? MF_CHECKED : MF_UNCHECKED);
    }
    const HMENU userMenu = settingsMenu(window_, kUserMenu);
    for (std::size_t at = 0; at < users_.size(); ++at) {
        CheckMenuItem(userMenu, static_cast<UINT>(IDM_FIRST_USER + at),
                      pellmark::equalNoCase(users_[at], session_->user()) ? MF_CHECKED : MF_UNCHECKED);
    }
    CheckMenuRadioItem(GetMenu(window_), IDM_INCH, IDM_METRIC,
                       session_->unit() == pellmark::unit::kInch ? IDM_INCH : IDM_METRIC, MF_BYCOMMAND);
}

void WorkbenchWindow::trapAndTell(const char* what, const std::function<std::string()>& call) {
    const auto report = [&](const std::string& failure) {
        say(std::string(what) + " failed");
        tell(failure);
    };
    pellmark::trapAndTell(report, [&] {
        const std::string result = call();
        if (!result.empty()) say(std::string(what) + ": " + result);
    });
}

void WorkbenchWindow::tell(const std::string& failure) {
    MessageBoxW(window_, toWide(failure).c_str(), L"Norvex Workbench", MB_OK | MB_ICONERROR);
}

void WorkbenchWindow::say(const std::string& text) {
    if (status_ != nullptr)
        SendMessageW(status_, SB_SETTEXTW, 0, reinterpret_cast<LPARAM>(toWide(text).c_str()));
}

}  // namespace norvex
