#pragma once

#include <cstddef>
#include <memory>

#include "knowledge/RecordSet.h"
#include "refhost/automation/AutomationObject.h"

namespace norvex {

/// A record set for the component, in pages, and for scripts, field by field with a cursor.
class RecordSetObject : public AutomationObject {
  public:
    explicit RecordSetObject(std::shared_ptr<pellmark::RecordSet> records);

  private:
    pellmark::VariantArg fields() const;
    pellmark::VariantArg page(const Arguments& arguments);
    pellmark::VariantArg keys();
    pellmark::VariantArg field(const Arguments& arguments);

    std::shared_ptr<pellmark::RecordSet> records_;
    std::size_t cursor_ = 0;
};

/// A packed text as a result.
pellmark::VariantArg packedResult(const std::u16string& packed);

}  // namespace norvex
