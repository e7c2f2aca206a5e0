#include "win32/ports/Win32Clock.h"

#include <windows.h>

#include <cstdio>

namespace pellmark {

std::string Win32Clock::now() {
    SYSTEMTIME time{};
    ::GetLocalTime(&time);
    char text[64];
    std::snprintf(text, sizeof(text), "%04u-%02u-%02u %02u:%02u:%02u.%03u", time.wYear, time.wMonth,
                  time.wDay, time.wHour, time.wMinute, time.wSecond, time.wMilliseconds);
    return text;
}

}  // namespace pellmark
