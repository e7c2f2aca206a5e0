#include "support/win32/Watchdog.h"

#include <gmock/gmock.h>
#include <windows.h>

#include <cstdio>
#include <cstdlib>

namespace pellmark::test {

namespace {

constexpr int kSecondsForOneTest = 120;

BOOL CALLBACK printWindow(HWND window, LPARAM) noexcept {
    DWORD process = 0;
    const DWORD thread = ::GetWindowThreadProcessId(window, &process);
    if (process != ::GetCurrentProcessId() || !::IsWindowVisible(window)) return TRUE;
    char caption[200] = "";
    char className[100] = "";
    ::GetWindowTextA(window, caption, sizeof caption);
    ::GetClassNameA(window, className, sizeof className);
    std::fprintf(stderr, "  thread %lu shows the window \"%s\" of class %s%s\n", thread, caption, className,
                 ::IsWindowEnabled(window) ? "" : ", disabled");
    return TRUE;
}

class RestartAtEveryTest : public ::testing::EmptyTestEventListener {
  public:
    explicit RestartAtEveryTest(Watchdog& watchdog) : watchdog_(watchdog) {}
    void OnTestStart(const ::testing::TestInfo&) override { watchdog_.restart(); }

  private:
    Watchdog& watchdog_;
};

}  // namespace

struct Watchdog::State {
    HANDLE stop = ::CreateEventW(nullptr, TRUE, FALSE, nullptr);
    HANDLE thread = nullptr;
    DWORD milliseconds = 0;
    HANDLE again = ::CreateEventW(nullptr, FALSE, FALSE, nullptr);

    static DWORD WINAPI run(void* parameter) noexcept {
        const auto* state = static_cast<State*>(parameter);
        const HANDLE signs[] = {state->stop, state->again};
        DWORD sign = WAIT_OBJECT_0 + 1;
        while (sign == WAIT_OBJECT_0 + 1)
            sign = ::WaitForMultipleObjects(2, signs, FALSE, state->milliseconds);
        if (sign == WAIT_OBJECT_0) return 0;
        std::fprintf(stderr, "The watchdog ends the program after %lu ms.\n", state->milliseconds);
        if (const auto* test = ::testing::UnitTest::GetInstance()->current_test_info()) {
            std::fprintf(stderr, "  running: %s.%s\n", test->test_suite_name(), test->name());
        }
        ::EnumWindows(&printWindow, 0);
        std::fflush(stderr);
        ::TerminateProcess(::GetCurrentProcess(), 3);
        return 0;
    }
};

Watchdog::Watchdog(int seconds) : state_(new State) {
    state_->milliseconds = static_cast<DWORD>(seconds) * 1000U;
    state_->thread = ::CreateThread(nullptr, 0, &State::run, state_, 0, nullptr);
}

Watchdog::~Watchdog() {
    ::SetEvent(state_->stop);
    ::WaitForSingleObject(state_->thread, INFINITE);
    ::CloseHandle(state_->thread);
    ::CloseHandle(state_->again);
    ::CloseHandle(state_->stop);
    delete state_;
}

void Watchdog::restart() {
    ::SetEvent(state_->again);
}

int runTestsUnderWatchdog(int argc, char** argv) {
    ::testing::InitGoogleMock(&argc, argv);
    Watchdog watchdog(kSecondsForOneTest);
    ::testing::UnitTest::GetInstance()->listeners().Append(new RestartAtEveryTest(watchdog));
    return RUN_ALL_TESTS();
}

}  // namespace pellmark::test
