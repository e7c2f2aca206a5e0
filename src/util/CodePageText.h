#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "ports/CodePage.h"

namespace pellmark {

/// Converts a text, piece by piece, to the system's code page and keeps count of what that cannot hold. A
/// piece must not end within a character.
class CodePageText {
  public:
    explicit CodePageText(const CodePage& codePage) : codePage_(codePage) {}

    /// What the code page lacks comes out as "?".
    std::string encode(std::string_view utf8);
    /// How many characters came out as "?" without being one.
    std::size_t lost() const { return lost_; }
    /// The first of them in UTF-8; "" when there is none.
    const std::string& firstLost() const { return firstLost_; }

  private:
    void countLost(std::string_view utf8);

    const CodePage& codePage_;
    std::size_t lost_ = 0;
    std::string firstLost_;
};

}  // namespace pellmark
