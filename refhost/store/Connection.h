#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace norvex {

/// One open SQLite file with its prepared statements. Failures are thrown as pellmark::Error
/// (kKnowledgeBase) whose text names the file and says what to do. Used by one thread at a time.
class Connection {
  public:
    /// Opens the file for reading and writing, and creates it when `create` is set. The path is UTF-8.
    /// Nothing is read or written yet.
    Connection(std::string path, bool create, std::chrono::milliseconds busyTimeout);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    const std::string& path() const { return path_; }
    sqlite3* handle() const { return database_; }
    /// Runs statements that have no parameters and no wanted result.
    void execute(const char* sql);
    /// Rows that the last statement itself changed, triggers and cascades not counted.
    int changes() const;
    std::int64_t lastRow() const;
    /// The operating system opened the file for reading only.
    bool isReadOnly() const;
    bool inTransaction() const;
    /// While set, closing the connection leaves the file alone: the log beside it stays for the next one.
    void keepLogOnClose(bool keep);

    /// Throws the Error that belongs to a SQLite result code of this connection.
    [[noreturn]] void fail(int resultCode) const;

  private:
    friend class Statement;
    sqlite3_stmt* checkOut(const char* sql);
    void giveBack(const char* sql, sqlite3_stmt* statement) noexcept;

    std::string path_;
    sqlite3* database_ = nullptr;
    std::map<std::string, sqlite3_stmt*, std::less<>> idle_;  ///< prepared statements that nobody uses now
};

/// Everything between construction and commit() happens or none of it. Inside another transaction of the same
/// connection it is part of that one.
class Transaction {
  public:
    enum class Kind {
        Read,  ///< a stable view of the file
        Write  ///< takes the write lock at once, so that it cannot fail half-way for a lock
    };
    Transaction(Connection& connection, Kind kind);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void commit();

  private:
    Connection& connection_;
    bool open_;
};

/// The Error for a failure on a file; the path is UTF-8, `detail` SQLite's own words.
[[noreturn]] void throwFileError(const std::string& path, int resultCode, const std::string& detail);

}  // namespace norvex
