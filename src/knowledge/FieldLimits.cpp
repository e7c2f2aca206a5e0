#include "knowledge/FieldLimits.h"

#include "base/Error.h"
#include "base/Text.h"

namespace pellmark {

void checkLength(std::string_view text, std::size_t limitInUnits, const std::string& fieldName,
                 const std::string& source) {
    // A UTF-8 text never has more UTF-16 units than bytes, so most texts need no counting.
    if (text.size() <= limitInUnits) return;
    const std::size_t length = utf16Length(text);
    if (length <= limitInUnits) return;
    throw Error(errors::kValueTooLong, source,
                "The " + fieldName + " has " + std::to_string(length) +
                    " characters; it cannot have more than " + std::to_string(limitInUnits) + ".");
}

void checkLengths(const ProcessRecord& record, const std::string& source) {
    checkLength(record.Name, limit::kName, "name", source);
    checkLength(record.Rule, limit::kRule, "rule", source);
    checkLength(record.Description, limit::kDescription, "description", source);
}

void checkLengths(const ProcessStepRecord& record, const std::string& source) {
    checkLength(record.name, limit::kName, "name", source);
}

}  // namespace pellmark
