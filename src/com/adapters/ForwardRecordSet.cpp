#include "com/adapters/ForwardRecordSet.h"

#include <limits>

#include "base/Error.h"

namespace pellmark {

namespace {

/// Raised while the host is asked.
class Raised {
  public:
    explicit Raised(bool& flag) : flag_(flag) { flag_ = true; }
    Raised(const Raised&) = delete;
    Raised& operator=(const Raised&) = delete;
    ~Raised() { flag_ = false; }

  private:
    bool& flag_;
};

}  // namespace

std::size_t ForwardRecordSet::count() {
    if (count_) return *count_;
    const auto held = alive();
    if (object_.has("Count")) {
        count_ = askCount();
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
    if (atEnd_ || records_.size() >= records) return;
    if (reading_) refuseReentry();
    const auto held = alive();
    const Raised reading(reading_);
    while (records_.size() < records) {
        atEnd_ = object_.call("EOF").boolean();
        if (atEnd_) return;
        if (records_.size() >= mostRecords_) {
            throw Error(errors::kHostInterface, origin(),
                        "The record set of " + origin() + " did not end after " +
                            std::to_string(mostRecords_) + " records.");
        }
        std::vector<std::string> record = readRecord();
        object_.call("MoveNext");  // where this fails, the record is read again, not twice
        records_.push_back(std::move(record));
    }
}

std::vector<std::string> ForwardRecordSet::readRecord() {
    std::vector<std::string> record;
    record.reserve(fields().size());
    for (const auto& name : fields())
        record.push_back(object_.call("Field", {VariantArg(name)}).text());
    return record;
}

}  // namespace pellmark
