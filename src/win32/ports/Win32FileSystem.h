#pragma once

#include "ports/CodePage.h"
#include "ports/FileSystem.h"

namespace pellmark {

/// Files and folders through the system's UTF-16 functions, so that every name can be reached whatever the
/// code page; paths may be longer than the system's classic limit of 260 characters.
class Win32FileSystem : public FileSystem {
  public:
    /// The code page is that of the temporary folder's name and must outlive this object.
    explicit Win32FileSystem(const CodePage& codePage) : codePage_(codePage) {}

    std::vector<Entry> list(const std::string& pattern) override;
    std::uint64_t size(const std::string& path) override;
    std::string read(const std::string& path, std::uint64_t offset, std::size_t count) override;
    void write(const std::string& path, std::string_view bytes) override;
    void overwrite(const std::string& path, std::string_view bytes) override;
    void append(const std::string& path, std::string_view bytes) override;
    void replace(const std::string& path, const std::string& newPath) override;
    void remove(const std::string& path) override;
    /// Asked of the single-byte function with room for 255 characters, cut at the first zero.
    std::string temporaryFolder() override;

  private:
    const CodePage& codePage_;
};

}  // namespace pellmark
