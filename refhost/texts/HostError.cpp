#include "refhost/texts/HostError.h"

namespace norvex {

pellmark::Error HostError::translated(const Sentence::LookUp& lookUp) const {
    const std::string text = withDetail(sentence_.in(lookUp), detail_);
    if (text == description()) return *this;
    return {number(), source() + ": " + description(), text};
}

std::string HostError::withDetail(const std::string& text, const std::string& detail) {
    return detail.empty() ? text : text + "\n\n" + detail;
}

}  // namespace norvex
