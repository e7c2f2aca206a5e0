#pragma once

#include <memory>

#include "knowledge/KnowledgeBaseService.h"
#include "util/ListArrangement.h"

namespace pellmark {

/// The records of the list of all processes, as a person wants them: searched and sorted by the knowledge
/// base where that can do it, in memory otherwise.
class AllProcesses {
  public:
    explicit AllProcesses(KnowledgeBaseService& knowledgeBase) : knowledgeBase_(knowledgeBase) {}

    /// Null stands for the whole list in its own order.
    std::shared_ptr<RecordSet> read(ListArrangement* arrangement);
    /// What has been read is out of date.
    void forget() { kept_.reset(); }

  private:
    KnowledgeBaseService& knowledgeBase_;
    std::shared_ptr<RecordSet> kept_;  ///< the whole list, while it is arranged in memory
};

}  // namespace pellmark
