#pragma once

#include <string>

namespace norvex {

/// The bytes of a file of up to 16 MiB; empty when it is larger or cannot be read.
std::string bytesOf(const std::wstring& path);

}  // namespace norvex
