#include "refhost/store/ProcessOrders.h"

#include <sqlite3.h>

#include <algorithm>
#include <limits>
#include <numeric>
#include <string_view>

#include "base/Text.h"
#include "knowledge/Records.h"
#include "refhost/store/Statement.h"

namespace norvex {

namespace field = pellmark::field;

namespace {

constexpr const char* kOwnOrder = "SELECT row FROM process ORDER BY name COLLATE NOCASE, id";
constexpr const char* kByUnit = "SELECT row FROM process ORDER BY unit, name COLLATE NOCASE, id";
constexpr const char* kById = "SELECT row FROM process ORDER BY id";

ProcessRows rowsOf(Connection& connection, const char* sql) {
    auto rows = std::make_shared<std::vector<std::uint32_t>>();
    Statement list(connection, sql);
    while (list.step())
        rows->push_back(rowNumber(connection, list.integer(0)));
    return rows;
}

/// Rows of equal keys stand in the list's own order: each key's rows are dealt out in that order to the
/// places that the key has. There must be one key for each row and no other: the file may have been anywhere.
ProcessRows rowsByKey(Connection& connection, const char* sql, const std::vector<std::uint32_t>& own) {
    constexpr std::uint32_t kNone = std::numeric_limits<std::uint32_t>::max();
    std::vector<std::uint32_t> keyOfRow;
    std::vector<std::uint32_t> places;  // how many rows have each key
    std::size_t keyed = 0;
    std::string last;
    Statement list(connection, sql);
    while (list.step()) {
        const std::uint32_t row = rowNumber(connection, list.integer(0));
        const std::string_view key = list.view(1);
        if (places.empty() || key != last) {
            places.push_back(0);
            last = key;
        }
        ++places.back();
        if (row >= keyOfRow.size()) keyOfRow.resize(row + std::size_t{1}, kNone);
        keyOfRow[row] = static_cast<std::uint32_t>(places.size() - 1);
        ++keyed;
    }
    const auto hasKey = [&](std::uint32_t row) { return row < keyOfRow.size() && keyOfRow[row] != kNone; };
    if (keyed != own.size() || !std::all_of(own.begin(), own.end(), hasKey))
        throw FileError(connection.path(), SQLITE_CORRUPT, {});
    std::exclusive_scan(places.begin(), places.end(), places.begin(), 0U);
    auto rows = std::make_shared<std::vector<std::uint32_t>>(own.size());
    for (const std::uint32_t row : own)
        (*rows)[places[keyOfRow[row]]++] = row;
    return rows;
}

const char* keysOf(const std::string& name) {
    if (pellmark::equalNoCase(name, field::kName))
        return "SELECT process, name FROM process_key ORDER BY name";
    if (pellmark::equalNoCase(name, field::kRule))
        return "SELECT process, rule FROM process_key ORDER BY rule";
    if (pellmark::equalNoCase(name, field::kDescription))
        return "SELECT process, description FROM process_key ORDER BY description";
    return nullptr;
}

}  // namespace

std::uint32_t rowNumber(const Connection& connection, std::int64_t row) {
    if (row >= 0 && row <= std::numeric_limits<std::uint32_t>::max()) return static_cast<std::uint32_t>(row);
    throw HostError(pellmark::errors::kKnowledgeBase, "KnowledgeBase",
                    Sentence("The knowledge base '%1' has used up its row numbers.", {connection.path()}));
}

std::int64_t ProcessOrders::state(Connection& connection) {
    Statement tally(connection, "SELECT value FROM tally WHERE name = 'process change'");
    return tally.step() ? tally.integer(0) : 0;
}

ProcessRows ProcessOrders::by(Connection& connection, const std::string& field) {
    Kept& kept = kept_[field];
    const std::int64_t now = state(connection);
    if (auto rows = kept.state == now ? kept.rows.lock() : nullptr) return rows;
    auto rows = read(connection, field);
    kept_[field] = {now, rows};
    return rows;
}

ProcessRows ProcessOrders::read(Connection& connection, const std::string& field) {
    if (pellmark::equalNoCase(field, pellmark::field::kUnit)) return rowsOf(connection, kByUnit);
    if (pellmark::equalNoCase(field, pellmark::field::kId)) return rowsOf(connection, kById);
    if (const char* keys = keysOf(field)) return rowsByKey(connection, keys, *by(connection, ""));
    return rowsOf(connection, kOwnOrder);
}

}  // namespace norvex
