#pragma once

#include <memory>

#include "win32/controls/ControlPeer.h"

namespace pellmark {

/// Creates the window of a control, and of all within it, as a child of `parent`.
std::unique_ptr<ControlPeer> makePeer(FormWindow& form, Control& control, HWND parent);

}  // namespace pellmark
