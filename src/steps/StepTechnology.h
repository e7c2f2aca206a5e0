#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "knowledge/RecordSet.h"
#include "knowledge/Records.h"
#include "ports/Technology.h"
#include "steps/TechParams.h"

/// The way of a step's values between the knowledge base, which keeps texts, and the host's technology
/// object.
namespace pellmark {

/// Codes whose values are names and lists that may look like numbers: they stay texts.
bool isAlwaysText(std::int32_t clCode);

/// A parameter that has no value has nothing to store: an empty text would be a value.
bool isEmpty(const Variant& value);

/// Without every double quote: the host's technology puts texts in quotes of its own.
std::string withoutQuotes(std::string text);

/// The values of a step, keyed by CL code, as texts.
TechParams storedValues(RecordSet& values);

/// What a technology object holds of a step now: its inputs, what is kept anyway, and what somebody has set.
/// Figures that the host derives and only shows are not among them; they follow from the others.
TechParams valuesNow(TechnologyObject& technology);

/// Sets a parameter to a stored text: as a number where the parameter does not hold a text and the stored one
/// reads as a number.
void handOver(TechnologyParameter& parameter, const std::string& text);

/// Hands all values over that the technology has parameters for. `quotes` says whether double quotes are
/// handed over too.
enum class Quotes { Keep, Remove };
void handOver(TechnologyObject& technology, const TechParams& values, Quotes quotes);

/// What has to be written so that a step keeps what a person changed in its technology, and nothing else.
struct ValueChanges {
    std::vector<StepValueRecord> set;
    std::vector<std::int32_t> removed;
};
/// `before` and `after` are the technology's values around the change. A value that has become empty, or
/// whose parameter is gone, is removed where it was stored.
ValueChanges changesBetween(const TechParams& before, const TechParams& after, const TechParams& stored,
                            const std::string& stepId);
/// Whether the changes would overwrite a value that somebody else has changed since `stored` was read, to
/// something else than it is now to become. `now` is what is stored.
bool overwriteOthers(const ValueChanges& changes, const TechParams& stored, const TechParams& now);

}  // namespace pellmark
