#pragma once

#include <vector>

#include "win32/controls/ControlPeer.h"

namespace pellmark {

/// The controls that one layout has moved: their windows follow together, so that nothing is painted twice.
class MovedPeers {
  public:
    bool isCollecting() const { return collecting_; }
    void begin() { collecting_ = true; }
    void add(ControlPeer& peer) { peers_.push_back(&peer); }
    /// Puts the windows of all that were added where their models say.
    void place();
    void forget() { peers_.clear(); }

  private:
    std::vector<ControlPeer*> peers_;
    bool collecting_ = false;
};

}  // namespace pellmark
