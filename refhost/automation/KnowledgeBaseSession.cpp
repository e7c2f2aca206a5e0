#include "refhost/automation/KnowledgeBaseSession.h"

#include "automation/Automation.h"
#include "base/Text.h"
#include "refhost/automation/HostConfiguration.h"

namespace norvex {

namespace {

/// What cannot be made is reported by the opening of the file, which names it.
void makeFolderOf(const std::string& path) {
    std::wstring folder = pellmark::toWide(path);
    for (std::size_t at = folder.find(L'\\'); at != std::wstring::npos; at = folder.find(L'\\', at + 1)) {
        CreateDirectoryW(folder.substr(0, at).c_str(), nullptr);
    }
}

}  // namespace

SqliteKnowledgeBaseService& KnowledgeBaseSession::service() {
    if (!service_) {
        makeFolderOf(path_);
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
