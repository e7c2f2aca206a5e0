#pragma once

#include <memory>
#include <string>

#include "refhost/store/SqliteKnowledgeBaseService.h"

namespace norvex {

/// The knowledge base behind one service object. It is opened by the first call that needs it, and tried
/// again by later ones while it cannot be opened: another program may have let go of the file.
class KnowledgeBaseSession {
  public:
    /// `path` is UTF-8.
    explicit KnowledgeBaseSession(std::string path) : path_(std::move(path)) {}

    /// Throws pellmark::Error (kKnowledgeBase), with a text for the user, when it cannot be opened.
    SqliteKnowledgeBaseService& service();

    /// Whether the user that counts at this moment may change the knowledge base so. Where it is read-only,
    /// what an account allows cannot be done: throws pellmark::Error (kKnowledgeBase) with a text for the
    /// user.
    bool isAllowed(int operation);

  private:
    SqliteUserRights& userRights();

    std::string path_;
    std::unique_ptr<SqliteKnowledgeBaseService> service_;
};

using SharedSession = std::shared_ptr<KnowledgeBaseSession>;

}  // namespace norvex
