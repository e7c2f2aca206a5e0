#include "automation/Environment.h"

#include "win32/WideText.h"
#include "win32/WindowsApi.h"

namespace pellmark {

std::string environmentText(const wchar_t* name) {
    std::wstring value;
    for (;;) {
        const DWORD length = ::GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size()));
        // with too little room the answer counts the null character as well, and is never the room itself
        const bool isWhole = length < value.size();
        value.resize(length);
        if (isWhole || length == 0) return fromWide(value);
    }
}

}  // namespace pellmark
