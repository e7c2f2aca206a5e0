#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// The words and limits of a process file; docs/process-file.md describes the format.
namespace norvex::processfile {

inline constexpr std::string_view kTitle = "Norvex process file, version ";
inline constexpr int kVersion = 1;
inline constexpr std::string_view kOperations = "operations";
inline constexpr std::string_view kOperation = "operation";
inline constexpr std::string_view kEnd = "end";

/// What a file may hold, so that one that was not made by people does not fill the memory. An operation has a
/// parameter once at most, which limits them as well.
inline constexpr std::size_t kLongestLine = std::size_t{64} * 1024;
inline constexpr std::int32_t kMostOperations = 20000;

/// A text in double quotes, with everything escaped that would break a line or hide.
std::string quoted(std::string_view text);

/// Whether these bytes are UTF-8 as it is meant to be written.
bool isUtf8(std::string_view bytes);

}  // namespace norvex::processfile
