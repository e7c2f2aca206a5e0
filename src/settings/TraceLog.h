#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "base/Trace.h"
#include "ports/Clock.h"
#include "ports/FileSystem.h"
#include "settings/cQDLExtSettings.h"

namespace pellmark {

/// The component's trace. Each line, "2026-11-20 21:53:07.123 cProcess::Delete: why", goes to the debugger's
/// output and, while the setting DebugMode is on, behind what "Pellmark.log" in the temporary folder holds
/// (UTF-8, CR LF). The setting is read afresh for each line, so it can be switched on while the host runs.
class TraceLog : public Trace {
  public:
    using DebuggerOutput = std::function<void(const std::string& line)>;

    /// The ports must outlive this object.
    TraceLog(DebuggerOutput debuggerOutput, Registry& registry, const CodePage& codePage, FileSystem& files,
             Clock& clock, std::string executableName);

    void record(std::string_view operation, std::string_view what) noexcept override;

  private:
    void writeToDebugger(const std::string& line) noexcept;
    void appendToFile(const std::string& line);

    DebuggerOutput debuggerOutput_;
    FileSystem& files_;
    Clock& clock_;
    cQDLExtSettings settings_;
    bool writing_ = false;    ///< the debugger's output is being called
    bool appending_ = false;  ///< the setting or the file is being used
};

}  // namespace pellmark
