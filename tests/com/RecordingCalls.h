#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "com/ApplicationCalls.h"
#include "support/RecordingTrace.h"

namespace pellmark {

/// One call as it reached the component.
struct RecordedCall {
    std::string method;
    IDispatch* host = nullptr;
    IDispatch* owner = nullptr;
    CaseDescription description;
};

/// What the component behind the automation object was asked for; outlives the object.
struct CallLog {
    std::vector<RecordedCall> calls;
    std::string picked;                   ///< what the picking methods answer
    std::function<void()> duringCall;     ///< runs inside every method
    std::function<void()> duringDispose;  ///< runs inside Dispose
    FRView view = FRView::FRProcesses;
    int disposals = 0;
    bool destroyed = false;
    DWORD destroyedBy = 0;  ///< the thread
    test::RecordingTrace trace;
    Operations operations{trace};
};

/// Stands in the component's place and writes down what arrives.
class RecordingCalls : public ApplicationCalls {
  public:
    explicit RecordingCalls(CallLog& log) : log_(log) {}
    ~RecordingCalls() override {
        log_.destroyed = true;
        log_.destroyedBy = GetCurrentThreadId();
    }

    const Operations& operations() const override { return log_.operations; }

    void showProcesses(const ComPtr<IDispatch>& host, const std::string& processGuid) override {
        CaseDescription description;
        description.processGuid = processGuid;
        note("ShowWindowProcessesView", host, {}, description);
    }
    void showProcessCase(const ComPtr<IDispatch>& host, const CaseDescription& description) override {
        note("ShowWindowProcessCaseView", host, {}, description);
    }
    std::string openProcess(const ComPtr<IDispatch>& host, const ComPtr<IDispatch>& owner,
                            const CaseDescription& description) override {
        note("OpenProcess", host, owner, description);
        return log_.picked;
    }
    void editFeatureCase(const ComPtr<IDispatch>& host, const ComPtr<IDispatch>& owner,
                         const CaseDescription& description) override {
        note("EditFeatureCase", host, owner, description);
    }
    std::string openFeatureCase(const ComPtr<IDispatch>& host, const ComPtr<IDispatch>& owner,
                                const CaseDescription& description) override {
        note("OpenFeatureCase", host, owner, description);
        return log_.picked;
    }
    void editProcess(const ComPtr<IDispatch>& host, const ComPtr<IDispatch>& owner,
                     const CaseDescription& description) override {
        note("EditProcess", host, owner, description);
    }
    void dispose() override {
        ++log_.disposals;
        if (log_.duringDispose) log_.duringDispose();
    }
    FRView currentView() const override { return log_.view; }
    void setCurrentView(FRView view) override { log_.view = view; }

  private:
    void note(const char* method, const ComPtr<IDispatch>& host, const ComPtr<IDispatch>& owner,
              const CaseDescription& description) {
        const Operations::Scope scope(log_.operations);
        log_.calls.push_back({method, host.get(), owner.get(), description});
        if (log_.duringCall) log_.duringCall();
    }

    CallLog& log_;
};

}  // namespace pellmark
