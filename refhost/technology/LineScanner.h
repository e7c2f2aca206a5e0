#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace norvex {

/// Takes a line of a process file apart, from left to right. Blanks between the parts do not matter, and
/// neither does what follows a "#".
class LineScanner {
  public:
    explicit LineScanner(std::string_view line) : rest_(line) {}

    /// Nothing but blanks and a comment is left.
    bool atEnd();
    /// A word up to the next blank; "" where there is none.
    std::string_view word();
    /// An integer; nothing where there is none or it does not fit.
    std::optional<std::int32_t> integer();
    /// A finite number, exactly as numbers are written.
    std::optional<double> number();
    /// Takes the character when it is the next one.
    bool take(char character);
    /// The next part begins like a text.
    bool isText();
    /// A text in double quotes; nothing when it is not closed, or holds an escape that has no meaning.
    std::optional<std::string> text();

  private:
    void skipBlanks();
    /// What an escape stands for, appended; false for one that has no meaning.
    bool unescape(std::string& into);

    std::string_view rest_;
};

}  // namespace norvex
