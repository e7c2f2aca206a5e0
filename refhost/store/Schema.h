#pragma once

#include <span>

#include "refhost/store/Connection.h"

namespace norvex {

/// One step of the schema's history. A new version is one more entry at the end of migrations(); entries that
/// have been released never change.
struct Migration {
    int version;
    const char* sql;
};

/// In ascending order of versions, starting with 1.
std::span<const Migration> migrations();

/// The version that this program reads and writes.
int currentSchemaVersion();

/// The version of an open file; 0 for one without tables.
int schemaVersion(Connection& connection);

/// The file bears the mark of a knowledge base.
bool hasKnowledgeBaseMark(Connection& connection);

/// Brings the file to the last version of the list. Call inside a write transaction.
void migrate(Connection& connection, std::span<const Migration> list);

}  // namespace norvex
