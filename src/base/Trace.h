#pragma once

#include <exception>
#include <string>
#include <string_view>

namespace pellmark {

/// Where failures that end quietly leave their mark. One per component; implementations write to the
/// debugger's output and, while the DebugMode setting is on, to a log file. Recording never throws.
class Trace {
  public:
    virtual ~Trace() = default;

    /// One line: the operation that ended ("cProcess::Delete") and why.
    virtual void record(std::string_view operation, std::string_view what) noexcept = 0;
};

/// What an exception has to say, in one line: an Error's number, source and description, or what().
/// Call only inside a catch block.
std::string describeCurrentException();

/// Runs an operation or event handler that must end quietly. Whatever it throws is recorded under its name.
/// Returns true when the body ran to its end.
template <class Body>
bool trap(Trace& trace, std::string_view operation, Body&& body) noexcept {
    try {
        body();
        return true;
    } catch (...) {
        try {
            trace.record(operation, describeCurrentException());
        } catch (...) {
            trace.record(operation, "out of memory");
        }
        return false;
    }
}

}  // namespace pellmark
