#include "knowledge/RecordSet.h"

#include "base/Error.h"
#include "base/Text.h"

namespace pellmark {

std::optional<std::size_t> RecordSet::fieldIndex(std::string_view name) const {
    const auto& names = fields();
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (equalNoCase(names[i], name)) return i;
    }
    return std::nullopt;
}

std::size_t RecordSet::requireField(std::string_view name) const {
    if (const auto position = fieldIndex(name)) return *position;
    throw Error(errors::kHostInterface, origin(),
                "The record set of " + origin() + " lacks the field " + std::string(name) + ".");
}

}  // namespace pellmark
