#include "refhost/store/Rows.h"

#include <utility>

#include "refhost/store/Statement.h"

namespace norvex {

std::optional<std::int64_t> findRow(Connection& connection, const std::string& table, const std::string& id) {
    const auto guid = pellmark::Guid::parse(id);
    if (!guid) return std::nullopt;
    Statement find(connection, "SELECT row FROM " + table + " WHERE id = ?");
    find.bind(*guid);
    return find.step() ? std::optional(find.integer(0)) : std::nullopt;
}

std::int64_t requireRow(Connection& connection, const RecordKind& kind, const std::string& id) {
    const auto row = findRow(connection, kind.table, id);
    if (!row) throwNotFound(Sentence(kind.gone));
    return *row;
}

void throwNotFound(Sentence gone) {
    throw HostError(pellmark::errors::kNotFound, "KnowledgeBase",
                    Sentence("%1 It may have been deleted by somebody else. Refresh the list and try again.",
                             {std::move(gone)}));
}

}  // namespace norvex
