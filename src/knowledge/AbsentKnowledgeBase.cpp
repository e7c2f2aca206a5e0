#include "knowledge/AbsentKnowledgeBase.h"

#include "base/Error.h"

namespace pellmark {

void AbsentKnowledgeBase::fail() const {
    throw Error(errors::kKnowledgeBase, "Pellmark",
                "The host's knowledge-base service could not be created: " + reason_);
}

}  // namespace pellmark
