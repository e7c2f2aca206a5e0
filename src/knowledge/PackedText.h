#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace pellmark {

/// Many texts in one: each as its length in UTF-16 units in decimal, a colon, and the text itself
/// ("4:Bore2:71"). One such text per page of records crosses the boundary to the host, because what costs
/// there is a string allocated per cell. Lengths need no escaping, whatever the texts hold.
class PackedTextWriter {
  public:
    void add(std::string_view utf8);
    const std::u16string& text() const { return text_; }

  private:
    std::u16string text_;
};

/// Takes a packed text apart. The text must outlive the reader.
class PackedTextReader {
  public:
    explicit PackedTextReader(std::u16string_view packed) : rest_(packed) {}

    bool atEnd() const { return rest_.empty(); }
    /// The next text as UTF-8. Throws errors::kHostInterface, with the place, when the packed text is
    /// malformed or at its end.
    std::string next();

  private:
    [[noreturn]] void fail(std::size_t length) const;

    std::u16string_view rest_;
    std::size_t place_ = 0;
};

/// All texts of a packed text, in order; fails as the reader does.
std::vector<std::string> unpackTexts(std::u16string_view packed);

/// All records of a packed text, `fields` texts each. Throws errors::kHostInterface also when the last record
/// is not complete.
std::vector<std::vector<std::string>> unpackRecords(std::u16string_view packed, std::size_t fields);

}  // namespace pellmark
