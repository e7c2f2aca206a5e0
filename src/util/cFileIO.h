#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/Trace.h"
#include "base/Variant.h"
#include "ports/CodePage.h"
#include "ports/FileSystem.h"

namespace pellmark {

/// Text-file and folder helpers. A file is read or written whole, as plain text in the system's single-byte
/// code page, and is closed again before the operation returns. No operation throws: a failure is traced and
/// ends it with what it has so far, "" or false.
class cFileIO {
  public:
    /// The ports must outlive this object.
    cFileIO(FileSystem& files, const CodePage& codePage, Idle& idle, Trace& trace);

    /// The pieces between carriage returns and line feeds, empty ones dropped.
    std::vector<std::string> GetStringLineCollection(const std::string& text) const;

    /// The path with \ / : * ? " < > | and control characters removed from its name, the part behind the last
    /// "\"; the folder stays as it is.
    std::string ValidateFileName(const std::string& path) const;

    /// The file's lines in order, blank ones dropped.
    std::vector<std::string> GetFileLineCollection(const std::string& path) const;

    /// Writes bytes over the file's first ones, creating it if needed; what lies behind them stays.
    void WriteBinaryFile(const std::string& path, const ByteArray& data) const;

    /// The file's lines, joined by CR LF with none behind the last: a file that ends in a line break and one
    /// that does not read the same.
    std::string GetFileString(const std::string& path) const;

    /// True when a listing of the path finds a file that is neither hidden nor the system's.
    bool FileExists(const std::string& path) const;
    /// True when a listing of the path finds a folder that is neither hidden nor the system's.
    bool FolderExists(const std::string& path) const;

    /// Creates or replaces the file; the text is written as it is, no line break added. False on failure.
    bool WriteFile(const std::string& path, const std::string& text) const;

    /// Everything before the last "\"; "" when there is none.
    std::string GetFilePath(const std::string& path) const;

    /// True when both files have the same bytes. Files of different lengths are not read.
    bool FileCompare(const std::string& path1, const std::string& path2) const;

    /// Appends the bytes of the source to the target.
    void AppendFiles(const std::string& sourcePath, const std::string& targetPath) const;
    /// Appends the text as it is, no line break added, creating the file if needed.
    void AppendFile(const std::string& path, const std::string& text) const;

    /// The file-name pattern of * and ? that EnumFiles matches, without regard to case. "*.*", the pattern
    /// at first, and "" match every file.
    const std::string& Mask() const { return mask_; }
    void setMask(std::string pattern) { mask_ = std::move(pattern); }

    /// The names of the folder's files that are neither hidden nor the system's, in listing order.
    std::vector<std::string> GetFiles(const std::string& folder) const;

    /// Adds the paths of all files that match Mask, hidden and system files included, of the folder and the
    /// folders below it. A folder's own files stand together, before those of its sub-folders. Folders whose
    /// name begins with "_vti", which web servers keep for themselves, are left out with all they hold, and
    /// links to other folders are not followed, since they may lead back up.
    void EnumFiles(const std::string& folder, std::vector<std::string>& collection) const;
    /// Adds the paths of all folders below the folder, each before its own sub-folders, by the same rules.
    void EnumFolders(const std::string& folder, std::vector<std::string>& collection) const;

  private:
    enum class Collect { Files, Folders };

    /// In the code page; what that lacks is traced.
    std::string encoded(const char* operation, const std::string& path, const std::string& text) const;
    std::string readAll(const std::string& path) const;
    bool sameBytes(const std::string& path1, const std::string& path2) const;
    void walk(const std::string& folder, Collect what, std::vector<std::string>& collection) const;

    FileSystem& files_;
    const CodePage& codePage_;
    Idle& idle_;
    Trace& trace_;
    std::string mask_ = "*.*";
};

}  // namespace pellmark
