#pragma once

#include "ports/FileSystem.h"

namespace pellmark::test {

/// There are no messages to dispatch; counts how often there was time for them.
class NoIdle : public Idle {
  public:
    void yield() override { ++yields; }

    int yields = 0;
};

}  // namespace pellmark::test
