#include "com/ComponentRoot.h"

#include "automation/Automation.h"
#include "automation/DispatchObject.h"
#include "automation/Environment.h"
#include "automation/Module.h"
#include "base/Error.h"
#include "com/adapters/HostApplicationAdapter.h"
#include "win32/ports/DebuggerOutput.h"

namespace pellmark {

namespace {

std::string componentFolder() {
    const std::wstring path = module::path();
    return fromWide(path.substr(0, path.find_last_of(L'\\')));
}

/// "Norvex" of "C:\Program Files\Norvex\Norvex.exe".
std::string executableName() {
    const std::wstring path = module::pathOf(nullptr);
    const std::wstring file = path.substr(path.find_last_of(L'\\') + 1);
    return fromWide(file.substr(0, file.find_last_of(L'.')));
}

/// Integrators set it to find the trace of one program without a debugger, and without touching the registry.
std::string wantedLogFolder() {
    return environmentText(L"PELLMARK_LOG");
}

/// What a trace begins with: whoever reads of a missing class first must know which component misses it.
Trace& announced(Trace& trace) {
    trace.record("Pellmark", "version " PELLMARK_VERSION " from " + componentFolder() + " in " +
                                 fromWide(module::pathOf(nullptr)));
    return trace;
}

/// The host behind a call's first argument; null for Nothing. An object of another kind is refused here,
/// where the caller can still be told: inside the component a failing call ends quietly.
std::shared_ptr<HostApplication> hostFrom(const ComPtr<IDispatch>& object) {
    if (!object) return nullptr;
    DispatchObject host(object, "NvxApplication");
    for (const char* member : {"MainWindowHandle", "InstallationFolder", "LanguageSettings"}) {
        if (!host.has(member)) {
            throw Error(
                errors::kHostInterface, "NvxApplication",
                std::string("NvxApplication is not the host's application object: it has no member ") +
                    member);
        }
    }
    return hostApplicationFrom(object);
}

}  // namespace

ComponentRoot::ComponentRoot()
    : files_(codePage_),
      trace_(&writeToDebugger, registry_, codePage_, files_, clock_,
             TraceOwner{executableName(), GetCurrentProcessId(), &wantedLogFolder}),
      operations_(announced(trace_)),
      help_(trace_),
      fileDialogs_(operations_),
      systemDialogs_(operations_),
      desktop_(module::instance(), operations_),
      application_(Platform{desktop_, registry_, codePage_, files_, idle_, help_, fileDialogs_,
                            systemDialogs_, clipboard_, printer_, hostLibrary_, operations_,
                            componentFolder(), executableName()}) {}

void ComponentRoot::tellMissingLibrary(const ComPtr<IDispatch>& host) const {
    const std::string reason = application_.missingKnowledgeBase();
    if (host && !reason.empty()) throw Error(errors::kHostInterface, "Pellmark.Application", reason);
}

void ComponentRoot::showProcesses(const ComPtr<IDispatch>& host, const std::string& processGuid) {
    application_.ShowWindowProcessesView(hostFrom(host), processGuid);
    tellMissingLibrary(host);
}

void ComponentRoot::showProcessCase(const ComPtr<IDispatch>& host, const CaseDescription& description) {
    application_.ShowWindowProcessCaseView(hostFrom(host), description);
    tellMissingLibrary(host);
}

std::string ComponentRoot::openProcess(const ComPtr<IDispatch>& host, const ComPtr<IDispatch>& owner,
                                       const CaseDescription& description) {
    std::string picked = application_.OpenProcess(hostFrom(host), ownerWindowFrom(owner), description);
    tellMissingLibrary(host);
    return picked;
}

void ComponentRoot::editFeatureCase(const ComPtr<IDispatch>& host, const ComPtr<IDispatch>& owner,
                                    const CaseDescription& description) {
    application_.EditFeatureCase(hostFrom(host), ownerWindowFrom(owner), description);
    tellMissingLibrary(host);
}

std::string ComponentRoot::openFeatureCase(const ComPtr<IDispatch>& host, const ComPtr<IDispatch>& owner,
                                           const CaseDescription& description) {
    std::string picked = application_.OpenFeatureCase(hostFrom(host), ownerWindowFrom(owner), description);
    tellMissingLibrary(host);
    return picked;
}

void ComponentRoot::editProcess(const ComPtr<IDispatch>& host, const ComPtr<IDispatch>& owner,
                                const CaseDescription& description) {
    application_.EditProcess(hostFrom(host), ownerWindowFrom(owner), description);
    tellMissingLibrary(host);
}

void ComponentRoot::dispose() {
    application_.Dispose();
}

}  // namespace pellmark
