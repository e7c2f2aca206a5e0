#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace pellmark {

/// Files and folders as the component needs them. Paths are UTF-8 with "\" between folders. Operations that
/// fail throw Error with the classic numbers (52 bad name, 53 file not found, 70 permission denied, 76 path
/// not found and so on) and a text that names the path. The name of a device, with or without an extension
/// ("nul.csv"), is a bad name: what is written to it is lost, and what is read from it may never end.
class FileSystem {
  public:
    /// Bits of a directory entry, the system's own values.
    enum Attribute : std::uint32_t {
        kReadOnly = 1,
        kHidden = 2,
        kSystem = 4,
        kDirectory = 16,
        kArchive = 32,
        kReparsePoint = 0x400  ///< a link to another place, which a walk must not follow
    };

    struct Entry {
        std::string name;
        std::uint32_t attributes = 0;
        bool isFolder() const { return (attributes & kDirectory) != 0; }
    };

    virtual ~FileSystem() = default;

    /// Entries that match a path whose last part may be a pattern (* and ?), in the system's order, "." and
    /// ".." left out. Empty when there are none or the folder is missing.
    virtual std::vector<Entry> list(const std::string& pattern) = 0;
    virtual std::uint64_t size(const std::string& path) = 0;
    /// Up to count bytes from offset.
    virtual std::string read(const std::string& path, std::uint64_t offset, std::size_t count) = 0;
    /// Creates or replaces the file.
    virtual void write(const std::string& path, std::string_view bytes) = 0;
    /// Writes over the file's first bytes, creating it if needed and leaving what lies behind them.
    virtual void overwrite(const std::string& path, std::string_view bytes) = 0;
    virtual void append(const std::string& path, std::string_view bytes) = 0;
    /// Gives a file another name in the same folder, in the place of the file that may have it. Permission is
    /// denied when that one is read-only or open in another program; both files are then as they were.
    virtual void replace(const std::string& path, const std::string& newPath) = 0;
    virtual void remove(const std::string& path) = 0;
    /// The temporary folder as the system names it, with its trailing "\"; empty when that fails.
    virtual std::string temporaryFolder() = 0;
};

/// Lets the user interface breathe during long work.
class Idle {
  public:
    virtual ~Idle() = default;
    virtual void yield() = 0;
};

}  // namespace pellmark
