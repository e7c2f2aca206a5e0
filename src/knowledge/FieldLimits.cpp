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

}  // namespace pellmark
