#pragma once

#include "refhost/store/Connection.h"

namespace norvex {

/// Gives every process that lacks them its keys of the natural order. Cheap where none does. Throws
/// pellmark::Error when the file cannot be written.
void completeProcessKeys(Connection& connection);

/// The same for a connection that cannot write: while this lives, a complete table of keys in memory hides
/// the file's. Nothing is made where the file's is complete.
class ProcessKeysAside {
  public:
    explicit ProcessKeysAside(Connection& connection);
    ~ProcessKeysAside();
    ProcessKeysAside(const ProcessKeysAside&) = delete;
    ProcessKeysAside& operator=(const ProcessKeysAside&) = delete;

  private:
    Connection& connection_;
    bool isMade_ = false;
};

}  // namespace norvex
