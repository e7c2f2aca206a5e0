#include "win32/ports/DebuggerOutput.h"

#include <windows.h>

#include "win32/WideText.h"

namespace pellmark {

void writeToDebugger(const std::string& line) {
    ::OutputDebugStringW((toWide(line) + L"\r\n").c_str());
}

}  // namespace pellmark
