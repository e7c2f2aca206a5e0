#pragma once

#include "ports/CodePage.h"

namespace pellmark {

/// The system's ANSI code page.
class Win32CodePage : public CodePage {
  public:
    std::string toAnsi(std::string_view utf8) const override;
    std::string fromAnsi(std::string_view ansi) const override;
};

}  // namespace pellmark
