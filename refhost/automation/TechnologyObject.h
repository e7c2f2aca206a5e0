#pragma once

#include "refhost/automation/AutomationObject.h"
#include "refhost/technology/Operation.h"

namespace norvex {

/// The technology of one step for automation clients.
class TechnologyObject : public AutomationObject {
  public:
    /// `materialClass` is that of the process's first material; 0 when nobody knows.
    explicit TechnologyObject(Operation operation, char materialClass = 0);

    /// The object behind an argument. Throws pellmark::CallError for anything that this library did not make.
    static TechnologyObject& from(const VARIANT& argument);

    Operation& operation() { return operation_; }
    char materialClass() const { return materialClass_; }

  private:
    pellmark::VariantArg parameters() const;
    void setValue(const Arguments& arguments);

    Operation operation_;
    char materialClass_;
};

}  // namespace norvex
