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
    HostError(std::int32_t number, const std::string& source, Sentence sentence)
        : Error(number, source, sentence.english()), sentence_(std::move(sentence)) {}

    /// The failure as it is handed on to the person. Where its description is no longer English, the source
    /// holds the English one: sources are for the trace, and whoever reads that helps people in all
    /// languages.
    pellmark::Error translated(const Sentence::LookUp& lookUp) const;

  private:
    Sentence sentence_;
};

}  // namespace norvex
