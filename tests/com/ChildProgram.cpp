#include "com/ChildProgram.h"

#include <windows.h>

#include <algorithm>
#include <stdexcept>
#include <thread>
#include <vector>

namespace pellmark {

namespace {

constexpr unsigned long kTimedOut = 124;
constexpr ULONGLONG kLimitMilliseconds = 60000;
constexpr DWORD kPollMilliseconds = 20;

std::string readAll(HANDLE pipe) {
    std::string text;
    char buffer[4096];
    DWORD count = 0;
    while (ReadFile(pipe, buffer, sizeof buffer, &count, nullptr) && count > 0) {
        text.append(buffer, count);
    }
    text.erase(std::remove(text.begin(), text.end(), '\r'), text.end());
    return text;
}

}  // namespace

ChildResult runChild(const std::wstring& commandLine, const WhileRunning& whileRunning) {
    SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    HANDLE reading = nullptr;
    HANDLE writing = nullptr;
    if (!CreatePipe(&reading, &writing, &inherited, 0)) throw std::runtime_error("no pipe");
    SetHandleInformation(reading, HANDLE_FLAG_INHERIT, 0);

    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = writing;
    start.hStdError = writing;
    PROCESS_INFORMATION process{};
    std::vector<wchar_t> writable(commandLine.begin(), commandLine.end());
    writable.push_back(L'\0');
    const BOOL started = CreateProcessW(nullptr, writable.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                                        &start, &process);
    CloseHandle(writing);
    if (!started) {
        CloseHandle(reading);
        throw std::runtime_error("the program cannot be started");
    }

    ChildResult result;
    std::thread reader([&] { result.output = readAll(reading); });
    const ULONGLONG end = GetTickCount64() + kLimitMilliseconds;
    while (WaitForSingleObject(process.hProcess, kPollMilliseconds) == WAIT_TIMEOUT) {
        if (GetTickCount64() > end) {
            TerminateProcess(process.hProcess, kTimedOut);
        } else if (whileRunning) {
            whileRunning(process.dwProcessId);
        }
    }
    reader.join();
    GetExitCodeProcess(process.hProcess, &result.exitCode);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    CloseHandle(reading);
    return result;
}

}  // namespace pellmark
