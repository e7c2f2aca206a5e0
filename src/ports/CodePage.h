#pragma once

#include <string>
#include <string_view>

namespace pellmark {

/// Converts between UTF-8 and the system's single-byte code page. A character that the code page lacks
/// becomes "?", never a look-alike: a fullwidth backslash must not turn into a real one.
class CodePage {
  public:
    virtual ~CodePage() = default;
    virtual std::string toAnsi(std::string_view utf8) const = 0;
    virtual std::string fromAnsi(std::string_view ansi) const = 0;
};

}  // namespace pellmark
