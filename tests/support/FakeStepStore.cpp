#include "support/FakeStepStore.h"

#include <algorithm>
#include <limits>

#include "knowledge/MemoryRecordSet.h"
#include "support/FakeLimits.h"

namespace pellmark::test {

namespace {

constexpr const char* kSource = "KnowledgeBase";

}  // namespace

std::shared_ptr<RecordSet> FakeStepStore::steps(const std::string& processId) {
    tables_.called("steps", processId);
    std::vector<const ProcessStepRecord*> sorted;
    for (const auto& step : tables_.steps) {
        if (step.record.processId == canonicalId(processId)) sorted.push_back(&step.record);
    }
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const auto* left, const auto* right) { return left->priority < right->priority; });
    auto records = std::make_shared<MemoryRecordSet>(std::vector<std::string>{
        field::kId, field::kProcessId, field::kPriority, field::kName, field::kCuttingCycleId});
    for (const auto* step : sorted) {
        records->addRow({step->id, step->processId, std::to_string(step->priority), step->name,
                         std::to_string(step->cuttingCycleId)});
    }
    return records;
}

ProcessStepRecord FakeStepStore::step(const std::string& id) {
    tables_.called("step", id);
    return tables_.requireStep(id).record;
}

std::string FakeStepStore::addStep(const ProcessStepRecord& record) {
    tables_.called("addStep", record.processId, record.name);
    checkLengths(record);
    if (tables_.refuses(record.processId)) return {};
    FakeTables::Step step;
    step.record = record;
    step.record.processId = tables_.requireProcess(record.processId).record.Id;
    step.id = tables_.newId();
    step.record.id = step.id.text();
    tables_.steps.push_back(step);
    return step.record.id;
}

void FakeStepStore::updateStep(const ProcessStepRecord& record) {
    tables_.called("updateStep", record.id);
    checkLengths(record);
    auto& step = tables_.requireStep(record.id);
    const std::string processId = tables_.requireProcess(record.processId).record.Id;
    step.record = record;
    step.record.processId = processId;
    step.record.id = step.id.text();
}

bool FakeStepStore::deleteStep(const std::string& id) {
    tables_.called("deleteStep", id);
    if (!tables_.findStep(id) || tables_.refuses(id)) return false;
    std::erase_if(tables_.steps, [&](const auto& step) { return step.record.id == canonicalId(id); });
    return true;
}

std::int16_t FakeStepStore::nextPriority(const std::string& processId) {
    tables_.called("nextPriority", processId);
    std::optional<std::int16_t> highest;
    for (const auto& step : tables_.steps) {
        if (step.record.processId != canonicalId(processId)) continue;
        highest = std::max(highest.value_or(step.record.priority), step.record.priority);
    }
    if (!highest) return 1;
    return *highest == std::numeric_limits<std::int16_t>::max() ? *highest
                                                                : static_cast<std::int16_t>(*highest + 1);
}

std::shared_ptr<RecordSet> FakeStepStore::values(const std::string& stepId) {
    tables_.called("stepValues", stepId);
    auto records =
        std::make_shared<MemoryRecordSet>(std::vector<std::string>{field::kClFileCode, field::kValue});
    if (const auto* step = tables_.findStep(stepId)) {
        for (const auto& [code, value] : step->values)
            records->addRow({std::to_string(code), value});
    }
    return records;
}

void FakeStepStore::addValue(const StepValueRecord& record) {
    tables_.called("addStepValue", record.stepId, std::to_string(record.clFileCode));
    auto& values = tables_.requireStep(record.stepId).values;
    if (!values.emplace(record.clFileCode, record.value).second) {
        throw Error(errors::kNotUnique, kSource,
                    "The step has a value with the code " + std::to_string(record.clFileCode) + " already.");
    }
}

void FakeStepStore::updateValue(const StepValueRecord& record) {
    tables_.called("updateStepValue", record.stepId, std::to_string(record.clFileCode));
    auto& values = tables_.requireStep(record.stepId).values;
    const auto at = values.find(record.clFileCode);
    if (at == values.end()) throwNotFound("step value", std::to_string(record.clFileCode));
    at->second = record.value;
}

void FakeStepStore::setValue(const StepValueRecord& record) {
    tables_.called("setStepValue", record.stepId, std::to_string(record.clFileCode));
    tables_.requireStep(record.stepId).values[record.clFileCode] = record.value;
}

void FakeStepStore::deleteValue(const std::string& stepId, std::int32_t clFileCode) {
    tables_.called("deleteStepValue", stepId, std::to_string(clFileCode));
    if (auto* step = tables_.findStep(stepId)) step->values.erase(clFileCode);
}

std::vector<TechnologySource> FakeStepStore::technologySources(const std::vector<std::string>& stepIds) {
    tables_.called("technologySources", std::to_string(stepIds.size()));
    std::map<std::string, TechnologySource> byId;
    for (const auto& step : tables_.steps)
        byId.emplace(step.record.id, step.source);
    std::vector<TechnologySource> sources;
    for (const auto& id : stepIds) {
        const auto found = byId.find(canonicalId(id));
        sources.push_back(found == byId.end() ? TechnologySource::DbStep : found->second);
    }
    return sources;
}

std::shared_ptr<RecordSet> FakeStepStore::cuttingCycles(const std::vector<int>& types) {
    tables_.called("cuttingCycles");
    auto sorted = tables_.cuttingCycles;
    std::sort(sorted.begin(), sorted.end(),
              [](const auto& left, const auto& right) { return left.id < right.id; });
    auto records = std::make_shared<MemoryRecordSet>(std::vector<std::string>{field::kId, field::kName});
    for (const int type : types) {
        for (const auto& cycle : sorted) {
            if (cycle.type == type) records->addRow({std::to_string(cycle.id), cycle.name});
        }
    }
    return records;
}

}  // namespace pellmark::test
