#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "automation/DispatchObject.h"
#include "knowledge/RecordSet.h"

namespace pellmark {

/// What both forms of the host's record sets share: the object and the names of its fields, asked for once.
/// While a member of the host runs, its code, or a message that it lets through, may ask the same record set
/// again, or let go of it.
class HostRecordSet : public RecordSet, public std::enable_shared_from_this<HostRecordSet> {
  public:
    const std::vector<std::string>& fields() const override { return fields_; }
    bool hasMore() override;
    /// The member that answered with it: "ProcessStore.Processes".
    std::string origin() const override { return object_.name(); }

  protected:
    explicit HostRecordSet(DispatchObject object);

    /// Held while the host is asked.
    std::shared_ptr<HostRecordSet> alive() { return weak_from_this().lock(); }
    /// Ends a request that came while the host was still answering an earlier one for the same records.
    [[noreturn]] void refuseReentry() const;
    /// The host's number of records.
    std::size_t askCount();

    DispatchObject object_;

  private:
    std::vector<std::string> fields_;
};

/// Chooses by the object's members: one with a member Page is read in pages, any other field by field.
std::shared_ptr<RecordSet> adaptRecordSet(DispatchObject object);

}  // namespace pellmark
