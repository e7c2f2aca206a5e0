#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "base/Trace.h"

namespace pellmark::test {

/// A trace that keeps its lines. A test that expects no trapped failure asserts lines() to be empty.
class RecordingTrace : public Trace {
  public:
    void record(std::string_view operation, std::string_view what) noexcept override {
        lines_.push_back(std::string(operation) + ": " + std::string(what));
    }

    /// "cProcess::Delete: why", oldest first.
    const std::vector<std::string>& lines() const { return lines_; }
    void clear() { lines_.clear(); }

    /// True when something was trapped in that operation.
    bool trapped(std::string_view operation) const {
        for (const std::string& line : lines_) {
            if (line.rfind(std::string(operation) + ": ", 0) == 0) return true;
        }
        return false;
    }

  private:
    std::vector<std::string> lines_;
};

}  // namespace pellmark::test
