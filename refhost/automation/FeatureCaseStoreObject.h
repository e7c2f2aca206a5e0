#pragma once

#include "refhost/automation/AutomationObject.h"
#include "refhost/automation/KnowledgeBaseSession.h"

namespace norvex {

/// The feature cases of the knowledge base, and the model behind their filters, for automation clients.
class FeatureCaseStoreObject : public AutomationObject {
  public:
    explicit FeatureCaseStoreObject(SharedSession session);

  private:
    void addCases();
    void addModel();
    SqliteFeatureCaseStore& store() { return session_->service().featureCaseStore(); }
    pellmark::VariantArg processesOfValues(const Arguments& arguments);
    pellmark::VariantArg matches(const Arguments& arguments);

    SharedSession session_;
};

}  // namespace norvex
