#pragma once

#include "refhost/automation/AutomationObject.h"
#include "refhost/automation/KnowledgeBaseSession.h"

namespace norvex {

/// The processes of the knowledge base for automation clients.
class ProcessStoreObject : public AutomationObject {
  public:
    explicit ProcessStoreObject(SharedSession session);

  private:
    void addQueries();
    void addChanges();
    SqliteProcessStore& store() { return session_->service().processStore(); }
    pellmark::VariantArg findProcesses(const Arguments& arguments);
    pellmark::VariantArg processRecords(const Arguments& arguments);

    SharedSession session_;
};

}  // namespace norvex
