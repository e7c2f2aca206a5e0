#include "refhost/store/Rows.h"

#include "base/Error.h"
#include "refhost/store/Statement.h"

namespace norvex {

std::optional<std::int64_t> findRow(Connection& connection, const std::string& table, const std::string& id) {
    const auto guid = pellmark::Guid::parse(id);
    if (!guid) return std::nullopt;
    Statement find(connection, "SELECT row FROM " + table + " WHERE id = ?");
    find.bind(*guid);
    return find.step() ? std::optional(find.integer(0)) : std::nullopt;
}

std::int64_t requireRow(Connection& connection, const std::string& table, const std::string& what,
                        const std::string& id) {
    const auto row = findRow(connection, table, id);
    if (!row) throwNotFound(what);
    return *row;
}

void throwNotFound(const std::string& what) {
    throw pellmark::Error(
        pellmark::errors::kNotFound, "KnowledgeBase",
        "The " + what +
            " no longer exists; it may have been deleted by somebody else. Refresh the list and try again.");
}

}  // namespace norvex
