#include "win32/BenchWindows.h"

#include "win32/controls/ControlPeer.h"

namespace bench {

void pump() {
    MSG message{};
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
}

HWND listOf(pellmark::test::SampleForm& form) {
    struct Search {
        pellmark::test::SampleForm& form;
        HWND found = nullptr;
    } search{form};
    ::EnumChildWindows(
        reinterpret_cast<HWND>(form.handle()),
        [](HWND window, LPARAM parameter) -> BOOL {
            auto& wanted = *reinterpret_cast<Search*>(parameter);
            const auto* peer = pellmark::ControlPeer::of(window);
            if (peer == nullptr || peer->control() != &wanted.form.grid) return TRUE;
            wanted.found = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

HWND bareList(HWND host, int rows) {
    const HWND list =
        ::CreateWindowExW(0, WC_LISTVIEWW, L"", WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_OWNERDATA, 0, 0, 980,
                          660, host, nullptr, nullptr, nullptr);
    LVCOLUMNW column{};
    column.mask = LVCF_WIDTH | LVCF_TEXT;
    column.cx = 180;
    wchar_t heading[] = L"Heading";
    column.pszText = heading;
    for (int i = 0; i < 4; ++i)
        ::SendMessageW(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&column));
    ::SendMessageW(list, LVM_SETITEMCOUNT, static_cast<WPARAM>(rows), 0);
    return list;
}

}  // namespace bench
