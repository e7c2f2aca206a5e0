#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "refhost/technology/Operation.h"

namespace norvex {

/// Writes operations as a process file. Only values that the step has of its own are written, no defaults, so
/// that reading the file gives the step the same values again.
void writeProcessFile(std::ostream& out, const std::vector<const Operation*>& operations);

/// Writes the file under another name beside its place and moves it there when it is complete. False when
/// that fails at any point; what was there before is intact then. The path is UTF-8.
bool saveProcessFile(const std::string& path, const std::vector<const Operation*>& operations);

}  // namespace norvex
