#pragma once

#include <string>

namespace pellmark {

/// Writes one line, UTF-8 and without its line break, to the output of a debugger or of a viewer of such
/// output.
void writeToDebugger(const std::string& line);

}  // namespace pellmark
