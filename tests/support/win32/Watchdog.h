#pragma once

namespace pellmark::test {

/// Ends a test program that hangs: a modal loop that nobody leaves would otherwise stop the whole run. It
/// prints what was going on and ends the process when it has not been restarted for the given time.
class Watchdog {
  public:
    explicit Watchdog(int seconds);
    ~Watchdog();
    void restart();
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;

  private:
    struct State;
    State* state_;
};

/// Runs all tests of a program, each under a watchdog of two minutes; what its main() returns.
int runTestsUnderWatchdog(int argc, char** argv);

}  // namespace pellmark::test
