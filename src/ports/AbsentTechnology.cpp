#include "ports/AbsentTechnology.h"

#include "base/Error.h"

namespace pellmark {

void AbsentTechnology::fail() const {
    throw Error(errors::kHostInterface, "Pellmark",
                "The host's technology service could not be created: " + reason_);
}

}  // namespace pellmark
