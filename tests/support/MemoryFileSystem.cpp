#include "support/MemoryFileSystem.h"

#include <algorithm>
#include <utility>

#include "base/Error.h"
#include "base/Text.h"
#include "ports/FileNames.h"

namespace pellmark::test {

namespace {

std::vector<std::string> partsOf(const std::string& path) {
    std::vector<std::string> parts = split(path, '\\');
    parts.erase(std::remove(parts.begin(), parts.end(), std::string()), parts.end());
    return parts;
}

std::string folderOf(const std::string& path) {
    return path.substr(0, path.size() - nameOfPath(path).size());
}

[[noreturn]] void fail(std::int32_t number, const std::string& path, const std::string& why) {
    throw Error(number, "FileSystem", path + ": " + why);
}

}  // namespace

MemoryFileSystem::MemoryFileSystem() {
    root_.entry.attributes = kDirectory;
    makeFolder(temporary);
}

MemoryFileSystem::Node* MemoryFileSystem::find(const std::string& path) {
    Node* node = &root_;
    for (const std::string& part : partsOf(path)) {
        const auto found = node->children.find(lowerAscii(part));
        if (found == node->children.end()) return nullptr;
        node = found->second.get();
    }
    return node;
}

MemoryFileSystem::Node& MemoryFileSystem::folder(const std::string& path, bool create) {
    Node* node = &root_;
    for (const std::string& part : partsOf(path)) {
        auto& child = node->children[lowerAscii(part)];
        if (child == nullptr && create) {
            child = std::make_shared<Node>();
            child->entry = {part, kDirectory};
        }
        if (child == nullptr || !child->entry.isFolder()) {
            if (child == nullptr) node->children.erase(lowerAscii(part));
            fail(errors::kPathNotFound, path, "Path not found.");
        }
        node = child.get();
    }
    return *node;
}

MemoryFileSystem::Node& MemoryFileSystem::file(const std::string& path) {
    checkName(path);
    Node& above = folder(folderOf(path), false);
    const auto found = above.children.find(lowerAscii(nameOfPath(path)));
    if (found == above.children.end()) fail(errors::kFileNotFound, path, "File not found.");
    if (found->second->entry.isFolder()) fail(errors::kPermissionDenied, path, "This is a folder.");
    return *found->second;
}

MemoryFileSystem::Node& MemoryFileSystem::fileToWrite(const std::string& path) {
    checkName(path);
    Node& above = folder(folderOf(path), false);
    const std::string name(nameOfPath(path));
    if (above.children.count(lowerAscii(name)) == 0) {
        auto made = std::make_shared<Node>();
        made->entry = {name, kArchive};
        above.children[lowerAscii(name)] = std::move(made);
    }
    Node& node = file(path);
    if ((node.entry.attributes & kReadOnly) != 0)
        fail(errors::kPermissionDenied, path, "This file is read-only.");
    if (node.openElsewhere) fail(errors::kPermissionDenied, path, "Another program has this file open.");
    return node;
}

std::vector<FileSystem::Entry> MemoryFileSystem::list(const std::string& pattern) {
    checkUsable();
    std::vector<Entry> entries;
    const std::string_view wanted = nameOfPath(pattern);
    Node* const above = find(folderOf(pattern));
    if (wanted.empty() || isDeviceName(pattern) || above == nullptr) return entries;
    for (const auto& [key, child] : above->children) {
        if (matchesPattern(child->entry.name, wanted)) entries.push_back(child->entry);
    }
    return entries;
}

std::uint64_t MemoryFileSystem::size(const std::string& path) {
    return file(path).bytes.size();
}

std::string MemoryFileSystem::read(const std::string& path, std::uint64_t offset, std::size_t count) {
    const Node& node = file(path);
    ++reads;
    readSizes.push_back(count);
    if (offset >= node.bytes.size()) return "";
    return node.bytes.substr(static_cast<std::size_t>(offset), count);
}

void MemoryFileSystem::write(const std::string& path, std::string_view bytes) {
    fileToWrite(path).bytes = std::string(bytes);
}

void MemoryFileSystem::overwrite(const std::string& path, std::string_view bytes) {
    std::string& present = fileToWrite(path).bytes;
    present.replace(0, std::min(present.size(), bytes.size()), bytes);
}

void MemoryFileSystem::append(const std::string& path, std::string_view bytes) {
    std::string& present = fileToWrite(path).bytes;
    if (bytes.size() > room_) fail(errors::kDiskFull, path, "The disk is full.");
    room_ -= room_ == SIZE_MAX ? 0 : bytes.size();
    present += bytes;
}

void MemoryFileSystem::replace(const std::string& path, const std::string& newPath) {
    file(path);
    fileToWrite(newPath);
    const std::string name(nameOfPath(newPath));
    auto& source = folder(folderOf(path), false).children;
    auto node = source.extract(lowerAscii(nameOfPath(path)));
    node.mapped()->entry.name = name;
    folder(folderOf(newPath), false).children[lowerAscii(name)] = node.mapped();
}

void MemoryFileSystem::remove(const std::string& path) {
    file(path);
    fileToWrite(path);
    folder(folderOf(path), false).children.erase(lowerAscii(nameOfPath(path)));
}

void MemoryFileSystem::openElsewhere(const std::string& path, bool open) {
    file(path).openElsewhere = open;
}

void MemoryFileSystem::makeFolder(const std::string& path, std::uint32_t attributes) {
    folder(path, true).entry.attributes |= attributes;
}

void MemoryFileSystem::makeFile(const std::string& path, const std::string& bytes, std::uint32_t attributes) {
    Node& above = folder(folderOf(path), true);
    auto node = std::make_shared<Node>();
    node->entry = {std::string(nameOfPath(path)), attributes};
    node->bytes = bytes;
    above.children[lowerAscii(nameOfPath(path))] = std::move(node);
}

void MemoryFileSystem::setAttributes(const std::string& path, std::uint32_t attributes) {
    Node* const node = find(path);
    if (node == nullptr) fail(errors::kFileNotFound, path, "File not found.");
    node->entry.attributes = attributes | (node->entry.attributes & kDirectory);
}

bool MemoryFileSystem::has(const std::string& path) {
    return find(path) != nullptr;
}

std::string MemoryFileSystem::contents(const std::string& path) {
    return file(path).bytes;
}

void MemoryFileSystem::checkName(const std::string& path) const {
    checkUsable();
    if (isDeviceName(path)) fail(errors::kBadFileName, path, "This is the name of a device, not of a file.");
    if (nameOfPath(path).empty()) fail(errors::kBadFileName, path, "This is not a file name.");
}

void MemoryFileSystem::checkUsable() const {
    if (broken_) fail(errors::kDeviceError, "", "The medium is gone.");
}

}  // namespace pellmark::test
