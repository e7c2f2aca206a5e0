#pragma once

#include "win32/WindowsApi.h"

#include <oaidl.h>

#include <string>

#include "automation/Automation.h"
#include "com/Members.h"
#include "host/Application.h"

namespace pellmark {

/// The understood arguments of one method call; what the method does not take keeps its default. A process to
/// select stands in the description, also for the method that takes nothing else of it.
struct MethodCall {
    ComPtr<IDispatch> host;
    ComPtr<IDispatch> owner;
    CaseDescription description;
};

/// Understands the arguments of a late-bound call: by position and by name, omitted ones filled with their
/// defaults. Throws CallError with DISP_E_BADPARAMCOUNT, DISP_E_PARAMNOTOPTIONAL, DISP_E_PARAMNOTFOUND,
/// DISP_E_TYPEMISMATCH or DISP_E_OVERFLOW; its text names the parameter and the method, and says what was
/// given.
MethodCall readCall(Member member, const DISPPARAMS& arguments);

}  // namespace pellmark
