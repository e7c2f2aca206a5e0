#include "com/adapters/ForwardRecordSet.h"

#include <limits>

namespace pellmark {

std::size_t ForwardRecordSet::count() {
    if (count_) return *count_;
    if (object_.has("Count")) {
        const DispatchResult result = object_.call("Count");
        const std::int32_t records = result.int32();
        if (records < 0) result.failBecause("answered with a negative number.");
        count_ = static_cast<std::size_t>(records);
    } else {
        readTo(std::numeric_limits<std::size_t>::max());
        count_ = records_.size();
    }
    return *count_;
}

std::string ForwardRecordSet::text(std::size_t record, std::size_t field) {
    if (field >= fields().size() || (count_ && record >= *count_)) return {};
    readTo(record + 1);
    return record < records_.size() ? records_[record][field] : std::string();
}

void ForwardRecordSet::readTo(std::size_t records) {
    while (!atEnd_ && records_.size() < records) {
        atEnd_ = object_.call("EOF").boolean();
        if (atEnd_) return;
        std::vector<std::string> record;
        record.reserve(fields().size());
        for (const auto& name : fields())
            record.push_back(object_.call("Field", {VariantArg(name)}).text());
        records_.push_back(std::move(record));
        object_.call("MoveNext");
    }
}

}  // namespace pellmark
