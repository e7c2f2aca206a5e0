#pragma once

#include <string>

namespace pellmark {

/// An id as the knowledge base hands it out: GUID text in registry form, however it was written; any other
/// text as it is.
std::string registryForm(const std::string& id);

}  // namespace pellmark
