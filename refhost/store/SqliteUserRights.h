#pragma once

#include <memory>
#include <string>
#include <vector>

#include "knowledge/KnowledgeBaseService.h"
#include "refhost/store/KnowledgeBase.h"

namespace norvex {

/// What the current user may do, as the knowledge base's accounts say.
class SqliteUserRights : public pellmark::UserRights {
  public:
    explicit SqliteUserRights(std::shared_ptr<KnowledgeBase> base);

    /// Reads the account anew each time, so that a change of rights counts at once.
    bool may(int operation) override;

    /// "Administrator" at first.
    const std::string& currentUser() const { return user_; }
    /// Case is ignored. Throws pellmark::Error (kNotFound) when there is no such account.
    void setCurrentUser(const std::string& name);
    std::vector<std::string> users();

  private:
    std::shared_ptr<KnowledgeBase> base_;
    std::string user_;
};

}  // namespace norvex
