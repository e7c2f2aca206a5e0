#pragma once

#include <string>

#include "ports/FileSystem.h"

/// Tests for files and folders by a directory listing. Failures of the file port are thrown on.
namespace pellmark {

/// True when a listing of the path with normal attributes returns a name: hidden files, system files and
/// folders are not found. The path's last part may be a pattern; a path that is empty or ends in "\" names no
/// file.
bool listingFindsFile(FileSystem& files, const std::string& path);

/// True when a listing of the path with the directory attribute returns a folder: hidden and system folders
/// are not found. A "\" at the end is allowed; a drive exists when anything is listed in it.
bool listingFindsFolder(FileSystem& files, const std::string& path);

/// True for an entry that a listing with normal attributes returns.
bool isNormalFile(const FileSystem::Entry& entry);

}  // namespace pellmark
