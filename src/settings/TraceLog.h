#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "base/Trace.h"
#include "ports/Clock.h"
#include "ports/FileSystem.h"
#include "settings/cQDLExtSettings.h"

namespace pellmark {

/// Whose trace it is, and where it is wanted.
struct TraceOwner {
    std::string executableName;  ///< the host executable's name without folder and extension
    std::uint32_t processId = 0;
    /// The folder that the process was started with the wish to find the log in; "" for none.
    std::function<std::string()> wantedFolder;
};

/// The component's trace. Each line, "2026-11-20 21:53:07.123 cProcess::Delete: why", goes to the debugger's
/// output and, while somebody wants it, to the end of a file of the process's own, "Pellmark-Norvex-1234.log"
/// (UTF-8, CR LF). It is wanted in the owner's wanted folder, or else, while the setting DebugMode is on, in
/// the temporary folder. Both are looked up afresh for each line, so a log can be switched on while the host
/// runs. A file that has grown past kMostBytes loses the older half of its lines.
class TraceLog : public Trace {
  public:
    static constexpr std::uint64_t kMostBytes = 4U << 20U;

    using DebuggerOutput = std::function<void(const std::string& line)>;

    /// The ports must outlive this object.
    TraceLog(DebuggerOutput debuggerOutput, Registry& registry, const CodePage& codePage, FileSystem& files,
             Clock& clock, TraceOwner owner);

    void record(std::string_view operation, std::string_view what) noexcept override;

  private:
    void writeToDebugger(const std::string& line) noexcept;
    void appendToFile(const std::string& line);
    std::string folder();
    void dropOlderHalf(const std::string& path, std::uint64_t size);

    DebuggerOutput debuggerOutput_;
    TraceOwner owner_;
    FileSystem& files_;
    Clock& clock_;
    cQDLExtSettings settings_;
    bool writing_ = false;    ///< the debugger's output is being called
    bool appending_ = false;  ///< the setting or the file is being used
};

}  // namespace pellmark
