#include "com/adapters/ProcessStepStoreAdapter.h"

#include "com/adapters/HostRecords.h"

namespace pellmark {

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

std::shared_ptr<RecordSet> ProcessStepStoreAdapter::cuttingCycles(const std::vector<int>& types) {
    return query("CuttingCycles", {arrayOf(types)});
}

}  // namespace pellmark
