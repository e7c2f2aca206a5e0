#include "refhost/texts/HostError.h"

namespace norvex {

pellmark::Error HostError::translated(const Sentence::LookUp& lookUp) const {
    const std::string text = sentence_.in(lookUp);
    if (text == description()) return *this;
    return {number(), source() + ": " + description(), text};
}

}  // namespace norvex
