#include "com/CallTrace.h"

#include <cstdio>

#include "automation/Automation.h"
#include "automation/Guard.h"
#include "base/Guid.h"

namespace pellmark {

namespace {

void traceIdentifier(Trace& trace, const std::string& method, Parameter parameter, const std::string& text) {
    if (text.empty() || Guid::parse(text)) return;
    trace.record(method,
                 fromWide(nameOf(parameter)) + " \"" + text + "\" is no identifier and names nothing");
}

}  // namespace

void traceCall(Trace& trace, Member member, const MethodCall& call) {
    const std::string method = fromWide(nameOf(member));
    const bool needsHost = member != Member::Dispose;
    trace.record(method,
                 needsHost && !call.host ? "NvxApplication is Nothing: there is nothing to do" : "called");
    const CaseDescription& description = call.description;
    for (const std::string& value : description.valueIds)
        traceIdentifier(trace, method, Parameter::ValuesGuids, value);
    traceIdentifier(trace, method, Parameter::PartTypeGuid, description.partTypeId);
    traceIdentifier(trace, method, Parameter::FeatureTypeGuid, description.featureTypeId);
    traceIdentifier(trace, method, Parameter::ProcessMaterialClassGuid, description.materialClassId);
    traceIdentifier(trace, method, Parameter::ProcessGuid, description.processGuid);
    traceIdentifier(trace, method, Parameter::ProcessStepGuid, description.processStepGuid);
}

void traceRefusal(Trace& trace, const std::string& operation) noexcept {
    trap(trace, operation, [&] {
        const Failure failure = describeFailure("");
        char code[16];
        std::snprintf(code, sizeof(code), "0x%08lX", static_cast<unsigned long>(failure.code));
        trace.record(operation, std::string("answered with error ") + code + ": " + failure.description);
    });
}

}  // namespace pellmark
