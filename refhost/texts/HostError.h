#pragma once

#include <string>
#include <utility>

#include "base/Error.h"
#include "refhost/texts/Sentence.h"

namespace norvex {

/// A failure that a person reads about in the language of the host. Its number, source and description are
/// the same in every language; the description is English.
class HostError : public pellmark::Error {
  public:
    /// `detail` stands below the sentence, the same in every language: a path, say.
    HostError(std::int32_t number, const std::string& source, Sentence sentence,
              const std::string& detail = {})
        : Error(number, source, withDetail(sentence.english(), detail)),
          sentence_(std::move(sentence)),
          detail_(detail) {}

    /// The failure as it is handed on to the person. Where its description is no longer English, the source
    /// holds the English one: sources are for the trace, and whoever reads that helps people in all
    /// languages.
    pellmark::Error translated(const Sentence::LookUp& lookUp) const;

  private:
    static std::string withDetail(const std::string& text, const std::string& detail);

    Sentence sentence_;
    std::string detail_;
};

}  // namespace norvex
