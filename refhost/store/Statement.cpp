#include "refhost/store/Statement.h"

#include <sqlite3.h>

#include <cstring>
#include <utility>

namespace norvex {

using pellmark::Guid;

Statement::Statement(Connection& connection, std::string sql)
    : connection_(connection), sql_(std::move(sql)), statement_(connection.checkOut(sql_.c_str())) {}

Statement::~Statement() {
    connection_.giveBack(sql_.c_str(), statement_);
}

void Statement::check(int result) const {
    if (result != SQLITE_OK) connection_.fail(result);
}

Statement& Statement::bind(std::int64_t value) {
    check(sqlite3_bind_int64(statement_, next_++, value));
    return *this;
}

Statement& Statement::bind(double value) {
    check(sqlite3_bind_double(statement_, next_++, value));
    return *this;
}

Statement& Statement::bind(std::string_view text) {
    // A null pointer would bind NULL, and an empty view may have one.
    check(sqlite3_bind_text64(statement_, next_++, text.empty() ? "" : text.data(), text.size(),
                              SQLITE_STATIC, SQLITE_UTF8));
    return *this;
}

Statement& Statement::bind(const Guid& id) {
    check(sqlite3_bind_blob(statement_, next_++, id.bytes.data(), static_cast<int>(id.bytes.size()),
                            SQLITE_TRANSIENT));
    return *this;
}

Statement& Statement::bindNull() {
    check(sqlite3_bind_null(statement_, next_++));
    return *this;
}

Statement& Statement::bindId(const std::string& id) {
    const auto guid = Guid::parse(id);
    return guid ? bind(*guid) : bindNull();
}

bool Statement::step() {
    const int result = sqlite3_step(statement_);
    if (result == SQLITE_ROW) return true;
    if (result == SQLITE_DONE) return false;
    connection_.fail(result);
}

void Statement::run() {
    while (step()) {
    }
}

void Statement::reset() {
    sqlite3_reset(statement_);
    next_ = 1;
}

bool Statement::isNull(int column) const {
    return sqlite3_column_type(statement_, column) == SQLITE_NULL;
}

std::int64_t Statement::integer(int column) const {
    return sqlite3_column_int64(statement_, column);
}

double Statement::real(int column) const {
    return sqlite3_column_double(statement_, column);
}

std::string_view Statement::view(int column) const {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
    if (!text) return {};
    return {text, static_cast<std::size_t>(sqlite3_column_bytes(statement_, column))};
}

Guid Statement::guid(int column) const {
    Guid id;
    const void* blob = sqlite3_column_blob(statement_, column);
    if (blob && sqlite3_column_bytes(statement_, column) == static_cast<int>(id.bytes.size())) {
        std::memcpy(id.bytes.data(), blob, id.bytes.size());
    }
    return id;
}

std::string Statement::id(int column) const {
    const Guid found = guid(column);
    return found == Guid{} ? std::string() : found.text();
}

}  // namespace norvex
