#include "com/adapters/HostRecordSet.h"

#include "base/Error.h"
#include "com/adapters/ForwardRecordSet.h"
#include "com/adapters/PagedRecordSet.h"

namespace pellmark {

HostRecordSet::HostRecordSet(DispatchObject object)
    : object_(std::move(object)), fields_(split(object_.call("Fields").text(), '|')) {}

bool HostRecordSet::hasMore() {
    const auto held = alive();
    return object_.has("HasMore") && object_.call("HasMore").boolean();
}

void HostRecordSet::refuseReentry() const {
    throw Error(errors::kHostInterface, origin(),
                "The records of " + origin() + " were asked for again while the host was giving them.");
}

std::size_t HostRecordSet::askCount() {
    const DispatchResult result = object_.call("Count");
    const std::int32_t records = result.int32();
    if (records < 0) result.failBecause("answered with a negative number.");
    return static_cast<std::size_t>(records);
}

std::shared_ptr<RecordSet> adaptRecordSet(DispatchObject object) {
    if (object.has("Page")) return std::make_shared<PagedRecordSet>(std::move(object));
    return std::make_shared<ForwardRecordSet>(std::move(object));
}

}  // namespace pellmark
