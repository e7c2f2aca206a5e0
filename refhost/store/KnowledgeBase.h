#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "refhost/store/Connection.h"

namespace norvex {

struct OpenOptions {
    /// How long a call waits for another process that is writing.
    std::chrono::milliseconds busyTimeout{5000};
    /// A new file gets the sample data.
    bool seed = true;
    /// Lists and searches read the file as memory, several times as fast where a call of the system is dear.
    /// Only for a disk of this machine: what cannot be read there ends the program instead of a call.
    bool mapped = false;
};

/// A knowledge base file that is open. Several processes may have the same file open; each change is on disk
/// when its call returns. Used by one thread at a time.
class KnowledgeBase : public std::enable_shared_from_this<KnowledgeBase> {
  public:
    /// Opens the file, creating it where there is none and bringing an older one up to date. One that may not
    /// be written to, or whose folder may not, is opened to be looked at. The path is UTF-8. Throws
    /// pellmark::Error (kKnowledgeBase), naming the file and what to do, when it is damaged, locked, another
    /// program's, of a newer schema, or read-only and of an older one, or when its folder does not exist; the
    /// file is then left byte for byte as it was.
    static std::shared_ptr<KnowledgeBase> open(const std::string& path, const OpenOptions& options = {});

    const std::string& path() const { return connection_.path(); }
    /// Changes fail, with a text that says what to do. Nothing is written beside the file. What another
    /// program writes to it meanwhile is seen when it is opened again.
    bool isReadOnly() const { return opening_ == Opening::ReadOnly || opening_ == Opening::Frozen; }
    /// The connection for changes and short answers.
    Connection& connection() { return connection_; }
    /// A connection of its own for an answer that is read over some time; it comes back by itself.
    std::shared_ptr<Connection> borrowReader();

  private:
    KnowledgeBase(const std::string& path, Opening opening, const OpenOptions& options);
    static std::shared_ptr<KnowledgeBase> openToLookAt(const std::string& path, const OpenOptions& options);
    void prepare();
    void useWriteAheadLog(std::chrono::milliseconds patience);

    OpenOptions options_;
    Opening opening_;
    Connection connection_;
    std::vector<std::unique_ptr<Connection>> idleReaders_;
};

}  // namespace norvex
