#include "util/cFileIO.h"

#include <algorithm>
#include <string_view>

#include "base/Text.h"
#include "ports/FileNames.h"
#include "ports/FileTests.h"
#include "util/CodePageText.h"

namespace pellmark {

namespace {

constexpr std::uint64_t kBlock = 10000;

/// The folder with one "\" behind it.
std::string inside(const std::string& folder) {
    return folder.empty() || folder.back() == '\\' ? folder : folder + "\\";
}

bool mayStandInFileName(char c) {
    return static_cast<unsigned char>(c) >= 0x20 &&
           std::string_view("\\/:*?\"<>|").find(c) == std::string_view::npos;
}

bool isSkippedFolder(const FileSystem::Entry& entry) {
    return equalNoCase(std::string_view(entry.name).substr(0, 4), "_vti");
}

/// Line breaks of any kind as CR LF, and none at the end.
std::string withUniformLines(const std::string& text) {
    std::string out;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] != '\r' && text[at] != '\n') {
            out += text[at];
            continue;
        }
        if (text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n') ++at;
        if (at + 1 < text.size()) out += "\r\n";
    }
    return out;
}

}  // namespace

cFileIO::cFileIO(FileSystem& files, const CodePage& codePage, Idle& idle, Trace& trace)
    : files_(files), codePage_(codePage), idle_(idle), trace_(trace) {}

std::vector<std::string> cFileIO::GetStringLineCollection(const std::string& text) const {
    std::vector<std::string> lines = split(replaced(text, '\r', '\n'), '\n');
    lines.erase(std::remove(lines.begin(), lines.end(), std::string()), lines.end());
    return lines;
}

std::string cFileIO::ValidateFileName(const std::string& path) const {
    const std::string_view name = nameOfPath(path);
    std::string valid = path.substr(0, path.size() - name.size());
    std::copy_if(name.begin(), name.end(), std::back_inserter(valid), mayStandInFileName);
    return valid;
}

std::vector<std::string> cFileIO::GetFileLineCollection(const std::string& path) const {
    std::vector<std::string> lines;
    trap(trace_, "cFileIO::GetFileLineCollection",
         [&] { lines = GetStringLineCollection(codePage_.fromAnsi(readAll(path))); });
    return lines;
}

void cFileIO::WriteBinaryFile(const std::string& path, const ByteArray& data) const {
    trap(trace_, "cFileIO::WriteBinaryFile",
         [&] { files_.overwrite(path, std::string(data.begin(), data.end())); });
}

std::string cFileIO::GetFileString(const std::string& path) const {
    std::string text;
    trap(trace_, "cFileIO::GetFileString",
         [&] { text = withUniformLines(codePage_.fromAnsi(readAll(path))); });
    return text;
}

bool cFileIO::FileExists(const std::string& path) const {
    bool exists = false;
    trap(trace_, "cFileIO::FileExists", [&] { exists = listingFindsFile(files_, path); });
    return exists;
}

bool cFileIO::FolderExists(const std::string& path) const {
    bool exists = false;
    trap(trace_, "cFileIO::FolderExists", [&] { exists = listingFindsFolder(files_, path); });
    return exists;
}

bool cFileIO::WriteFile(const std::string& path, const std::string& text) const {
    return trap(trace_, "cFileIO::WriteFile",
                [&] { files_.write(path, encoded("cFileIO::WriteFile", path, text)); });
}

std::string cFileIO::GetFilePath(const std::string& path) const {
    const std::size_t slash = path.rfind('\\');
    return slash == std::string::npos ? "" : path.substr(0, slash);
}

bool cFileIO::FileCompare(const std::string& path1, const std::string& path2) const {
    bool equal = false;
    trap(trace_, "cFileIO::FileCompare", [&] { equal = sameBytes(path1, path2); });
    return equal;
}

bool cFileIO::sameBytes(const std::string& path1, const std::string& path2) const {
    const std::uint64_t length = files_.size(path1);
    if (files_.size(path2) != length) return false;
    for (std::uint64_t offset = 0; offset < length; offset += kBlock) {
        const auto count = static_cast<std::size_t>(std::min(kBlock, length - offset));
        if (files_.read(path1, offset, count) != files_.read(path2, offset, count)) return false;
    }
    return true;
}

void cFileIO::AppendFiles(const std::string& sourcePath, const std::string& targetPath) const {
    trap(trace_, "cFileIO::AppendFiles", [&] { files_.append(targetPath, readAll(sourcePath)); });
}

void cFileIO::AppendFile(const std::string& path, const std::string& text) const {
    trap(trace_, "cFileIO::AppendFile",
         [&] { files_.append(path, encoded("cFileIO::AppendFile", path, text)); });
}

std::vector<std::string> cFileIO::GetFiles(const std::string& folder) const {
    std::vector<std::string> names;
    trap(trace_, "cFileIO::GetFiles", [&] {
        for (const auto& entry : files_.list(inside(folder) + "*.*")) {
            if (isNormalFile(entry)) names.push_back(entry.name);
        }
    });
    return names;
}

void cFileIO::EnumFiles(const std::string& folder, std::vector<std::string>& collection) const {
    trap(trace_, "cFileIO::EnumFiles", [&] { walk(folder, Collect::Files, collection); });
}

void cFileIO::EnumFolders(const std::string& folder, std::vector<std::string>& collection) const {
    trap(trace_, "cFileIO::EnumFolders", [&] { walk(folder, Collect::Folders, collection); });
}

void cFileIO::walk(const std::string& folder, Collect what, std::vector<std::string>& collection) const {
    const std::string prefix = inside(folder);
    std::vector<FileSystem::Entry> folders;
    for (const auto& entry : files_.list(prefix + "*.*")) {
        idle_.yield();
        if (entry.isFolder()) {
            if (!isSkippedFolder(entry)) folders.push_back(entry);
        } else if (what == Collect::Files && matchesPattern(entry.name, mask_)) {
            collection.push_back(prefix + entry.name);
        }
    }
    for (const auto& entry : folders) {
        const std::string path = prefix + entry.name;
        if (what == Collect::Folders) collection.push_back(path);
        if ((entry.attributes & FileSystem::kReparsePoint) == 0) walk(path, what, collection);
    }
}

std::string cFileIO::encoded(const char* operation, const std::string& path, const std::string& text) const {
    CodePageText encoding(codePage_);
    std::string bytes = encoding.encode(text);
    if (encoding.lost() > 0) {
        trace_.record(operation,
                      path + ": " + std::to_string(encoding.lost()) +
                          " character(s) that the code page lacks were written as \"?\", the first one " +
                          encoding.firstLost());
    }
    return bytes;
}

std::string cFileIO::readAll(const std::string& path) const {
    return files_.read(path, 0, static_cast<std::size_t>(files_.size(path)));
}

}  // namespace pellmark
