#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "refhost/store/LockPatience.h"
#include "refhost/texts/HostError.h"

struct sqlite3;
struct sqlite3_stmt;

namespace norvex {

/// A failure on the file of a knowledge base (kKnowledgeBase).
class FileError : public HostError {
  public:
    /// `resultCode` and `detail` are SQLite's; the detail stands as it is in every language.
    FileError(const std::string& path, int resultCode, const std::string& detail);

    /// What failed was writing, or what SQLite must be able to write for it; reading may still be possible.
    bool deniesWriting() const;

  private:
    int resultCode_;
};

enum class Opening {
    Existing,  ///< for reading and writing
    Create,    ///< the same; a missing file is made
    ReadOnly,  ///< beside a log that others keep or have left
    Frozen     ///< reads a file that nobody writes to, and leaves nothing beside it
};

/// One open SQLite file with its prepared statements. Failures are thrown as pellmark::Error
/// (kKnowledgeBase) whose text names the file and says what to do. Used by one thread at a time.
class Connection {
  public:
    /// Opens the file; its path is UTF-8. One that is to be written to and cannot be is refused before
    /// anything of it is read, because reading alone would leave files beside it.
    Connection(std::string path, Opening opening, std::chrono::milliseconds busyTimeout);
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
    bool inTransaction() const;
    /// While set, closing the connection leaves the file alone: the log beside it stays for the next one.
    void keepLogOnClose(bool keep);
    /// From now on as much of the file as SQLite can map is read as memory.
    void readAsMemory();

    /// Throws the Error that belongs to a SQLite result code of this connection.
    [[noreturn]] void fail(int resultCode) const;

  private:
    friend class Statement;
    void prepare(Opening opening);
    static int waitForLock(void* patience, int tries);
    sqlite3_stmt* checkOut(const char* sql);
    void giveBack(const char* sql, sqlite3_stmt* statement) noexcept;

    std::string path_;
    LockPatience patience_;
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

}  // namespace norvex
