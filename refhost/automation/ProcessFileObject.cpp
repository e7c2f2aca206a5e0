#include "refhost/automation/ProcessFileObject.h"

#include "refhost/automation/Identifiers.h"
#include "refhost/automation/TechnologyObject.h"
#include "refhost/texts/HostError.h"

namespace norvex {

using pellmark::VariantArg;

ProcessFileObject::ProcessFileObject(const std::string& path)
    : AutomationObject("Norvex.ProcessFile", kProcessFile),
      file_(openProcessFile(path)),
      reader_(file_, path) {
    property(1, L"Count", [this](const Arguments&) { return reader_.count(); });
    method(2, L"NextOperation", 0, [this](const Arguments&) { return next(); });
}

VariantArg ProcessFileObject::next() {
    auto operation = reader_.next();
    if (!operation) {
        throw HostError(pellmark::errors::kNotFound, "Norvex.ProcessFile",
                        Sentence("All operations of the file have been read."));
    }
    return makeObject<TechnologyObject>(*std::move(operation));
}

}  // namespace norvex
