#include "host/CurrentHost.h"

#include "base/Error.h"

namespace pellmark {

HostApplication& CurrentHost::host() const {
    if (!host_) throw Error(errors::kHostInterface, "Pellmark", "No host object was handed in yet");
    return *host_;
}

}  // namespace pellmark
