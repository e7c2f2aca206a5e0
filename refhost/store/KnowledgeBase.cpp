#include "refhost/store/KnowledgeBase.h"

#include <thread>
#include <utility>

#include "refhost/store/CuttingData.h"
#include "refhost/store/FileCheck.h"
#include "refhost/store/ProcessKeys.h"
#include "refhost/store/Schema.h"
#include "refhost/store/SeedData.h"
#include "refhost/store/Statement.h"

namespace norvex {

namespace {

/// One list on the screen and one that is about to take its place.
constexpr std::size_t kIdleReaders = 2;

}  // namespace

std::shared_ptr<KnowledgeBase> KnowledgeBase::open(const std::string& path, const OpenOptions& options) {
    const FileKind kind = checkHeader(path);
    if (isWriteProtected(path)) return openToLookAt(path, options);
    try {
        const Opening opening = kind == FileKind::Database ? Opening::Existing : Opening::Create;
        std::shared_ptr<KnowledgeBase> base(new KnowledgeBase(path, opening, options));
        base->prepare();
        return base;
    } catch (const FileError& error) {
        // Which rights there are on the file and its folder shows only when SQLite needs them.
        if (kind == FileKind::Missing || !error.deniesWriting()) throw;
    }
    return openToLookAt(path, options);
}

std::shared_ptr<KnowledgeBase> KnowledgeBase::openToLookAt(const std::string& path,
                                                           const OpenOptions& options) {
    std::shared_ptr<KnowledgeBase> base(new KnowledgeBase(path, openingToLookAt(path), options));
    const int version = schemaVersion(base->connection_);
    if (version == currentSchemaVersion()) return base;
    if (version == 0) {
        throw HostError(
            pellmark::errors::kKnowledgeBase, "KnowledgeBase",
            Sentence("The knowledge base '%1' is empty and cannot be brought up to date, because it is "
                     "read-only. Remove the write protection of the file and its folder, or copy it to a "
                     "folder that you may write to, and open it again.",
                     {path}));
    }
    throw HostError(
        pellmark::errors::kKnowledgeBase, "KnowledgeBase",
        Sentence(
            "The knowledge base '%1' was written by an older program (version %2, this one needs %3) and "
            "cannot be brought up to date, because it is read-only. Remove the write protection of the file "
            "and its folder, or copy it to a folder that you may write to, and open it again.",
            {path, std::to_string(version), std::to_string(currentSchemaVersion())}));
}

KnowledgeBase::KnowledgeBase(const std::string& path, Opening opening, const OpenOptions& options)
    : options_(options), opening_(opening), connection_(path, opening, options.busyTimeout) {
    // A log that a killed process has left would otherwise be written into a file that is then refused.
    connection_.keepLogOnClose(true);
    checkContents(connection_);
    connection_.keepLogOnClose(isReadOnly());
}

void KnowledgeBase::prepare() {
    useWriteAheadLog(options_.busyTimeout);
    if (schemaVersion(connection_) == currentSchemaVersion()) return;
    Transaction change(connection_, Transaction::Kind::Write);
    // Another process may have been faster while this one waited for the lock.
    const int version = schemaVersion(connection_);
    migrate(connection_, migrations());
    if (version == 0 && options_.seed) writeSeedData(shared_from_this());
    // The table of speeds and feeds came with the second version.
    if (version == 1) writeCuttingData(connection_);
    // The natural order came with the third.
    completeProcessKeys(connection_);
    change.commit();
}

void KnowledgeBase::useWriteAheadLog(std::chrono::milliseconds patience) {
    const auto giveUp = std::chrono::steady_clock::now() + patience;
    while (true) {
        try {
            connection_.execute("PRAGMA journal_mode = WAL");
            return;
        } catch (const pellmark::Error&) {
            // SQLite does not wait by itself here when two processes create the file at once.
            if (std::chrono::steady_clock::now() >= giveUp) throw;
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
    }
}

std::shared_ptr<Connection> KnowledgeBase::borrowReader() {
    std::unique_ptr<Connection> reader;
    if (idleReaders_.empty()) {
        const Opening opening = isReadOnly() ? opening_ : Opening::Existing;
        reader = std::make_unique<Connection>(path(), opening, options_.busyTimeout);
        if (options_.mapped) reader->readAsMemory();
    } else {
        reader = std::move(idleReaders_.back());
        idleReaders_.pop_back();
    }
    return {reader.release(), [owner = weak_from_this()](Connection* borrowed) {
                std::unique_ptr<Connection> returned(borrowed);
                const auto base = owner.lock();
                if (!base || base->idleReaders_.size() >= kIdleReaders) return;
                base->idleReaders_.push_back(std::move(returned));
            }};
}

}  // namespace norvex
