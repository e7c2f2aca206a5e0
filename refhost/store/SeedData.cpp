#include "store/SeedData.h"

#include "store/ModelWriter.h"
#include "store/SeedModel.h"
#include "store/SeedProcesses.h"
#include "store/SqliteKnowledgeBaseService.h"

namespace norvex {

void writeSeedData(const std::shared_ptr<KnowledgeBase>& base) {
    ModelWriter accounts(base->connection());
    accounts.addUser("Administrator", true, true, true);
    accounts.addUser("Programmer", true, true, false);
    accounts.addUser("Operator", false, false, false);

    const seed::SeedModel model(base->connection());
    SqliteKnowledgeBaseService service(base);
    seed::SeedProcesses(service, model).write();
}

}  // namespace norvex
