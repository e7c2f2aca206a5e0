#pragma once

#include "ports/Clipboard.h"

namespace pellmark {

/// The system's clipboard. A program that has it open usually lets it go within milliseconds, so opening it
/// is tried for a third of a second.
class Win32Clipboard : public Clipboard {
  public:
    bool put(const ClipboardContent& content, WindowHandle owner) override;
};

}  // namespace pellmark
