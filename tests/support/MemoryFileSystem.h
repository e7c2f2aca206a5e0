#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "ports/FileSystem.h"

namespace pellmark::test {

/// Files and folders in memory: paths with "\" and without case, wildcard listings in the order of names,
/// errors as the real port throws them. Counts what is read.
class MemoryFileSystem : public FileSystem {
  public:
    std::vector<Entry> list(const std::string& pattern) override;
    std::uint64_t size(const std::string& path) override;
    std::string read(const std::string& path, std::uint64_t offset, std::size_t count) override;
    void write(const std::string& path, std::string_view bytes) override;
    void overwrite(const std::string& path, std::string_view bytes) override;
    void append(const std::string& path, std::string_view bytes) override;
    void replace(const std::string& path, const std::string& newPath) override;
    void remove(const std::string& path) override;
    std::string temporaryFolder() override { return temporary; }

    /// For tests.
    std::string temporary = "C:\\Temp\\";  ///< made by the constructor
    int reads = 0;                         ///< calls of read
    std::vector<std::size_t> readSizes;    ///< bytes asked for, call by call

    MemoryFileSystem();
    /// Makes a folder and those above it.
    void makeFolder(const std::string& path, std::uint32_t attributes = 0);
    /// Makes a file and the folders above it.
    void makeFile(const std::string& path, const std::string& bytes = "",
                  std::uint32_t attributes = kArchive);
    /// Sets the attributes of what must exist; a folder stays one.
    void setAttributes(const std::string& path, std::uint32_t attributes);
    bool has(const std::string& path);
    /// The bytes of a file that must exist, without counting as a read.
    std::string contents(const std::string& path);
    /// Another program has the file open, so that it can be neither written nor replaced; false ends that.
    void openElsewhere(const std::string& path, bool open = true);
    /// The medium takes so many more bytes, and then no more.
    void setRoom(std::size_t bytes) { room_ = bytes; }
    /// Makes every call of the port throw as if the medium were gone; false ends that.
    void breakDown(bool broken) { broken_ = broken; }

  private:
    struct Node {
        Entry entry;
        std::string bytes;
        bool openElsewhere = false;
        std::map<std::string, std::shared_ptr<Node>> children;  ///< by name in lower case
    };

    Node* find(const std::string& path);
    Node& folder(const std::string& path, bool create);
    Node& file(const std::string& path);
    Node& fileToWrite(const std::string& path);
    void checkName(const std::string& path) const;
    void checkUsable() const;

    Node root_;
    bool broken_ = false;
    std::size_t room_ = SIZE_MAX;
};

}  // namespace pellmark::test
