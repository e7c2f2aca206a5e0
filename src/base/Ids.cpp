#include "base/Ids.h"

#include "base/Guid.h"

namespace pellmark {

std::string registryForm(const std::string& id) {
    const auto guid = Guid::parse(id);
    return guid ? guid->text() : id;
}

}  // namespace pellmark
