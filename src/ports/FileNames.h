#pragma once

#include <string_view>

/// Rules of file names that hold for every file port.
namespace pellmark {

/// The last part of a path, behind its last "\".
std::string_view nameOfPath(std::string_view path);

/// True when the path's name belongs to a device ("nul", "COM1.txt", "con .csv"): whatever the folder and the
/// extension, opening it reaches the device and no file.
bool isDeviceName(std::string_view path);

/// True when a name matches a pattern of * and ?, without regard to the case of ASCII letters. "*.*" and an
/// empty pattern match every name, those without a dot included.
bool matchesPattern(std::string_view name, std::string_view pattern);

}  // namespace pellmark
