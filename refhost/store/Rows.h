#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "refhost/store/Connection.h"

namespace norvex {

/// The row number behind a record's id; nothing when there is no such record. The table must have the columns
/// row and id.
std::optional<std::int64_t> findRow(Connection& connection, const std::string& table, const std::string& id);

/// As findRow, but throws pellmark::Error (kNotFound), calling the record what the user calls it.
std::int64_t requireRow(Connection& connection, const std::string& table, const std::string& what,
                        const std::string& id);

/// An id says nothing to a person, so the text has none.
[[noreturn]] void throwNotFound(const std::string& what);

}  // namespace norvex
