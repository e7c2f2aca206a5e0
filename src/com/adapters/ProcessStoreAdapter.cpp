#include "com/adapters/ProcessStoreAdapter.h"

#include "base/Error.h"
#include "com/adapters/HostRecords.h"

namespace pellmark {

namespace {

constexpr auto kProcessFields = {field::kId, field::kName, field::kUnit, field::kDescription, field::kRule};

ProcessRecord processFrom(const HostRecord& record, const DispatchResult& result) {
    return {record[0], record[1], int16Of(record[2], result), record[3], record[4]};
}

}  // namespace

std::shared_ptr<RecordSet> ProcessStoreAdapter::processes(const std::string& id) {
    return query("Processes", {id});
}

std::shared_ptr<RecordSet> ProcessStoreAdapter::findProcesses(const RowQuery& wanted) {
    if (!store().has("FindProcesses")) return nullptr;
    std::string fields;
    for (const std::string& field : wanted.fields)
        fields += (fields.empty() ? "" : "|") + field;
    std::vector<std::string> values;
    for (const RowQuery::Value& each : wanted.values) {
        values.push_back(each.field);
        values.push_back(each.value);
    }
    return query("FindProcesses",
                 {wanted.text, fields, packedTexts(values), wanted.sortField, wanted.descending});
}

ProcessRecord ProcessStoreAdapter::process(const std::string& id) {
    const DispatchResult result = call("Process", {id});
    return processFrom(readRecord(result, kProcessFields), result);
}

std::optional<ProcessRecord> ProcessStoreAdapter::processIfPresent(const std::string& id) {
    try {
        return process(id);
    } catch (const Error& error) {
        if (error.number() != errors::kNotFound) throw;
        return std::nullopt;
    }
}

std::vector<std::optional<ProcessRecord>> ProcessStoreAdapter::processRecords(
    const std::vector<std::string>& ids) {
    std::vector<std::optional<ProcessRecord>> found;
    if (ids.empty()) return found;
    found.reserve(ids.size());
    if (!store().has("ProcessRecords")) {
        for (const auto& id : ids)
            found.push_back(processIfPresent(id));
        return found;
    }
    const DispatchResult result = call("ProcessRecords", {packedTexts(ids)});
    const auto records = readRecords(result, kProcessFields);
    if (records.size() != ids.size()) result.failBecause("did not answer with one record per id.");
    for (const auto& record : records) {
        found.push_back(record[0].empty() ? std::nullopt : std::optional(processFrom(record, result)));
    }
    return found;
}

std::shared_ptr<RecordSet> ProcessStoreAdapter::orphanProcesses() {
    return query("OrphanProcesses");
}

std::string ProcessStoreAdapter::addProcess(const ProcessRecord& record) {
    return call("AddProcess", {record.Name, record.Unit, record.Description, record.Rule}).text();
}

void ProcessStoreAdapter::updateProcess(const ProcessRecord& record) {
    call("UpdateProcess", {record.Id, record.Name, record.Unit, record.Description, record.Rule});
}

bool ProcessStoreAdapter::deleteProcess(const std::string& id) {
    return call("DeleteProcess", {id}).boolean();
}

void ProcessStoreAdapter::attach(const std::string& processId, const std::string& featureCaseId) {
    call("AttachProcess", {processId, featureCaseId});
}

bool ProcessStoreAdapter::detach(const std::string& featureCaseId, const std::string& processId) {
    return call("DetachProcess", {featureCaseId, processId}).boolean();
}

void ProcessStoreAdapter::addMaterial(const std::string& processId, const std::string& materialId) {
    call("AddMaterial", {processId, materialId});
}

void ProcessStoreAdapter::removeMaterial(const std::string& processId, const std::string& materialId) {
    call("RemoveMaterial", {processId, materialId});
}

std::shared_ptr<RecordSet> ProcessStoreAdapter::materialsOf(const std::string& processId) {
    return query("MaterialsOf", {processId});
}

}  // namespace pellmark
