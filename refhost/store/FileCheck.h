#pragma once

#include <string>

#include "refhost/store/Connection.h"

namespace norvex {

enum class FileKind { Missing, Empty, Database };

/// Looks at a file's header without SQLite, which would write beside what it opens. Throws pellmark::Error
/// (kKnowledgeBase) when the file is damaged or no database at all, or when there is not even its folder. The
/// path is UTF-8.
FileKind checkHeader(const std::string& path);

/// Nobody may write to the file, as its attributes say. That an administrator could all the same does not
/// count.
bool isWriteProtected(const std::string& path);

/// How an existing file can be read that is not to be written to.
Opening openingToLookAt(const std::string& path);

/// Throws pellmark::Error (kKnowledgeBase) when the open file is another program's, of a newer schema or
/// damaged. Changes nothing.
void checkContents(Connection& connection);

}  // namespace norvex
