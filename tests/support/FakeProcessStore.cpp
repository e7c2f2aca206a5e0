#include "support/FakeProcessStore.h"

#include <algorithm>

#include "knowledge/ArrangedRecords.h"
#include "knowledge/MemoryRecordSet.h"
#include "knowledge/RowFinder.h"
#include "support/FakeLimits.h"

namespace pellmark::test {

namespace {

std::shared_ptr<MemoryRecordSet> processFields() {
    return std::make_shared<MemoryRecordSet>(
        std::vector<std::string>{field::kId, field::kName, field::kUnit, field::kRule, field::kDescription});
}

void addTo(MemoryRecordSet& records, const ProcessRecord& record) {
    records.addRow({record.Id, record.Name, std::to_string(record.Unit), record.Rule, record.Description});
}

}  // namespace

std::vector<const FakeTables::Process*> FakeProcessStore::byName() const {
    std::vector<const FakeTables::Process*> sorted;
    for (const auto& process : tables_.processes)
        sorted.push_back(&process);
    std::sort(sorted.begin(), sorted.end(), [](const auto* left, const auto* right) {
        return beforeByName(left->record.Name, left->record.Id, right->record.Name, right->record.Id);
    });
    return sorted;
}

std::shared_ptr<RecordSet> FakeProcessStore::processes(const std::string& id) {
    tables_.called("processes", id);
    auto records = processFields();
    for (const auto* process : byName()) {
        if (id.empty() || process->record.Id == canonicalId(id)) addTo(*records, process->record);
    }
    return records;
}

std::shared_ptr<RecordSet> FakeProcessStore::findProcesses(const RowQuery& query) {
    tables_.called("findProcesses", query.text, query.sortField);
    if (!tables_.findsProcesses) return nullptr;
    auto all = processFields();
    for (const auto* process : byName())
        addTo(*all, process->record);
    const auto asStored = [](const std::string&, const std::string& stored) { return stored; };
    const auto noHurry = [](std::size_t, std::size_t) { return true; };
    return std::make_shared<ArrangedRecords>(all, *RowFinder(*all, asStored, noHurry).find(query));
}

ProcessRecord FakeProcessStore::process(const std::string& id) {
    tables_.called("process", id);
    return tables_.requireProcess(id).record;
}

std::vector<std::optional<ProcessRecord>> FakeProcessStore::processRecords(
    const std::vector<std::string>& ids) {
    tables_.called("processRecords");
    std::vector<std::optional<ProcessRecord>> records;
    for (const auto& id : ids) {
        const auto* process = tables_.findProcess(id);
        records.push_back(process ? std::optional(process->record) : std::nullopt);
    }
    return records;
}

std::shared_ptr<RecordSet> FakeProcessStore::orphanProcesses() {
    tables_.called("orphanProcesses");
    auto records = std::make_shared<MemoryRecordSet>(std::vector<std::string>{field::kId});
    for (const auto& process : tables_.processes) {
        const bool attached = std::any_of(
            tables_.featureCases.begin(), tables_.featureCases.end(),
            [&](const auto& featureCase) { return featureCase.processes.count(process.record.Id) > 0; });
        if (!attached) records->addRow({process.record.Id});
    }
    return records;
}

std::string FakeProcessStore::addProcess(const ProcessRecord& record) {
    tables_.called("addProcess", record.Name);
    checkLengths(record);
    FakeTables::Process process;
    process.id = tables_.newId();
    process.record = record;
    process.record.Id = process.id.text();
    tables_.processes.push_back(process);
    return process.record.Id;
}

void FakeProcessStore::updateProcess(const ProcessRecord& record) {
    tables_.called("updateProcess", record.Id);
    checkLengths(record);
    auto& process = tables_.requireProcess(record.Id);
    process.record = record;
    process.record.Id = process.id.text();
}

bool FakeProcessStore::deleteProcess(const std::string& id) {
    tables_.called("deleteProcess", id);
    const auto* process = tables_.findProcess(id);
    if (!process || process->isProtected || tables_.refuses(id)) return false;
    const std::string gone = process->record.Id;
    std::erase_if(tables_.steps, [&](const auto& step) { return step.record.processId == gone; });
    for (auto& featureCase : tables_.featureCases)
        featureCase.processes.erase(gone);
    std::erase_if(tables_.processes, [&](const auto& each) { return each.record.Id == gone; });
    return true;
}

void FakeProcessStore::attach(const std::string& processId, const std::string& featureCaseId) {
    tables_.called("attach", processId, featureCaseId);
    const auto& process = tables_.requireProcess(processId);
    tables_.requireFeatureCase(featureCaseId).processes.insert(process.record.Id);
}

bool FakeProcessStore::detach(const std::string& featureCaseId, const std::string& processId) {
    tables_.called("detach", featureCaseId, processId);
    if (tables_.refuses(processId)) return false;
    auto* featureCase = tables_.findFeatureCase(featureCaseId);
    if (featureCase) featureCase->processes.erase(canonicalId(processId));
    return true;
}

void FakeProcessStore::addMaterial(const std::string& processId, const std::string& materialId) {
    tables_.called("addMaterial", processId, materialId);
    auto& process = tables_.requireProcess(processId);
    process.materials.insert(requireNamed(tables_.materials, materialId, "material").id);
}

void FakeProcessStore::removeMaterial(const std::string& processId, const std::string& materialId) {
    tables_.called("removeMaterial", processId, materialId);
    if (auto* process = tables_.findProcess(processId)) process->materials.erase(canonicalId(materialId));
}

std::shared_ptr<RecordSet> FakeProcessStore::materialsOf(const std::string& processId) {
    tables_.called("materialsOf", processId);
    static const std::set<std::string> none;
    const auto* process = tables_.findProcess(processId);
    return materialRecords(process ? &process->materials : &none);
}

std::shared_ptr<RecordSet> FakeProcessStore::materials() {
    tables_.called("materials");
    return materialRecords(nullptr);
}

std::shared_ptr<RecordSet> FakeProcessStore::materialRecords(const std::set<std::string>* only) const {
    auto sorted = tables_.materials;
    std::sort(sorted.begin(), sorted.end(), [](const auto& left, const auto& right) {
        return beforeByName(left.name, left.id, right.name, right.id);
    });
    auto records = std::make_shared<MemoryRecordSet>(
        std::vector<std::string>{field::kId, field::kName, field::kPartMaterialGroupId});
    for (const auto& material : sorted) {
        if (!only || only->count(material.id) > 0) {
            records->addRow({material.id, material.name, material.ownerId});
        }
    }
    return records;
}

}  // namespace pellmark::test
