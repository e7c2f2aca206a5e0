#pragma once

#include "ports/CodePage.h"

namespace pellmark::test {

/// Windows-1252 without Windows.
class PortableCodePage : public CodePage {
  public:
    std::string toAnsi(std::string_view utf8) const override;
    std::string fromAnsi(std::string_view ansi) const override;
};

}  // namespace pellmark::test
