#include "refhost/texts/Sentence.h"

namespace norvex {

std::string Sentence::english() const {
    return in([](const std::string& text) { return text; });
}

std::string Sentence::in(const LookUp& lookUp) const {
    if (!isLookedUp_) return text_;
    std::string filled;
    std::string_view rest;
    const std::string text = lookUp(text_);
    // In one go from the front: a value may hold a place of its own, a file called "%1" say.
    for (rest = text; !rest.empty(); rest.remove_prefix(1)) {
        const bool isPlace = rest.front() == '%' && rest.size() > 1 && rest[1] >= '1' && rest[1] <= '9';
        const std::size_t value = isPlace ? static_cast<std::size_t>(rest[1] - '1') : values_.size();
        if (value >= values_.size()) {
            filled += rest.front();
            continue;
        }
        filled += values_[value].in(lookUp);
        rest.remove_prefix(1);
    }
    return filled;
}

}  // namespace norvex
