#include "support/FakeFeatureCaseStore.h"

#include <algorithm>

#include "knowledge/MemoryRecordSet.h"

namespace pellmark::test {

namespace {

std::set<std::string> canonicalSet(const std::vector<std::string>& ids) {
    std::set<std::string> set;
    for (const auto& id : ids)
        set.insert(canonicalId(id));
    return set;
}

std::shared_ptr<MemoryRecordSet> idsAndNames() {
    return std::make_shared<MemoryRecordSet>(std::vector<std::string>{field::kId, field::kName});
}

std::shared_ptr<RecordSet> listed(const std::vector<FakeTables::Named>& list) {
    auto records = idsAndNames();
    for (const auto& named : list)
        records->addRow({named.id, named.name});
    return records;
}

}  // namespace

std::vector<pNode> FakeFeatureCaseStore::processesOfValues(const FeatureCaseDescription& description,
                                                           int style) {
    tables_.called("processesOfValues", std::to_string(style));
    if (style != 0 && style != 1) {
        throw Error(errors::kInvalidArgument, "KnowledgeBase", "There are only the list styles 0 and 1.");
    }
    const auto asked = canonicalSet(description.valueIds);
    std::vector<pNode> nodes;
    for (const auto& featureCase : tables_.featureCases) {
        const auto has = [&](const std::string& value) { return featureCase.values.count(value) > 0; };
        if (std::none_of(asked.begin(), asked.end(), has)) continue;
        const bool exact = std::all_of(asked.begin(), asked.end(), has);
        const std::size_t first = nodes.size();
        for (const auto& processId : featureCase.processes) {
            const auto& process = tables_.requireProcess(processId);
            if (!applies(process, description.materialClassId, style)) continue;
            if (description.processUnit >= 0 && process.record.Unit != description.processUnit) continue;
            const auto& record = process.record;
            nodes.push_back({record.Id, featureCase.id.text(), record.Name, record.Unit, record.Rule,
                             record.Description, exact});
        }
        std::sort(nodes.begin() + static_cast<std::ptrdiff_t>(first), nodes.end(),
                  [](const pNode& left, const pNode& right) {
                      return beforeByName(left.Name, left.id, right.Name, right.id);
                  });
    }
    return nodes;
}

bool FakeFeatureCaseStore::applies(const FakeTables::Process& process, const std::string& materialClassId,
                                   int style) const {
    if (materialClassId.empty()) return true;
    if (process.materials.empty()) return style == 0;
    return std::any_of(process.materials.begin(), process.materials.end(), [&](const std::string& material) {
        return canonicalId(requireNamed(tables_.materials, material, "material").ownerId) ==
               canonicalId(materialClassId);
    });
}

std::string FakeFeatureCaseStore::createFeatureCase(const FeatureCaseDescription& description) {
    tables_.called("createFeatureCase", description.featureTypeId);
    const auto known = [&](const auto& type) { return type.id == canonicalId(description.featureTypeId); };
    if (std::none_of(tables_.featureTypes.begin(), tables_.featureTypes.end(), known)) {
        throwNotFound("feature type", description.featureTypeId);
    }
    FakeTables::FeatureCase featureCase;
    featureCase.id = tables_.newId();
    featureCase.description = description;
    tables_.featureCases.push_back(featureCase);
    return featureCase.id.text();
}

void FakeFeatureCaseStore::addValue(const std::string& valueId, const std::string& featureCaseId) {
    tables_.called("addValue", valueId, featureCaseId);
    auto& featureCase = tables_.requireFeatureCase(featureCaseId);
    featureCase.values.insert(requireNamed(tables_.values, valueId, "value").id);
}

std::vector<FeatureCaseMatch> FakeFeatureCaseStore::matches(const std::string& featureTypeId,
                                                            const std::vector<std::string>& valueIds) {
    tables_.called("matches", featureTypeId);
    std::vector<FeatureCaseMatch> found;
    const auto asked = canonicalSet(valueIds);
    for (const auto& featureCase : tables_.featureCases) {
        const std::string type = canonicalId(featureCase.description.featureTypeId);
        if (type == canonicalId(featureTypeId)) {
            found.push_back({featureCase.id.text(), type, featureCase.values == asked});
        }
    }
    return found;
}

std::shared_ptr<RecordSet> FakeFeatureCaseStore::nvxFeatureTypes() {
    tables_.called("nvxFeatureTypes");
    return listed(tables_.nvxFeatureTypes);
}

std::shared_ptr<RecordSet> FakeFeatureCaseStore::partTypes() {
    tables_.called("partTypes");
    return listed(tables_.partTypes);
}

std::shared_ptr<RecordSet> FakeFeatureCaseStore::materialClasses() {
    tables_.called("materialClasses");
    return listed(tables_.materialClasses);
}

std::shared_ptr<RecordSet> FakeFeatureCaseStore::featureTypes(std::int16_t nvxFeatureType,
                                                              const std::string& partTypeId,
                                                              std::int16_t unitCode) {
    tables_.called("featureTypes");
    auto records = idsAndNames();
    for (const auto& type : tables_.featureTypes) {
        const bool fits = (nvxFeatureType < 0 || type.nvxFeatureType == nvxFeatureType) &&
                          (partTypeId.empty() || type.partTypeId.empty() ||
                           canonicalId(type.partTypeId) == canonicalId(partTypeId)) &&
                          (unitCode < 0 || type.unit < 0 || type.unit == unitCode);
        if (fits) records->addRow({type.id, type.name});
    }
    return records;
}

std::shared_ptr<RecordSet> FakeFeatureCaseStore::keys(const std::string& featureTypeId) {
    tables_.called("keys", featureTypeId);
    auto records = idsAndNames();
    for (const auto& key : tables_.keys) {
        if (canonicalId(key.ownerId) == canonicalId(featureTypeId)) records->addRow({key.id, key.name});
    }
    return records;
}

std::shared_ptr<RecordSet> FakeFeatureCaseStore::values(const std::string& featureTypeId) {
    tables_.called("values", featureTypeId);
    auto records =
        std::make_shared<MemoryRecordSet>(std::vector<std::string>{field::kId, field::kName, field::kKeyId});
    for (const auto& key : tables_.keys) {
        if (canonicalId(key.ownerId) != canonicalId(featureTypeId)) continue;
        for (const auto& value : tables_.values) {
            if (canonicalId(value.ownerId) == canonicalId(key.id)) {
                records->addRow({value.id, value.name, key.id});
            }
        }
    }
    return records;
}

}  // namespace pellmark::test
