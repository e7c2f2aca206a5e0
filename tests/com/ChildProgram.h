#pragma once

#include <string>

namespace pellmark {

struct ChildResult {
    unsigned long exitCode = 0;
    std::string output;  ///< what it printed, line ends as "\n"
};

/// Runs a command line to its end and collects its output. A program that does not end within the limit is
/// ended, with exit code 124.
ChildResult runChild(const std::wstring& commandLine, unsigned long limitMilliseconds = 60000);

}  // namespace pellmark
