#include "refhost/store/FileCheck.h"

#include <sqlite3.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string_view>

#include "refhost/store/Schema.h"
#include "refhost/store/Statement.h"
#include "refhost/texts/HostError.h"

namespace norvex {

namespace {

namespace errors = pellmark::errors;

constexpr std::size_t kHeaderSize = 100;
constexpr std::string_view kMagic{"SQLite format 3\0", 16};

/// Up to this size every page is looked at when the file is opened; it takes some ten milliseconds.
constexpr std::int64_t kFullCheckBytes = std::int64_t{16} * 1024 * 1024;

using Header = std::array<unsigned char, kHeaderSize>;

std::uint32_t number(const Header& header, std::size_t at, std::size_t size) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < size; ++i)
        value = value * 256 + header[at + i];
    return value;
}

/// The size that the header promises, or 0 when it was written by a program that keeps no such promise.
std::uint64_t promisedSize(const Header& header) {
    const std::uint32_t pageSize = number(header, 16, 2) == 1 ? 65536 : number(header, 16, 2);
    const bool pageCountIsValid = number(header, 24, 4) == number(header, 92, 4);
    return pageCountIsValid ? std::uint64_t{pageSize} * number(header, 28, 4) : 0;
}

std::filesystem::path pathOf(const std::string& utf8) {
    return {std::u8string(utf8.begin(), utf8.end())};
}

void requireFolderOf(const std::filesystem::path& file, const std::string& path) {
    const std::filesystem::path folder = file.parent_path();
    std::error_code failure;
    if (folder.empty() || std::filesystem::is_directory(folder, failure)) return;
    const std::u8string name = folder.u8string();
    throw HostError(
        errors::kKnowledgeBase, "KnowledgeBase",
        Sentence("The knowledge base '%1' cannot be opened: there is no folder '%2'. Check the path, or "
                 "make the folder first.",
                 {path, std::string(name.begin(), name.end())}));
}

/// Something stands beside the file in which there may be what the file itself does not hold yet, or what
/// tells that a program has it open.
bool hasCompanions(const std::string& path) {
    std::error_code failure;
    const std::uintmax_t log = std::filesystem::file_size(pathOf(path + "-wal"), failure);
    return (!failure && log > 0) || std::filesystem::exists(pathOf(path + "-shm"), failure) ||
           std::filesystem::exists(pathOf(path + "-journal"), failure);
}

std::int64_t pragma(Connection& connection, const char* sql) {
    Statement statement(connection, sql);
    return statement.step() ? statement.integer(0) : 0;
}

void checkPages(Connection& connection) {
    const std::int64_t size =
        pragma(connection, "PRAGMA page_count") * pragma(connection, "PRAGMA page_size");
    if (size > kFullCheckBytes) return;
    Statement check(connection, "PRAGMA quick_check(1)");
    const bool sound = check.step() && check.view(0) == "ok";
    if (!sound) throw FileError(connection.path(), SQLITE_CORRUPT, {});
}

}  // namespace

FileKind checkHeader(const std::string& path) {
    const std::filesystem::path file = pathOf(path);
    std::error_code failure;
    if (!std::filesystem::exists(file, failure)) {
        requireFolderOf(file, path);
        return FileKind::Missing;
    }
    if (!std::filesystem::is_regular_file(file, failure)) throw FileError(path, SQLITE_CANTOPEN, {});
    const std::uintmax_t size = std::filesystem::file_size(file, failure);
    if (!failure && size == 0) return FileKind::Empty;

    Header header{};
    std::ifstream stream(file, std::ios::binary);
    // What keeps the file from being read here will keep SQLite from it too, and it knows why.
    if (failure || !stream) return FileKind::Database;
    stream.read(reinterpret_cast<char*>(header.data()), header.size());
    const std::string_view magic(reinterpret_cast<const char*>(header.data()), kMagic.size());
    if (!stream || magic != kMagic || size < promisedSize(header)) throw FileError(path, SQLITE_CORRUPT, {});
    return FileKind::Database;
}

bool isWriteProtected(const std::string& path) {
    using std::filesystem::perms;
    std::error_code failure;
    const auto status = std::filesystem::status(pathOf(path), failure);
    constexpr perms kAnybody = perms::owner_write | perms::group_write | perms::others_write;
    return !failure && std::filesystem::exists(status) && (status.permissions() & kAnybody) == perms::none;
}

Opening openingToLookAt(const std::string& path) {
    return hasCompanions(path) ? Opening::ReadOnly : Opening::Frozen;
}

void checkContents(Connection& connection) {
    const int version = schemaVersion(connection);
    const std::int64_t objects = pragma(connection, "SELECT count(*) FROM sqlite_master");
    const bool isEmpty = version == 0 && objects == 0;
    if (!isEmpty && !hasKnowledgeBaseMark(connection)) {
        throw HostError(
            errors::kKnowledgeBase, "KnowledgeBase",
            Sentence("'%1' is a database of another program and no knowledge base. It has been left as it "
                     "is; choose another file.",
                     {connection.path()}));
    }
    if (version > currentSchemaVersion()) {
        throw HostError(
            errors::kKnowledgeBase, "KnowledgeBase",
            Sentence("The knowledge base '%1' was written by a newer program (version %2, this one reads up "
                     "to %3). It has been left as it is; update this program.",
                     {connection.path(), std::to_string(version), std::to_string(currentSchemaVersion())}));
    }
    checkPages(connection);
}

}  // namespace norvex
