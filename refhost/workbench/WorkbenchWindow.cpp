#include "refhost/workbench/WorkbenchWindow.h"

#include <commdlg.h>

#include <algorithm>
#include <utility>

#include "automation/Guard.h"
#include "base/Error.h"
#include "refhost/texts/Languages.h"
#include "refhost/windows/Placing.h"
#include "refhost/workbench/CaseDialog.h"
#include "refhost/workbench/Resources.h"
#include "refhost/workbench/WindowPlace.h"

namespace norvex {

using pellmark::toWide;

namespace {

constexpr const wchar_t* kClassName = L"NorvexWorkbench";
constexpr const wchar_t* kAreaClassName = L"NorvexViewArea";
constexpr SIZE kFirstSizeAt96{1180, 780};
/// The frame, the menu and the status line around the least that a view needs.
constexpr SIZE kLeastSizeAt96{560, 400};
constexpr UINT kDpiChanged = 0x02E0;

HICON iconOf(int widthMetric, int heightMetric) {
    return static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_WORKBENCH),
                                         IMAGE_ICON, GetSystemMetrics(widthMetric),
                                         GetSystemMetrics(heightMetric), LR_SHARED));
}

void registerClass(const wchar_t* name, WNDPROC procedure, int background) {
    WNDCLASSEXW description{};
    description.cbSize = sizeof(description);
    description.lpfnWndProc = procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.hIcon = iconOf(SM_CXICON, SM_CYICON);
    description.hIconSm = iconOf(SM_CXSMICON, SM_CYSMICON);
    description.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));  // the arrow
    description.hbrBackground = reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(background) + 1);
    description.lpszClassName = name;
    RegisterClassExW(&description);
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

WorkbenchWindow::WorkbenchWindow(const CommandLine& options) : options_(options) {}

void WorkbenchWindow::start() {
    createWindows();
    firstShow_ = restorePlace(window_, kFirstSizeAt96);
    session_ = std::make_unique<HostSession>(area_);
    manager_ = std::make_unique<ProcessManager>(session_->application());
    if (options_.language) session_->setLanguage(*options_.language);
    if (!options_.user.empty()) session_->setUser(options_.user);
    translate();
}

WorkbenchWindow::~WorkbenchWindow() {
    // Left behind by a failed start. It hears nothing of its end: the request to quit would close the message
    // about the failure before anybody has read it.
    if (const HWND window = std::exchange(window_, nullptr)) DestroyWindow(window);
}

void WorkbenchWindow::createWindows() {
    const HINSTANCE instance = GetModuleHandleW(nullptr);
    registerClass(kClassName, &WorkbenchWindow::procedure, COLOR_BTNFACE);
    registerClass(kAreaClassName, &DefWindowProcW, COLOR_APPWORKSPACE);
    window_ = CreateWindowExW(0, kClassName, L"Norvex Workbench", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                              CW_USEDEFAULT, CW_USEDEFAULT, kFirstSizeAt96.cx, kFirstSizeAt96.cy, nullptr,
                              LoadMenuW(instance, MAKEINTRESOURCEW(IDR_MENU)), instance, this);
    area_ =
        CreateWindowExW(WS_EX_CONTROLPARENT, kAreaClassName, nullptr, WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN,
                        0, 0, 0, 0, window_, nullptr, instance, nullptr);
    if (window_ == nullptr || area_ == nullptr || !status_.create(window_)) {
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
        case WM_GETMINMAXINFO:
            reinterpret_cast<MINMAXINFO*>(data)->ptMinTrackSize = leastSize(window_, kLeastSizeAt96);
            return 0;
        case kDpiChanged: {
            const RECT& wanted = *reinterpret_cast<const RECT*>(data);
            status_.takeFontFor(LOWORD(wide));
            SetWindowPos(window_, nullptr, wanted.left, wanted.top, wanted.right - wanted.left,
                         wanted.bottom - wanted.top, SWP_NOZORDER | SWP_NOACTIVATE);
            layOut();
            return 0;
        }
        case WM_SETTINGCHANGE:
            status_.takeFont();
            layOut();
            tellViews(message, wide, data);
            break;
        case WM_SYSCOLORCHANGE:
        case WM_THEMECHANGED:
            tellViews(message, wide, data);
            break;
        case WM_SETFOCUS:
            focusView();
            return 0;
        case WM_INITMENUPOPUP:
            trapAndTell("Settings", [this] {
                menu_.refresh(*session_, manager_->isOpen());
                return std::string();
            });
            return 0;
        case WM_COMMAND:
            command(LOWORD(wide));
            focusView();
            return 0;
        case WM_CLOSE:
            WindowPlace::of(window_).store();
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
    status_.tell(message, wide, data);
    for (HWND view = GetWindow(area_, GW_CHILD); view != nullptr; view = GetWindow(view, GW_HWNDNEXT))
        SendMessageW(view, message, wide, data);
}

void WorkbenchWindow::layOut() {
    if (!status_.exists()) return;
    status_.fit();
    RECT client{};
    GetClientRect(window_, &client);
    const int height = std::max(static_cast<int>(client.bottom) - status_.height(), 0);
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
    start();
    ShowWindow(window_, firstShow_);
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
        status_.say(texts_.of("The file cannot be written:") + " " + options_.readyFile);
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
        trapAndTell("ShowWindowProcessCaseView",
                    [this] { return shown([this] { manager_->showProcessCase({}); }); });
    }
}

std::string WorkbenchWindow::shown(std::function<void()> show) {
    show();
    fitView();
    showAgain_ = std::move(show);
    return texts_.of("the view is shown");
}

void WorkbenchWindow::openKnowledgeBase(const std::string& file) {
    std::string failure;
    pellmark::trapAndTell([&](const std::string& why) { failure = why; },
                          [&] {
                              showAgain_ = nullptr;
                              manager_->dispose();  // it holds on to the knowledge base that it was made with
                              session_->open(file);
                          });
    trapAndTell("Settings", [&] {
        menu_.fill(*session_);
        menu_.refresh(*session_, false);
        showTitle();
        status_.say(failure.empty() ? session_->knowledgeBaseFile() : failure);
        return std::string();
    });
    if (!failure.empty()) tell(failure);
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
            if (!hasKnowledgeBase()) return;
            return trapAndTell("ShowWindowProcessesView",
                               [this] { return shown([this] { manager_->showProcesses(""); }); });
        case IDM_CASE_VIEW:
        case IDM_OPEN_PROCESS:
        case IDM_OPEN_FEATURE_CASE:
        case IDM_EDIT_FEATURE_CASE:
        case IDM_EDIT_PROCESS:
            return callForCase(id);
        case IDM_CLOSE_MANAGER:
            return trapAndTell("Dispose", [this] {
                showAgain_ = nullptr;
                manager_->dispose();
                return texts_.of("the Process Manager is closed");
            });
        default:
            break;
    }
    trapAndTell("", [&] {
        if (id == IDM_INCH || id == IDM_METRIC) {
            session_->setUnit(id == IDM_INCH ? pellmark::unit::kInch : pellmark::unit::kMetric);
        } else if (menu_.isUser(id)) {
            session_->setUser(menu_.userOf(id));
        } else if (id >= IDM_FIRST_LANGUAGE && id <= IDM_LAST_LANGUAGE) {
            session_->setLanguage(static_cast<std::int16_t>(id - IDM_FIRST_LANGUAGE));
            translate();
            reopenView();
        }
        return texts_.of("User") + ": " + session_->user() + ", " + texts_.of("Language") + ": " +
               std::string(languageOf(session_->language()).ownName);
    });
}

void WorkbenchWindow::reopenView() {
    // captions are set when the component's windows are made
    if (!showAgain_) return;
    manager_->dispose();
    showAgain_();
    fitView();
}

void WorkbenchWindow::callForCase(int id) {
    if (!hasKnowledgeBase()) return;
    if (id == IDM_EDIT_PROCESS && session_->isReadOnly()) {
        // Its dialog would open, and lose what is typed into it.
        return tell(
            texts_.of("The knowledge base is read-only: it can be looked at, but not changed. Remove the "
                      "write protection of the file and its folder, or copy it to a folder that you may "
                      "write to, and open it again."));
    }
    trapAndTell(id == IDM_CASE_VIEW ? "ShowWindowProcessCaseView" : methodOf(id), [&]() -> std::string {
        const auto description = CaseDialog(*session_->knowledgeBase(), texts_).show(window_);
        if (!description) return texts_.of("cancelled");
        if (id == IDM_CASE_VIEW)
            return shown([this, given = *description] { manager_->showProcessCase(given); });
        return outcomeOf(id, manager_->callModal(methodOf(id), *description));
    });
}

std::string WorkbenchWindow::outcomeOf(int id, const std::string& result) {
    if (id != IDM_OPEN_PROCESS && id != IDM_OPEN_FEATURE_CASE) return texts_.of("done");
    if (result.empty()) return texts_.of("nothing was chosen");
    if (id == IDM_OPEN_FEATURE_CASE) return texts_.of("a feature case was chosen");
    // an identifier would say nothing to a person
    return texts_.of("chosen:") + " " + session_->knowledgeBase()->processStore().process(result).Name;
}

bool WorkbenchWindow::hasKnowledgeBase() {
    if (session_->knowledgeBase() != nullptr) return true;
    status_.say(texts_.of("No knowledge base is open"));
    return false;
}

void WorkbenchWindow::translate() {
    std::wstring path(MAX_PATH * 4, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    texts_ = HostTexts(path.substr(0, path.rfind(L'\\')), session_->language());
    menu_.build(window_, texts_, *session_);
    menu_.refresh(*session_, manager_->isOpen());
    showTitle();
}

void WorkbenchWindow::showTitle() {
    std::string state = session_->knowledgeBaseFile();
    if (session_->knowledgeBase() == nullptr) {
        state = texts_.of("No knowledge base is open");
    } else if (session_->isReadOnly()) {
        state += " " + texts_.of("(read-only)");
    }
    SetWindowTextW(window_, toWide("Norvex Workbench - " + state).c_str());
}

void WorkbenchWindow::trapAndTell(const char* what, const std::function<std::string()>& call) {
    const std::string subject = *what == '\0' ? "" : std::string(what) + ": ";
    const auto report = [&](const std::string& failure) {
        status_.say(subject + texts_.of("failed"));
        tell(failure);
    };
    pellmark::trapAndTell(report, [&] {
        const std::string result = call();
        if (!result.empty()) status_.say(subject + result);
    });
}

void WorkbenchWindow::tell(const std::string& failure) {
    showMessage(window_, toWide(failure), L"Norvex Workbench", MB_OK | MB_ICONERROR);
}

}  // namespace norvex
