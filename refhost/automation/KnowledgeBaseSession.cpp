#include "refhost/automation/KnowledgeBaseSession.h"

#include "base/Text.h"
#include "refhost/automation/HostConfiguration.h"

namespace norvex {

SqliteKnowledgeBaseService& KnowledgeBaseSession::service() {
    if (!service_) {
        configuration::makeFolderOf(path_);
        service_ = std::make_unique<SqliteKnowledgeBaseService>(path_);
    }
    return *service_;
}

SqliteUserRights& KnowledgeBaseSession::userRights() {
    SqliteUserRights& rights = service().userRights();
    const std::string user = configuration::currentUser();
    if (!pellmark::equalNoCase(rights.currentUser(), user)) rights.setCurrentUser(user);
    return rights;
}

}  // namespace norvex
