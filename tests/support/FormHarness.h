#pragma once

#include "controls/Form.h"
#include "support/ScriptedDesktop.h"

namespace pellmark::test {

/// A bare form on a scripted desktop, for controls that need one to stand in.
struct FormHarness {
    ScriptedDesktop desktop;
    Form form{desktop, "FrmTest"};
};

}  // namespace pellmark::test
