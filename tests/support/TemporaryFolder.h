#pragma once

#include <string>

namespace pellmark::test {

/// A folder of its own for one test, removed with everything in it at the end.
class TemporaryFolder {
  public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    /// UTF-8, without a separator at the end.
    const std::string& path() const { return path_; }
    /// The path of a file in the folder.
    std::string file(const std::string& name) const;

  private:
    std::string path_;
};

/// The whole file; fails the test when it cannot be read. The path is UTF-8.
std::string readFile(const std::string& path);
void writeFile(const std::string& path, const std::string& bytes);

}  // namespace pellmark::test
