#include "refhost/store/LockPatience.h"

namespace norvex {

namespace {

/// Less than a person needs to read why a command has failed and to try again.
constexpr std::chrono::seconds kSameCommand{1};

}  // namespace

bool LockPatience::mayWait(bool isFirstTry, Clock::time_point now) {
    if (isFirstTry) since_ = now;
    const bool waitedInVain = gaveUp_ && now - *gaveUp_ < kSameCommand;
    if (!waitedInVain && now - since_ < each_) return true;
    gaveUp_ = now;
    return false;
}

}  // namespace norvex
