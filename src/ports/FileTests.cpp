#include "ports/FileTests.h"

#include <algorithm>

namespace pellmark {

namespace {

constexpr std::uint32_t kNotNormal = FileSystem::kHidden | FileSystem::kSystem;

bool isNormalFolder(const FileSystem::Entry& entry) {
    return entry.isFolder() && (entry.attributes & kNotNormal) == 0;
}

}  // namespace

bool isNormalFile(const FileSystem::Entry& entry) {
    return !entry.isFolder() && (entry.attributes & kNotNormal) == 0;
}

bool listingFindsFile(FileSystem& files, const std::string& path) {
    if (path.empty() || path.back() == '\\') return false;
    const auto entries = files.list(path);
    return std::any_of(entries.begin(), entries.end(), isNormalFile);
}

bool listingFindsFolder(FileSystem& files, const std::string& path) {
    const std::string folder = path.substr(0, path.find_last_not_of('\\') + 1);
    if (folder.empty()) return false;
    // A drive's root is in no folder, so only what it holds can be listed.
    if (folder.back() == ':') return !files.list(folder + "\\*").empty();
    const auto entries = files.list(folder);
    return std::any_of(entries.begin(), entries.end(), isNormalFolder);
}

}  // namespace pellmark
