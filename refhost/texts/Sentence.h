#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace norvex {

/// Marks an English text that is looked up where it is shown.
constexpr const char* sentence(const char* english) {
    return english;
}

/// What a person is told, in whatever language it turns out to be: an English text, the key of the
/// translation table, with the places %1 to %9 for values. A value is a text that stands as it is, a path
/// say, or a sentence itself.
class Sentence {
  public:
    /// The translation of an English text; the text itself when there is none.
    using LookUp = std::function<std::string(const std::string& english)>;

    explicit Sentence(const char* english, std::vector<Sentence> values = {})
        : text_(english), values_(std::move(values)), isLookedUp_(true) {}
    /// A value.
    Sentence(std::string text) : text_(std::move(text)) {}

    std::string english() const;
    std::string in(const LookUp& lookUp) const;

  private:
    std::string text_;
    std::vector<Sentence> values_;
    bool isLookedUp_ = false;
};

}  // namespace norvex
