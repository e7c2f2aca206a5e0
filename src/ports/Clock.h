#pragma once

#include <string>

namespace pellmark {

class Clock {
  public:
    virtual ~Clock() = default;
    /// Local time as "2026-11-20 21:53:07.123", for the trace.
    virtual std::string now() = 0;
};

}  // namespace pellmark
