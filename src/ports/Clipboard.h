#pragma once

#include <string>

#include "base/Geometry.h"

namespace pellmark {

/// One content in the forms in which other programs may take it; each takes the richest that it knows.
struct ClipboardContent {
    std::string text;          ///< plain text with CR LF between its lines
    std::string htmlFragment;  ///< what stands inside a page's body; "" for none
};

/// What persons carry from one program to the next.
class Clipboard {
  public:
    virtual ~Clipboard() = default;
    /// Replaces what the clipboard holds. False when another program keeps it open; what it held is then
    /// still there. Throws Error (device error) when the system cannot take the content.
    virtual bool put(const ClipboardContent& content, WindowHandle owner) = 0;
};

}  // namespace pellmark
