#pragma once

#include "base/Trace.h"
#include "com/Members.h"
#include "com/MethodCall.h"

namespace pellmark {

/// Leaves in the trace that a method was called, and what of its arguments can have no effect: a missing
/// host, and texts that are no identifiers, which name nothing. Whoever wonders why nothing happens begins
/// there.
void traceCall(Trace& trace, Member member, const MethodCall& call);

/// Leaves in the trace what the caller is answered to the exception in flight: a script that goes on after
/// errors does not look at it. Call only inside a catch block.
void traceRefusal(Trace& trace, const std::string& operation) noexcept;

}  // namespace pellmark
