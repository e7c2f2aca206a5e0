#include "contract/SqliteContractSubject.h"

#include "refhost/store/Statement.h"

namespace pellmark::test {

namespace {

norvex::OpenOptions withoutSampleData() {
    norvex::OpenOptions options;
    options.seed = false;
    options.mapped = true;
    return options;
}

}  // namespace

SqliteContractSubject::SqliteContractSubject()
    : path_(folder_.file("base.nkb")),
      first_(path_, withoutSampleData()),
      model_(first_.base()->connection()) {
    model_.addUser("Administrator", true, true, true);
}

KnowledgeBaseService& SqliteContractSubject::secondService() {
    if (!second_) second_ = std::make_unique<norvex::SqliteKnowledgeBaseService>(path_, withoutSampleData());
    return *second_;
}

void SqliteContractSubject::restrictUser(bool mayEdit, bool mayAdd, bool mayDelete) {
    norvex::Statement update(first_.base()->connection(),
                             "UPDATE user_account SET may_edit = ?, may_add = ?, may_delete = ?");
    update.bind(std::int64_t{mayEdit}).bind(std::int64_t{mayAdd}).bind(std::int64_t{mayDelete}).run();
}

}  // namespace pellmark::test
