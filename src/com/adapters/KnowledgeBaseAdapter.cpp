#include "com/adapters/KnowledgeBaseAdapter.h"

namespace pellmark {

bool UserRightsAdapter::may(int operation) {
    return call("IsAllowed", {static_cast<std::int32_t>(operation)}).boolean();
}

std::shared_ptr<RecordSet> MaterialStoreAdapter::materials() {
    return query("Materials");
}

KnowledgeBaseAdapter::KnowledgeBaseAdapter(DispatchObject service)
    : service_(std::make_shared<DispatchObject>(std::move(service))),
      rights_(service_),
      processes_(service_),
      featureCases_(service_),
      materials_(service_),
      steps_(service_) {}

bool KnowledgeBaseAdapter::isConnected() {
    return service_->call("IsConnected").boolean();
}

}  // namespace pellmark
