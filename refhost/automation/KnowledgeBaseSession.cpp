#include "refhost/automation/KnowledgeBaseSession.h"

#include "base/Text.h"
#include "refhost/automation/HostConfiguration.h"
#include "refhost/texts/HostError.h"
#include "refhost/windows/LocalDisk.h"

namespace norvex {

SqliteKnowledgeBaseService& KnowledgeBaseSession::service() {
    if (!service_) {
        if (path_ == configuration::defaultKnowledgeBaseFile()) configuration::makeFolderOf(path_);
        OpenOptions options;
        options.mapped = isOnLocalDisk(path_);
        service_ = std::make_unique<SqliteKnowledgeBaseService>(path_, options);
    }
    return *service_;
}

SqliteUserRights& KnowledgeBaseSession::userRights() {
    SqliteUserRights& rights = service().userRights();
    const std::string user = configuration::currentUser();
    if (!pellmark::equalNoCase(rights.currentUser(), user)) rights.setCurrentUser(user);
    return rights;
}

bool KnowledgeBaseSession::isAllowed(int operation) {
    if (!userRights().may(operation)) return false;
    if (!service().base()->isReadOnly()) return true;
    throw HostError(
        pellmark::errors::kKnowledgeBase, "Norvex.UserRights",
        Sentence(
            "The knowledge base is read-only: it can be looked at, but not changed. Remove the write "
            "protection of the file and its folder, or copy it to a folder that you may write to, and open "
            "it again."),
        path_);
}

}  // namespace norvex
