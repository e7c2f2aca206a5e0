#pragma once

#include "ports/FileSystem.h"

namespace pellmark {

/// Dispatches the messages that wait in the calling thread's queue.
class Win32Idle : public Idle {
  public:
    /// Returns when the queue is empty. A request to quit is left for the host's own message loop.
    void yield() override;
};

}  // namespace pellmark
