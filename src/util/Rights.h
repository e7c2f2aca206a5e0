#pragma once

#include "knowledge/KnowledgeBaseService.h"
#include "util/UserInterface.h"

namespace pellmark {

/// The check before every change.
class Rights {
  public:
    Rights(KnowledgeBaseService& knowledgeBase, const UserInterface& person)
        : knowledgeBase_(knowledgeBase), person_(person) {}

    /// Asks the knowledge base whether the current user may perform the operation (Permission); tells the
    /// user when not. Throws when the knowledge base cannot say.
    bool CheckPermission(int operation);

  private:
    KnowledgeBaseService& knowledgeBase_;
    UserInterface person_;
};

}  // namespace pellmark
