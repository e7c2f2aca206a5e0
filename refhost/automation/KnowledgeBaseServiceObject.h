#pragma once

#include "refhost/automation/AutomationObject.h"
#include "refhost/automation/KnowledgeBaseSession.h"

namespace norvex {

/// "Norvex.KnowledgeBaseService": the knowledge base that the configuration names at its creation.
class KnowledgeBaseServiceObject : public AutomationObject {
  public:
    KnowledgeBaseServiceObject();

  private:
    bool isConnected();

    SharedSession session_;
};

}  // namespace norvex
