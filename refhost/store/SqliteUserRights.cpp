#include "refhost/store/SqliteUserRights.h"

#include <utility>

#include "refhost/store/Statement.h"

namespace norvex {

SqliteUserRights::SqliteUserRights(std::shared_ptr<KnowledgeBase> base)
    : base_(std::move(base)), user_("Administrator") {}

bool SqliteUserRights::may(int operation) {
    Statement account(base_->connection(),
                      "SELECT may_edit, may_add, may_delete FROM user_account WHERE name = ?");
    account.bind(user_);
    if (!account.step()) return false;
    switch (operation) {
        case pellmark::PermissionEdit:
            return account.integer(0) != 0;
        case pellmark::PermissionAdd:
            return account.integer(1) != 0;
        case pellmark::PermissionDelete:
            return account.integer(2) != 0;
        default:
            return false;
    }
}

void SqliteUserRights::setCurrentUser(const std::string& name) {
    Statement account(base_->connection(), "SELECT name FROM user_account WHERE name = ?");
    account.bind(name);
    if (!account.step()) {
        throw HostError(pellmark::errors::kNotFound, "KnowledgeBase",
                        Sentence("The knowledge base has no user '%1'.", {name}));
    }
    user_ = account.text(0);
}

std::vector<std::string> SqliteUserRights::users() {
    std::vector<std::string> names;
    Statement list(base_->connection(), "SELECT name FROM user_account ORDER BY name");
    while (list.step())
        names.push_back(list.text(0));
    return names;
}

}  // namespace norvex
