#pragma once

#include <string>

#include "automation/Automation.h"

namespace pellmark {

/// Takes the thread's error information: its description, "" when there is none.
inline std::string takeErrorText() {
    ComPtr<IErrorInfo> info;
    if (GetErrorInfo(0, info.receive()) != S_OK) return {};
    Bstr text;
    info->GetDescription(text.receive());
    return text.utf8();
}

/// The source of the thread's error information, which is taken too.
inline std::string takeErrorSource() {
    ComPtr<IErrorInfo> info;
    if (GetErrorInfo(0, info.receive()) != S_OK) return {};
    Bstr text;
    info->GetSource(text.receive());
    return text.utf8();
}

}  // namespace pellmark
