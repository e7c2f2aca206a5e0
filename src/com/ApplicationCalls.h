#pragma once

#include "win32/WindowsApi.h"

#include <oaidl.h>

#include <string>

#include "automation/Automation.h"
#include "base/Operations.h"
#include "host/Application.h"

namespace pellmark {

/// What the automation object asks of the component behind it, once the arguments have been understood. A
/// null host is passed on: doing nothing then is the component's business. A call runs inside a scope of the
/// operations; one that comes while another runs is refused in there.
class ApplicationCalls {
  public:
    virtual ~ApplicationCalls() = default;

    /// What of the component runs, and where its failures are recorded.
    virtual const Operations& operations() const = 0;

    virtual void showProcesses(const ComPtr<IDispatch>& host, const std::string& processGuid) = 0;
    virtual void showProcessCase(const ComPtr<IDispatch>& host, const CaseDescription& description) = 0;
    virtual std::string openProcess(const ComPtr<IDispatch>& host, const ComPtr<IDispatch>& owner,
                                    const CaseDescription& description) = 0;
    virtual void editFeatureCase(const ComPtr<IDispatch>& host, const ComPtr<IDispatch>& owner,
                                 const CaseDescription& description) = 0;
    virtual std::string openFeatureCase(const ComPtr<IDispatch>& host, const ComPtr<IDispatch>& owner,
                                        const CaseDescription& description) = 0;
    virtual void editProcess(const ComPtr<IDispatch>& host, const ComPtr<IDispatch>& owner,
                             const CaseDescription& description) = 0;
    virtual void dispose() = 0;

    virtual FRView currentView() const = 0;
    virtual void setCurrentView(FRView view) = 0;
};

}  // namespace pellmark
