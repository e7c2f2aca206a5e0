#include "processes/AllProcesses.h"

#include "knowledge/ArrangedRecords.h"

namespace pellmark {

std::shared_ptr<RecordSet> AllProcesses::read(ListArrangement* arrangement) {
    ProcessStore& store = knowledgeBase_.processStore();
    if (arrangement == nullptr || arrangement->isPlain()) return store.processes("");
    if (auto found = store.findProcesses(arrangement->query())) {
        const std::size_t count = found->count();
        const bool more = found->hasMore();
        if (arrangement->isNarrowed()) arrangement->tellFound(count, store.processes("")->count(), more);
        return found;
    }
    // Every key that is typed would otherwise read the list anew.
    if (!kept_) kept_ = std::make_shared<KeptKeys>(store.processes(""));
    return arrangement->arranged(kept_);
}

}  // namespace pellmark
