#include "win32/ports/Win32FileSystem.h"

#include <windows.h>

#include <algorithm>
#include <limits>

#include "base/Error.h"
#include "ports/FileNames.h"
#include "win32/Handles.h"
#include "win32/SystemText.h"
#include "win32/WideText.h"

namespace pellmark {

namespace {

constexpr char kSource[] = "FileSystem";

std::int32_t classicNumber(DWORD systemError) {
    switch (systemError) {
        case ERROR_FILE_NOT_FOUND:
            return errors::kFileNotFound;
        case ERROR_PATH_NOT_FOUND:
        case ERROR_DIRECTORY:
            return errors::kPathNotFound;
        case ERROR_INVALID_NAME:
        case ERROR_BAD_PATHNAME:
            return errors::kBadFileName;
        case ERROR_ACCESS_DENIED:
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
        case ERROR_WRITE_PROTECT:
            return errors::kPermissionDenied;
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
            return errors::kDiskFull;
        default:
            return errors::kDeviceError;
    }
}

[[noreturn]] void throwSystemError(DWORD systemError, const std::string& path) {
    throw Error(classicNumber(systemError), kSource, path + ": " + systemText(systemError));
}

[[noreturn]] void throwDevice(const std::string& path) {
    throw Error(errors::kBadFileName, kSource,
                path + ": this is the name of a device, not of a file. Choose another name.");
}

void refuseBadName(const std::string& path) {
    if (isDeviceName(path)) throwDevice(path);
    if (path.empty() || path.find('\0') != std::string::npos) {
        throw Error(errors::kBadFileName, kSource, "\"" + path + "\" is not a file name.");
    }
}

/// The full path in the form that has no length limit. Throws when the system cannot make sense of it.
std::wstring systemPath(const std::string& path) {
    const std::wstring given = toWide(path);
    const DWORD needed = ::GetFullPathNameW(given.c_str(), 0, nullptr, nullptr);
    std::wstring full(needed, L'\0');
    const DWORD length = ::GetFullPathNameW(given.c_str(), needed, full.data(), nullptr);
    if (needed == 0 || length >= needed) throwSystemError(::GetLastError(), path);
    full.resize(length);
    if (full.rfind(L"\\\\.\\", 0) == 0) throwDevice(path);
    if (full.rfind(L"\\\\?\\", 0) == 0) return full;
    if (full.rfind(L"\\\\", 0) == 0) return L"\\\\?\\UNC" + full.substr(1);
    return L"\\\\?\\" + full;
}

FileHandle openFile(const std::string& path, DWORD access, DWORD disposition) {
    refuseBadName(path);
    FileHandle file(::CreateFileW(systemPath(path).c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                  nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) throwSystemError(::GetLastError(), path);
    return file;
}

DWORD nextBlock(std::size_t left) {
    constexpr std::size_t kLargest = 1U << 30U;
    return static_cast<DWORD>(std::min(left, kLargest));
}

void writeAll(const FileHandle& file, std::string_view bytes, const std::string& path) {
    while (!bytes.empty()) {
        DWORD written = 0;
        if (!::WriteFile(file.get(), bytes.data(), nextBlock(bytes.size()), &written, nullptr)) {
            throwSystemError(::GetLastError(), path);
        }
        bytes.remove_prefix(written);
    }
}

/// Outcomes of a listing that mean that there is no such entry.
bool findsNothing(DWORD systemError) {
    switch (systemError) {
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
        case ERROR_NO_MORE_FILES:
        case ERROR_INVALID_NAME:
        case ERROR_BAD_PATHNAME:
        case ERROR_DIRECTORY:
            return true;
        default:
            return false;
    }
}

}  // namespace

std::vector<FileSystem::Entry> Win32FileSystem::list(const std::string& pattern) {
    std::vector<Entry> entries;
    // A device is listed in whatever folder one asks; no file has such a name.
    if (isDeviceName(pattern) || nameOfPath(pattern).empty()) return entries;
    refuseBadName(pattern);
    WIN32_FIND_DATAW found{};
    const FindHandle search(::FindFirstFileW(systemPath(pattern).c_str(), &found));
    if (!search) {
        const DWORD error = ::GetLastError();
        if (findsNothing(error)) return entries;
        throwSystemError(error, pattern);
    }
    do {
        const std::wstring_view name(found.cFileName);
        if (name != L"." && name != L"..") entries.push_back({fromWide(name), found.dwFileAttributes});
    } while (::FindNextFileW(search.get(), &found));
    const DWORD end = ::GetLastError();
    if (end != ERROR_NO_MORE_FILES) throwSystemError(end, pattern);
    return entries;
}

std::uint64_t Win32FileSystem::size(const std::string& path) {
    const FileHandle file = openFile(path, GENERIC_READ, OPEN_EXISTING);
    LARGE_INTEGER size{};
    if (!::GetFileSizeEx(file.get(), &size)) throwSystemError(::GetLastError(), path);
    return static_cast<std::uint64_t>(size.QuadPart);
}

std::string Win32FileSystem::read(const std::string& path, std::uint64_t offset, std::size_t count) {
    const FileHandle file = openFile(path, GENERIC_READ, OPEN_EXISTING);
    LARGE_INTEGER start{};
    start.QuadPart = static_cast<LONGLONG>(offset);
    LARGE_INTEGER size{};
    if (!::SetFilePointerEx(file.get(), start, nullptr, FILE_BEGIN) || !::GetFileSizeEx(file.get(), &size)) {
        throwSystemError(::GetLastError(), path);
    }
    const LONGLONG left = std::max<LONGLONG>(0, size.QuadPart - start.QuadPart);
    std::string bytes(
        static_cast<std::size_t>(std::min<std::uint64_t>(count, static_cast<std::uint64_t>(left))), '\0');
    std::size_t done = 0;
    while (done < bytes.size()) {
        DWORD got = 0;
        if (!::ReadFile(file.get(), bytes.data() + done, nextBlock(bytes.size() - done), &got, nullptr)) {
            throwSystemError(::GetLastError(), path);
        }
        if (got == 0) break;
        done += got;
    }
    bytes.resize(done);
    return bytes;
}

void Win32FileSystem::write(const std::string& path, std::string_view bytes) {
    writeAll(openFile(path, GENERIC_WRITE, CREATE_ALWAYS), bytes, path);
}

void Win32FileSystem::overwrite(const std::string& path, std::string_view bytes) {
    writeAll(openFile(path, GENERIC_WRITE, OPEN_ALWAYS), bytes, path);
}

void Win32FileSystem::append(const std::string& path, std::string_view bytes) {
    // With this access alone the system itself writes at the end, also when another program appends, too.
    writeAll(openFile(path, FILE_APPEND_DATA, OPEN_ALWAYS), bytes, path);
}

void Win32FileSystem::replace(const std::string& path, const std::string& newPath) {
    refuseBadName(path);
    refuseBadName(newPath);
    if (!::MoveFileExW(systemPath(path).c_str(), systemPath(newPath).c_str(), MOVEFILE_REPLACE_EXISTING)) {
        throwSystemError(::GetLastError(), newPath);
    }
}

void Win32FileSystem::remove(const std::string& path) {
    refuseBadName(path);
    if (!::DeleteFileW(systemPath(path).c_str())) throwSystemError(::GetLastError(), path);
}

std::string Win32FileSystem::temporaryFolder() {
    char buffer[255] = {};
    const DWORD length = ::GetTempPathA(sizeof(buffer), buffer);
    if (length == 0 || length >= sizeof(buffer)) return "";
    return codePage_.fromAnsi(buffer);
}

}  // namespace pellmark
