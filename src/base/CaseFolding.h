#pragma once

#include <string>
#include <string_view>

namespace pellmark {

/// The small letter of a capital one in the scripts that the host is sold in (Latin, Greek, Cyrillic); other
/// units as they are. The standard library's own depends on the locale of the process, which is the host's.
char16_t foldCase(char16_t unit);

/// The same within a UTF-8 text, whose length in bytes stays. Malformed bytes stay as they are.
void foldCaseOf(std::string& text);

/// A text to look for in many others, without case.
class FoldedNeedle {
  public:
    explicit FoldedNeedle(std::string_view text) : folded_(text) { foldCaseOf(folded_); }
    /// An empty one is in every text.
    bool isIn(std::string_view text);

  private:
    std::string folded_;
    std::string other_;  ///< the text looked at, folded; kept so that many texts share its memory
};

}  // namespace pellmark
