#pragma once

#include "refhost/automation/AutomationObject.h"
#include "refhost/automation/KnowledgeBaseSession.h"

namespace norvex {

/// The technology steps of the knowledge base and their values for automation clients.
class ProcessStepStoreObject : public AutomationObject {
  public:
    explicit ProcessStepStoreObject(SharedSession session);

  private:
    void addSteps();
    void addValues();
    SqliteStepStore& store() { return session_->service().stepStore(); }
    pellmark::VariantArg step(const Arguments& arguments);
    pellmark::VariantArg technologySources(const Arguments& arguments);
    pellmark::VariantArg cuttingCycles(const Arguments& arguments);

    SharedSession session_;
};

}  // namespace norvex
