#include "refhost/store/Lengths.h"

#include "base/Text.h"
#include "refhost/texts/HostError.h"

namespace norvex {

namespace {

namespace limit = pellmark::limit;

constexpr const char* kName = sentence("The name has %1 characters; it cannot have more than %2.");

void checkLength(const std::string& text, std::size_t limitInUnits, const char* refusal) {
    const std::size_t length = pellmark::utf16Length(text);
    if (length <= limitInUnits) return;
    throw HostError(pellmark::errors::kValueTooLong, "KnowledgeBase",
                    Sentence(refusal, {std::to_string(length), std::to_string(limitInUnits)}));
}

}  // namespace

void checkLengths(const pellmark::ProcessRecord& record) {
    checkLength(record.Name, limit::kName, kName);
    checkLength(record.Rule, limit::kRule,
                sentence("The rule has %1 characters; it cannot have more than %2."));
    checkLength(record.Description, limit::kDescription,
                sentence("The description has %1 characters; it cannot have more than %2."));
}

void checkLengths(const pellmark::ProcessStepRecord& record) {
    checkLength(record.name, limit::kName, kName);
}

}  // namespace norvex
