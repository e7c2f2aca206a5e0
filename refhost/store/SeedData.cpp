#include "refhost/store/SeedData.h"

#include "refhost/store/CuttingData.h"
#include "refhost/store/ModelWriter.h"
#include "refhost/store/SeedModel.h"
#include "refhost/store/SeedProcesses.h"
#include "refhost/store/SqliteKnowledgeBaseService.h"

namespace norvex {

void writeSeedData(const std::shared_ptr<KnowledgeBase>& base) {
    ModelWriter accounts(base->connection());
    accounts.addUser("Administrator", true, true, true);
    accounts.addUser("Programmer", true, true, false);
    accounts.addUser("Operator", false, false, false);

    writeCuttingData(base->connection());
    const seed::SeedModel model(base->connection());
    SqliteKnowledgeBaseService service(base);
    seed::SeedProcesses(service, model).write();
}

}  // namespace norvex
