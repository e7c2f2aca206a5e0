#pragma once

#include <functional>

#include "ports/FileSystem.h"

namespace pellmark::test {

/// Lets a test act where a person could: each time the window breathes.
class ActingIdle : public Idle {
  public:
    void yield() override {
        ++yields;
        if (act) act();
    }
    int yields = 0;
    std::function<void()> act;
};

}  // namespace pellmark::test
