#include "refhost/store/ProcessKeys.h"

#include <sqlite3.h>

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

ProcessKeysAside::ProcessKeysAside(Connection& connection) : connection_(connection) {
    if (isComplete(connection)) return;
    isMade_ = true;
    // Names without a schema mean the temporary one first.
    connection.execute(
        "DROP TABLE IF EXISTS temp.process_key;"
        "CREATE TEMP TABLE process_key (process INTEGER PRIMARY KEY, name BLOB, rule BLOB, description BLOB);"
        "CREATE INDEX temp.process_key_missing ON process_key (process) WHERE name IS NULL;"
        "INSERT INTO temp.process_key SELECT process, name, rule, description FROM main.process_key;");
    completeProcessKeys(connection);
}

ProcessKeysAside::~ProcessKeysAside() {
    if (isMade_) sqlite3_exec(connection_.handle(), "DROP TABLE temp.process_key", nullptr, nullptr, nullptr);
}

}  // namespace norvex
