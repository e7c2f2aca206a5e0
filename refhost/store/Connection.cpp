#include "refhost/store/Connection.h"

#include <sqlite3.h>

#include <thread>
#include <utility>

#include "base/Text.h"

namespace norvex {

namespace {

/// A base of a million processes has some 200 MB; what a refresh touches of it fits into 64 MiB, and reading
/// it again from the file costs ten times as much.
constexpr const char* kSettings =
    "PRAGMA foreign_keys = ON;"
    "PRAGMA cache_size = -65536;"
    "PRAGMA temp_store = MEMORY;"
    // A killed process loses nothing with this; only a power failure may take the last moments, and it never
    // damages the file.
    "PRAGMA synchronous = NORMAL;";

/// A file may come from anywhere, and a schema can hold more than tables: views and triggers that call what
/// they should not, and statements that damage the file on purpose.
void refuseWhatNoFileNeeds(sqlite3* database) {
    sqlite3_db_config(database, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
}

Sentence adviceFor(const std::string& path, int resultCode, const std::string& detail) {
    switch (resultCode & 0xFF) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return Sentence(
                "The knowledge base '%1' is in use by another program that does not let go of it. Try "
                "again, or close the other program.",
                {path});
        case SQLITE_NOTADB:
        case SQLITE_CORRUPT:
            return Sentence(
                "The knowledge base '%1' is damaged or not a knowledge base. It has been left as it is; "
                "restore it from a backup.",
                {path});
        case SQLITE_READONLY:
            return Sentence(
                "The knowledge base '%1' is read-only: it can be looked at, but not changed. Remove the "
                "write protection of the file and its folder, or copy it to a folder that you may write to, "
                "and open it again.",
                {path});
        case SQLITE_CANTOPEN:
            return Sentence(
                "The knowledge base '%1' cannot be opened. Check that it is a file, and that you may read "
                "and write it and its folder.",
                {path});
        case SQLITE_FULL:
            return Sentence(
                "The knowledge base '%1' cannot grow because the disk is full. Make room and try again.",
                {path});
        case SQLITE_IOERR:
            return Sentence(
                "The knowledge base '%1' cannot be read or written (%2). Check the disk or the network "
                "drive.",
                {path, detail});
        default:
            return Sentence("The knowledge base '%1' could not be used (%2).", {path, detail});
    }
}

bool isToBeWritten(Opening opening) {
    return opening == Opening::Existing || opening == Opening::Create;
}

int flagsOf(Opening opening) {
    int flags = SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;
    flags |= isToBeWritten(opening) ? SQLITE_OPEN_READWRITE : SQLITE_OPEN_READONLY;
    if (opening == Opening::Create) flags |= SQLITE_OPEN_CREATE;
    if (opening == Opening::Frozen) flags |= SQLITE_OPEN_URI;
    return flags;
}

/// The file as an address that says that nobody writes to it: SQLite then takes no locks and keeps no log,
/// for which it would make files in the folder.
std::string frozenAddress(const std::string& path) {
    std::string address;
    for (const char c : path) {
        if (c == '%' || c == '?' || c == '#') {
            constexpr std::string_view kDigits = "0123456789ABCDEF";
            address += {'%', kDigits[static_cast<unsigned char>(c) / 16],
                        kDigits[static_cast<unsigned char>(c) % 16]};
        } else {
            address += c;
        }
    }
    const bool hasDrive = address.find(":\\") == 1 || address.find(":/") == 1;
    if (hasDrive) address.insert(0, "/");
    if (hasDrive || address.starts_with("\\\\")) address = pellmark::replaced(address, '\\', '/');
    const char* const authority = address.starts_with('/') ? "//" : "";
    return "file:" + (authority + address) + "?immutable=1";
}

}  // namespace

FileError::FileError(const std::string& path, int resultCode, const std::string& detail)
    : HostError(pellmark::errors::kKnowledgeBase, "KnowledgeBase", adviceFor(path, resultCode, detail)),
      resultCode_(resultCode) {}

bool FileError::deniesWriting() const {
    const int code = resultCode_ & 0xFF;
    return code == SQLITE_READONLY || code == SQLITE_CANTOPEN || code == SQLITE_PERM;
}

Connection::Connection(std::string path, Opening opening, std::chrono::milliseconds busyTimeout)
    : path_(std::move(path)), patience_(busyTimeout) {
    const std::string address = opening == Opening::Frozen ? frozenAddress(path_) : path_;
    const int result = sqlite3_open_v2(address.c_str(), &database_, flagsOf(opening), nullptr);
    if (result != SQLITE_OK) {
        const std::string detail = database_ ? sqlite3_errmsg(database_) : "out of memory";
        sqlite3_close_v2(std::exchange(database_, nullptr));
        throw FileError(path_, result, detail);
    }
    sqlite3_busy_handler(database_, &waitForLock, &patience_);
    try {
        prepare(opening);
    } catch (...) {
        sqlite3_close_v2(std::exchange(database_, nullptr));
        throw;
    }
}

int Connection::waitForLock(void* patience, int tries) {
    constexpr std::chrono::milliseconds kPause{10};
    if (!static_cast<LockPatience*>(patience)->mayWait(tries == 0, LockPatience::Clock::now())) return 0;
    std::this_thread::sleep_for(kPause);
    return 1;
}

void Connection::prepare(Opening opening) {
    if (isToBeWritten(opening) && sqlite3_db_readonly(database_, "main") == 1)
        throw FileError(path_, SQLITE_READONLY, {});
    refuseWhatNoFileNeeds(database_);
    if (!isToBeWritten(opening)) keepLogOnClose(true);
    execute(kSettings);
}

Connection::~Connection() {
    for (const auto& [sql, statement] : idle_)
        sqlite3_finalize(statement);
    sqlite3_close_v2(database_);
}

void Connection::execute(const char* sql) {
    const int result = sqlite3_exec(database_, sql, nullptr, nullptr, nullptr);
    if (result != SQLITE_OK) fail(result);
}

int Connection::changes() const {
    return sqlite3_changes(database_);
}

std::int64_t Connection::lastRow() const {
    return sqlite3_last_insert_rowid(database_);
}

bool Connection::inTransaction() const {
    return sqlite3_get_autocommit(database_) == 0;
}

void Connection::keepLogOnClose(bool keep) {
    sqlite3_db_config(database_, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, keep ? 1 : 0, nullptr);
}

void Connection::readAsMemory() {
    execute("PRAGMA mmap_size = 2147418112");  // the most that SQLite takes
}

void Connection::fail(int resultCode) const {
    throw FileError(path_, resultCode, sqlite3_errmsg(database_));
}

sqlite3_stmt* Connection::checkOut(const char* sql) {
    const auto at = idle_.find(std::string_view(sql));
    if (at != idle_.end() && at->second) return std::exchange(at->second, nullptr);
    sqlite3_stmt* statement = nullptr;
    const int result = sqlite3_prepare_v3(database_, sql, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    if (result != SQLITE_OK) fail(result);
    return statement;
}

void Connection::giveBack(const char* sql, sqlite3_stmt* statement) noexcept {
    sqlite3_reset(statement);
    sqlite3_clear_bindings(statement);
    try {
        sqlite3_stmt*& idle = idle_[sql];
        if (!idle) {
            idle = statement;
            return;
        }
    } catch (...) {  // without memory to keep it, it is prepared anew the next time
    }
    sqlite3_finalize(statement);
}

Transaction::Transaction(Connection& connection, Kind kind)
    : connection_(connection), open_(!connection.inTransaction()) {
    if (open_) connection_.execute(kind == Kind::Write ? "BEGIN IMMEDIATE" : "BEGIN");
}

Transaction::~Transaction() {
    // A failed statement may have ended the transaction by itself.
    if (open_ && connection_.inTransaction()) {
        sqlite3_exec(connection_.handle(), "ROLLBACK", nullptr, nullptr, nullptr);
    }
}

void Transaction::commit() {
    if (!open_) return;
    connection_.execute("COMMIT");
    open_ = false;
}

}  // namespace norvex
