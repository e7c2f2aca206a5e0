#include "store/SeedData.h"

#include "store/ModelWriter.h"

namespace norvex {

void writeSeedData(Connection& connection) {
    ModelWriter model(connection);
    model.addUser("Administrator", true, true, true);
    model.addUser("Programmer", true, true, false);
    model.addUser("Operator", false, false, false);
}

}  // namespace norvex
