#pragma once

#include <string>
#include <string_view>

#include "ports/FileSystem.h"

namespace pellmark {

/// A file that is written beside its place and takes it when it is whole: whatever goes wrong on the way, the
/// file that was there stays. What is not kept is removed in the end. Failures of the file port are thrown
/// on, except when removing.
class ReplacingFile {
  public:
    ReplacingFile(FileSystem& files, std::string path);
    ~ReplacingFile();
    ReplacingFile(const ReplacingFile&) = delete;
    ReplacingFile& operator=(const ReplacingFile&) = delete;

    void append(std::string_view bytes);
    /// Forgets what has been appended.
    void startAgain();
    /// Puts the file in its place.
    void keep();

  private:
    /// Runs it; a failure names the file that the person chose, whatever the one on the way is called.
    template <class Body>
    void naming(Body&& body) const;

    FileSystem& files_;
    std::string path_;
    std::string temporary_;
    bool kept_ = false;
};

}  // namespace pellmark
