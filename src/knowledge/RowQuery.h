#pragma once

#include <string>
#include <vector>

namespace pellmark {

/// Which records of a list are wanted, and in which order. Letters count without case (base/CaseFolding.h).
struct RowQuery {
    struct Value {
        std::string field;
        std::string value;
        bool operator==(const Value&) const = default;
    };

    /// Only records in which one of `fields` holds this text, or one of `values` is met; "" wants all.
    std::string text;
    std::vector<std::string> fields;
    /// Stored values that count as found: those of which a person sees a text that holds the one looked for.
    std::vector<Value> values;

    /// "" keeps the list's own order. Texts go by compareNatural, numbers by their value; records that are
    /// equal there keep the list's own order. Descending is exactly the reverse of that.
    std::string sortField;
    bool descending = false;

    bool operator==(const RowQuery&) const = default;
    bool wantsAll() const { return text.empty(); }
    bool isPlain() const { return text.empty() && sortField.empty(); }
};

}  // namespace pellmark
