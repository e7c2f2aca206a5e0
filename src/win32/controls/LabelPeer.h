#pragma once

#include "controls/Controls.h"
#include "win32/controls/ControlPeer.h"

namespace pellmark {

/// A static text; its access key leads to the next control.
class LabelPeer : public ControlPeer {
  public:
    LabelPeer(FormWindow& form, Label& label, HWND parent);
};

}  // namespace pellmark
