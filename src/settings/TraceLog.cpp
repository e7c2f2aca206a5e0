#include "settings/TraceLog.h"

#include <algorithm>
#include <utility>

#include "settings/NumberOptions.h"

namespace pellmark {

namespace {

/// A line of the trace is one line, whatever a foreign error text holds.
std::string onOneLine(std::string_view text) {
    std::string line(text);
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c == '\r' || c == '\n' || c == '\0'; }, ' ');
    return line;
}

/// Marks a stretch of work so that what it records itself does not start it again.
class Busy {
  public:
    explicit Busy(bool& flag) : flag_(flag) { flag_ = true; }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;
    ~Busy() { flag_ = false; }

  private:
    bool& flag_;
};

}  // namespace

TraceLog::TraceLog(DebuggerOutput debuggerOutput, Registry& registry, const CodePage& codePage,
                   FileSystem& files, Clock& clock, TraceOwner owner)
    : debuggerOutput_(std::move(debuggerOutput)),
      owner_(std::move(owner)),
      files_(files),
      clock_(clock),
      settings_(registry, codePage, files, owner_.executableName, *this) {}

void TraceLog::record(std::string_view operation, std::string_view what) noexcept {
    try {
        const std::string line = clock_.now() + " " + onOneLine(operation) + ": " + onOneLine(what);
        writeToDebugger(line);
        if (appending_) return;
        const Busy busy(appending_);
        // What fails here is seen in the debugger only: the nested record stops above.
        trap(*this, "TraceLog::record", [&] { appendToFile(line); });
    } catch (...) {
        // Out of memory, or no clock: there is nowhere left to say so.
    }
}

void TraceLog::writeToDebugger(const std::string& line) noexcept {
    if (writing_ || !debuggerOutput_) return;
    const Busy busy(writing_);
    try {
        debuggerOutput_(line);
    } catch (...) {
        // A failing debugger output must not cost the line its place in the file.
    }
}

std::string TraceLog::folder() {
    std::string wanted = owner_.wantedFolder ? owner_.wantedFolder() : std::string();
    if (wanted.empty() && settings_.orDefault(option::kDebugMode) != 0) wanted = files_.temporaryFolder();
    if (!wanted.empty() && !wanted.ends_with('\\')) wanted += '\\';
    return wanted;
}

void TraceLog::appendToFile(const std::string& line) {
    const std::string place = folder();
    if (place.empty()) return;
    const std::string path =
        place + "Pellmark-" + owner_.executableName + "-" + std::to_string(owner_.processId) + ".log";
    files_.append(path, line + "\r\n");
    if (const std::uint64_t size = files_.size(path); size > kMostBytes) dropOlderHalf(path, size);
}

void TraceLog::dropOlderHalf(const std::string& path, std::uint64_t size) {
    constexpr std::size_t kKept = kMostBytes / 2;
    std::string newer = files_.read(path, size - kKept, kKept);
    newer.erase(0, newer.find('\n') + 1);
    files_.write(path, newer);
}

}  // namespace pellmark
