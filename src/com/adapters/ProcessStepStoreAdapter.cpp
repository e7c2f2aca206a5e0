#include "com/adapters/ProcessStepStoreAdapter.h"

#include <algorithm>

#include "com/adapters/HostRecords.h"

namespace pellmark {

namespace {

/// A code that this version does not know, from a newer host perhaps, is no reason to show no list.
TechnologySource sourceFrom(const HostRecord& record, const DispatchResult& result) {
    constexpr auto kLast = static_cast<std::int16_t>(TechnologySource::User);
    const std::int16_t code = int16Of(record[0], result);
    const bool isKnown = !record[0].empty() && code >= 0 && code <= kLast;
    return isKnown ? static_cast<TechnologySource>(code) : TechnologySource::DbStep;
}

}  // namespace

std::shared_ptr<RecordSet> ProcessStepStoreAdapter::steps(const std::string& processId) {
    return query("Steps", {processId});
}

ProcessStepRecord ProcessStepStoreAdapter::step(const std::string& id) {
    const DispatchResult result = call("Step", {id});
    const HostRecord record = readRecord(
        result, {field::kId, field::kName, field::kProcessId, field::kPriority, field::kCuttingCycleId});
    return {record[0], record[1], record[2], int16Of(record[3], result), int16Of(record[4], result)};
}

std::string ProcessStepStoreAdapter::addStep(const ProcessStepRecord& record) {
    return call("AddStep", {record.name, record.processId, record.priority, record.cuttingCycleId}).text();
}

void ProcessStepStoreAdapter::updateStep(const ProcessStepRecord& record) {
    call("UpdateStep", {record.id, record.name, record.processId, record.priority, record.cuttingCycleId});
}

bool ProcessStepStoreAdapter::deleteStep(const std::string& id) {
    return call("DeleteStep", {id}).boolean();
}

std::int16_t ProcessStepStoreAdapter::nextPriority(const std::string& processId) {
    return call("NextPriority", {processId}).int16();
}

std::shared_ptr<RecordSet> ProcessStepStoreAdapter::values(const std::string& stepId) {
    return query("Values", {stepId});
}

void ProcessStepStoreAdapter::addValue(const StepValueRecord& record) {
    call("AddValue", {record.stepId, record.clFileCode, record.value});
}

void ProcessStepStoreAdapter::updateValue(const StepValueRecord& record) {
    call("UpdateValue", {record.stepId, record.clFileCode, record.value});
}

void ProcessStepStoreAdapter::setValue(const StepValueRecord& record) {
    call("SetValue", {record.stepId, record.clFileCode, record.value});
}

void ProcessStepStoreAdapter::deleteValue(const std::string& stepId, std::int32_t clFileCode) {
    call("DeleteValue", {stepId, clFileCode});
}

std::vector<TechnologySource> ProcessStepStoreAdapter::technologySources(
    const std::vector<std::string>& stepIds) {
    std::vector<TechnologySource> sources(stepIds.size(), TechnologySource::DbStep);
    if (stepIds.empty() || !store().has("TechnologySources")) return sources;
    const DispatchResult result = call("TechnologySources", {packedTexts(stepIds)});
    const auto records = readRecords(result, {"Source"});
    if (records.size() != stepIds.size()) result.failBecause("did not answer with one source per id.");
    std::transform(records.begin(), records.end(), sources.begin(),
                   [&](const HostRecord& record) { return sourceFrom(record, result); });
    return sources;
}

std::shared_ptr<RecordSet> ProcessStepStoreAdapter::cuttingCycles(const std::vector<int>& types) {
    return query("CuttingCycles", {arrayOf(types)});
}

}  // namespace pellmark
