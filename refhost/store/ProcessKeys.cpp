#include "refhost/store/ProcessKeys.h"

#include <cstdint>
#include <string>
#include <vector>

#include "base/NaturalOrder.h"
#include "refhost/store/Statement.h"

namespace norvex {

namespace {

/// So many at a time stand in memory.
constexpr std::int64_t kBatch = 10'000;

struct Keys {
    std::int64_t process;
    std::string name;
    std::string rule;
    std::string description;
};

std::vector<Keys> missingKeys(Connection& connection) {
    std::vector<Keys> missing;
    Statement list(connection,
                   "SELECT p.row, p.name, p.rule, p.description "
                   "FROM (SELECT process FROM process_key INDEXED BY process_key_missing "
                   "WHERE name IS NULL LIMIT ?) k JOIN process p ON p.row = k.process");
    list.bind(kBatch);
    while (list.step()) {
        missing.push_back({list.integer(0), pellmark::naturalKey(list.view(1)),
                           pellmark::naturalKey(list.view(2)), pellmark::naturalKey(list.view(3))});
    }
    return missing;
}

bool isComplete(Connection& connection) {
    Statement any(connection,
                  "SELECT 1 FROM process_key INDEXED BY process_key_missing WHERE name IS NULL LIMIT 1");
    return !any.step();
}

}  // namespace

void completeProcessKeys(Connection& connection) {
    if (isComplete(connection)) return;
    Transaction change(connection, Transaction::Kind::Write);
    for (auto missing = missingKeys(connection); !missing.empty(); missing = missingKeys(connection)) {
        Statement set(connection,
                      "UPDATE process_key SET name = CAST(? AS BLOB), rule = CAST(? AS BLOB), "
                      "description = CAST(? AS BLOB) WHERE process = ?");
        for (const Keys& each : missing) {
            set.bind(each.name).bind(each.rule).bind(each.description).bind(each.process).run();
            set.reset();
        }
    }
    change.commit();
}

}  // namespace norvex
