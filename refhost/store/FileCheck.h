#pragma once

#include <string>

#include "refhost/store/Connection.h"

namespace norvex {

enum class FileKind { Missing, Empty, Database };

/// Looks at a file's header without SQLite, which would write beside what it opens. Throws pellmark::Error
/// (kKnowledgeBase) when the file is damaged or no database at all. The path is UTF-8.
FileKind checkHeader(const std::string& path);

/// Throws pellmark::Error (kKnowledgeBase) when the open file is another program's, of a newer schema,
/// read-only or damaged. Changes nothing.
void checkContents(Connection& connection);

}  // namespace norvex
