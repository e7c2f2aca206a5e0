#pragma once

#include <string>

namespace norvex {

/// Whether a file, which need not exist, stands on a disk that is built into this machine. `path` is UTF-8.
/// False for drives of other machines and for those that can be pulled out.
bool isOnLocalDisk(const std::string& path);

}  // namespace norvex
