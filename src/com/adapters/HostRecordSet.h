#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "automation/DispatchObject.h"
#include "knowledge/RecordSet.h"

namespace pellmark {

/// What both forms of the host's record sets share: the object and the names of its fields, asked for once.
class HostRecordSet : public RecordSet {
  public:
    const std::vector<std::string>& fields() const override { return fields_; }

  protected:
    explicit HostRecordSet(DispatchObject object);

    DispatchObject object_;

  private:
    std::vector<std::string> fields_;
};

/// Chooses by the object's members: one with a member Page is read in pages, any other field by field.
std::shared_ptr<RecordSet> adaptRecordSet(DispatchObject object);

/// The text of a BSTR without a copy.
std::u16string_view unitsOf(BSTR text);

}  // namespace pellmark
