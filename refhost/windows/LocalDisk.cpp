#include "refhost/windows/LocalDisk.h"

#include <windows.h>

#include <vector>

#include "automation/Automation.h"

namespace norvex {

bool isOnLocalDisk(const std::string& path) {
    const std::wstring file = pellmark::toWide(path);
    std::vector<wchar_t> volume(file.size() + MAX_PATH);
    if (!GetVolumePathNameW(file.c_str(), volume.data(), static_cast<DWORD>(volume.size()))) return false;
    return GetDriveTypeW(volume.data()) == DRIVE_FIXED;
}

}  // namespace norvex
