#pragma once

#include <chrono>
#include <optional>

namespace norvex {

/// How long the calls on one connection wait for a lock that another program holds. Each waits as long as it
/// may, but when one has waited in vain, those that follow it closely do not: a command that makes hundreds
/// of calls would otherwise keep a person waiting hundreds of times.
class LockPatience {
  public:
    using Clock = std::chrono::steady_clock;

    explicit LockPatience(Clock::duration each) : each_(each) {}

    /// Whether to try once more, at this moment. `isFirstTry` begins a new wait.
    bool mayWait(bool isFirstTry, Clock::time_point now);

  private:
    Clock::duration each_;
    Clock::time_point since_;
    std::optional<Clock::time_point> gaveUp_;  ///< the last time
};

}  // namespace norvex
