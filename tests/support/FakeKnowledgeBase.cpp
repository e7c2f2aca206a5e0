#include "support/FakeKnowledgeBase.h"

#include <algorithm>

namespace pellmark::test {

FakeKnowledgeBase::FakeKnowledgeBase()
    : processStore_(tables_), featureCaseStore_(tables_), stepStore_(tables_) {}

bool FakeKnowledgeBase::may(int operation) {
    tables_.called("may", std::to_string(operation));
    return operation >= PermissionEdit && operation <= PermissionDelete && allowed.count(operation) > 0;
}

void FakeKnowledgeBase::throwOn(const std::string& operation, std::int32_t number,
                                const std::string& description) {
    tables_.failures.insert_or_assign(operation, Error(number, "KnowledgeBase", description));
}

std::vector<std::string> FakeKnowledgeBase::callsOf(const std::string& operation) const {
    std::vector<std::string> found;
    std::copy_if(
        tables_.calls.begin(), tables_.calls.end(), std::back_inserter(found),
        [&](const std::string& call) { return call == operation || call.starts_with(operation + " "); });
    return found;
}

std::string FakeKnowledgeBase::addProcess(const std::string& name, std::int16_t unitCode,
                                          const std::string& rule, const std::string& description) {
    const Guid id = tables_.newId();
    tables_.processes.push_back({id, {id.text(), name, unitCode, description, rule}, false, {}});
    return id.text();
}

void FakeKnowledgeBase::protect(const std::string& processId) {
    tables_.requireProcess(processId).isProtected = true;
}

std::string FakeKnowledgeBase::addStep(const std::string& processId, const std::string& name,
                                       std::int16_t priority, std::int16_t cuttingCycleId) {
    const Guid id = tables_.newId();
    const std::string owner = tables_.requireProcess(processId).record.Id;
    tables_.steps.push_back({id, {id.text(), name, owner, priority, cuttingCycleId}, {}});
    return id.text();
}

std::string FakeKnowledgeBase::addFeatureType(const std::string& name, std::int16_t nvxFeatureType,
                                              const std::string& partTypeId, std::int16_t unitCode) {
    const std::string id = tables_.newId().text();
    tables_.featureTypes.push_back({id, name, nvxFeatureType, partTypeId, unitCode});
    return id;
}

std::string FakeKnowledgeBase::addKey(const std::string& featureTypeId, const std::string& name) {
    tables_.keys.push_back({tables_.newId().text(), name, featureTypeId});
    return tables_.keys.back().id;
}

std::string FakeKnowledgeBase::addValue(const std::string& keyId, const std::string& name) {
    tables_.values.push_back({tables_.newId().text(), name, keyId});
    return tables_.values.back().id;
}

std::string FakeKnowledgeBase::addFeatureCase(const std::string& featureTypeId,
                                              const std::vector<std::string>& valueIds,
                                              const std::vector<std::string>& processIds) {
    FakeTables::FeatureCase featureCase;
    featureCase.id = tables_.newId();
    featureCase.description.featureTypeId = featureTypeId;
    for (const auto& id : valueIds)
        featureCase.values.insert(canonicalId(id));
    for (const auto& id : processIds)
        featureCase.processes.insert(canonicalId(id));
    tables_.featureCases.push_back(featureCase);
    return featureCase.id.text();
}

std::string FakeKnowledgeBase::addMaterialClass(const std::string& name) {
    tables_.materialClasses.push_back({tables_.newId().text(), name, {}});
    return tables_.materialClasses.back().id;
}

std::string FakeKnowledgeBase::addMaterial(const std::string& name, const std::string& classId) {
    tables_.materials.push_back({tables_.newId().text(), name, classId});
    return tables_.materials.back().id;
}

std::string FakeKnowledgeBase::addPartType(const std::string& name) {
    tables_.partTypes.push_back({tables_.newId().text(), name, {}});
    return tables_.partTypes.back().id;
}

void FakeKnowledgeBase::addNvxFeatureType(std::int16_t id, const std::string& name) {
    tables_.nvxFeatureTypes.push_back({std::to_string(id), name, {}});
}

void FakeKnowledgeBase::addCuttingCycle(std::int16_t id, const std::string& name, int type) {
    tables_.cuttingCycles.push_back({id, name, type});
}

}  // namespace pellmark::test
