#include "processes/ProcessMerge.h"

namespace pellmark {

namespace {

const std::string& shown(const std::string& text) {
    return text;
}

/// A unit as the dialog offers it; a code that is neither has no text.
std::string shown(std::int16_t unitCode) {
    if (unitCode == unit::kInch) return "Inch";
    return unitCode == unit::kMetric ? "Metric" : "";
}

template <class Value>
void merge(const char* label, Value ProcessRecord::*field, const ProcessRecord& before,
           const ProcessRecord& theirs, MergedProcess& merged) {
    Value& mine = merged.record.*field;
    if (theirs.*field == before.*field || theirs.*field == mine) return;
    if (mine == before.*field) {
        mine = theirs.*field;
    } else {
        merged.contested.push_back({label, shown(theirs.*field)});
    }
}

}  // namespace

MergedProcess mergedProcess(const ProcessRecord& before, const ProcessRecord& mine,
                            const ProcessRecord& theirs) {
    MergedProcess merged{mine, {}};
    merge("Name", &ProcessRecord::Name, before, theirs, merged);
    merge("Unit", &ProcessRecord::Unit, before, theirs, merged);
    merge("Rule", &ProcessRecord::Rule, before, theirs, merged);
    merge("Description", &ProcessRecord::Description, before, theirs, merged);
    return merged;
}

}  // namespace pellmark
