#pragma once

#include "controls/Form.h"
#include "support/RecordingTrace.h"
#include "support/ScriptedDesktop.h"

namespace pellmark::test {

/// A bare form on a scripted desktop, for controls that need one to stand in.
struct FormHarness {
    RecordingTrace trace;
    Operations operations{trace};
    ScriptedDesktop desktop{operations};
    Form form{desktop, "FrmTest"};
};

}  // namespace pellmark::test
