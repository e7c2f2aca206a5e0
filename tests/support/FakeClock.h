#pragma once

#include <string>

#include "ports/Clock.h"

namespace pellmark::test {

/// A clock that stands still until a test moves it.
class FakeClock : public Clock {
  public:
    std::string now() override { return time; }

    std::string time = "2026-11-20 21:53:07.123";
};

}  // namespace pellmark::test
