#pragma once

#include <functional>
#include <string>

namespace pellmark {

struct ChildResult {
    unsigned long exitCode = 0;
    std::string output;  ///< what it printed, line ends as "\n"
};

/// Called again and again while the program runs, with its process identifier.
using WhileRunning = std::function<void(unsigned long processId)>;

/// Runs a command line to its end and collects its output. A program that does not end within a minute is
/// ended, with exit code 124.
ChildResult runChild(const std::wstring& commandLine, const WhileRunning& whileRunning = {});

}  // namespace pellmark
