#include "refhost/automation/HostWindow.h"

#include "automation/Module.h"
#include "base/Error.h"
#include "refhost/windows/Placing.h"

namespace norvex {

namespace {

constexpr const wchar_t* kClassName = L"NorvexHostWindow";

/// The embedded view is the host's child and keeps to its client area.
void fitChildren(HWND window) {
    RECT area{};
    GetClientRect(window, &area);
    for (HWND child = GetWindow(window, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        SetWindowPos(child, nullptr, 0, 0, area.right, area.bottom, SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

}  // namespace

HostWindow::HostWindow() {
    const HINSTANCE instance = pellmark::module::instance();
    WNDCLASSEXW description{};
    description.cbSize = sizeof(description);
    description.lpfnWndProc = &HostWindow::procedure;
    description.hInstance = instance;
    description.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));  // the arrow
    description.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_APPWORKSPACE + 1);
    description.lpszClassName = kClassName;
    RegisterClassExW(&description);  // fails when another host object has done it
    constexpr SIZE kSizeAt96{1000, 700};
    window_ = CreateWindowExW(0, kClassName, L"Norvex", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT,
                              CW_USEDEFAULT, kSizeAt96.cx, kSizeAt96.cy, nullptr, nullptr, instance, this);
    if (window_ == nullptr) {
        throw pellmark::Error(pellmark::errors::kHostInterface, "Norvex.Application",
                              "The host's main window cannot be created.");
    }
    RECT at{};
    GetWindowRect(window_, &at);
    at = openingPlace(workAreaNear(at), dpiOf(window_), kSizeAt96);
    SetWindowPos(window_, nullptr, at.left, at.top, at.right - at.left, at.bottom - at.top,
                 SWP_NOZORDER | SWP_SHOWWINDOW);
}

HostWindow::~HostWindow() {
    if (window_ != nullptr) DestroyWindow(window_);
    // fails while another host object has a window; a DLL that is unloaded must not leave its class behind
    UnregisterClassW(kClassName, pellmark::module::instance());
}

void HostWindow::run() {
    MSG message{};
    while (window_ != nullptr && GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (IsDialogMessageW(window_, &message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

LRESULT CALLBACK HostWindow::procedure(HWND window, UINT message, WPARAM wide, LPARAM data) {
    if (message == WM_NCCREATE) {
        const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(data);
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
    }
    auto* self = reinterpret_cast<HostWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message == WM_SIZE) fitChildren(window);
    if (message == WM_NCDESTROY && self != nullptr) self->window_ = nullptr;
    return DefWindowProcW(window, message, wide, data);
}

}  // namespace norvex
