#pragma once

#include <fstream>

#include "refhost/automation/AutomationObject.h"
#include "refhost/technology/ProcessFileReader.h"

namespace norvex {

/// A process file that is read operation by operation.
class ProcessFileObject : public AutomationObject {
  public:
    /// Throws pellmark::Error when the file cannot be opened or is none.
    explicit ProcessFileObject(const std::string& path);

  private:
    pellmark::VariantArg next();

    std::ifstream file_;
    ProcessFileReader reader_;
};

}  // namespace norvex
