#pragma once

#include "support/win32/SampleForm.h"
#include "win32/WindowsApi.h"

/// The windows that the measurements compare: a form's list and the barest one.
namespace bench {

struct Host {
    HWND window =
        ::CreateWindowExW(0, L"STATIC", L"Bench", WS_OVERLAPPEDWINDOW | WS_VISIBLE | WS_CLIPCHILDREN, 50, 50,
                          1000, 700, nullptr, nullptr, nullptr, nullptr);
    Host() = default;
    ~Host() { ::DestroyWindow(window); }
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;
};

void pump();

/// The window of the form's grid.
HWND listOf(pellmark::test::SampleForm& form);

/// The list window alone, which is the least that any list can cost. In owner-data mode with an item count
/// it answers no text.
HWND bareList(HWND host, int rows);

}  // namespace bench
