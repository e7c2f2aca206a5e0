#include "win32/ports/Win32Idle.h"

#include <windows.h>

namespace pellmark {

void Win32Idle::yield() {
    MSG message{};
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            ::PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
}

}  // namespace pellmark
