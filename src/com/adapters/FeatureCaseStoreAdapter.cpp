#include "com/adapters/FeatureCaseStoreAdapter.h"

#include "com/adapters/HostRecords.h"

namespace pellmark {

std::vector<pNode> FeatureCaseStoreAdapter::processesOfValues(const FeatureCaseDescription& description,
                                                              int style) {
    const DispatchResult result =
        call("ProcessesOfValues",
             {description.featureTypeId, arrayOf(description.valueIds), description.nvxFeatureType,
              description.partTypeId, description.unit, description.materialClassId, description.processUnit,
              static_cast<std::int32_t>(style)});
    std::vector<pNode> nodes;
    for (const auto& record :
         readRecords(result, {"id", "FeatureCaseId", "Name", "unit", "Rule", "Description", "ExactMatch"})) {
        nodes.push_back({record[0], record[1], record[2], int16Of(record[3], result), record[4], record[5],
                         flagOf(record[6])});
    }
    return nodes;
}

std::string FeatureCaseStoreAdapter::createFeatureCase(const FeatureCaseDescription& description) {
    return call("CreateFeatureCase",
                {description.featureTypeId, description.nvxFeatureType, description.partTypeId,
                 description.unit, description.materialClassId, description.processUnit})
        .text();
}

void FeatureCaseStoreAdapter::addValue(const std::string& valueId, const std::string& featureCaseId) {
    call("AddValue", {valueId, featureCaseId});
}

std::vector<FeatureCaseMatch> FeatureCaseStoreAdapter::matches(const std::string& featureTypeId,
                                                               const std::vector<std::string>& valueIds) {
    const DispatchResult result = call("Matches", {featureTypeId, arrayOf(valueIds)});
    std::vector<FeatureCaseMatch> found;
    for (const auto& record : readRecords(result, {"FeatureCaseId", "FeatureTypeId", "ExactMatch"})) {
        found.push_back({record[0], record[1], flagOf(record[2])});
    }
    return found;
}

std::shared_ptr<RecordSet> FeatureCaseStoreAdapter::nvxFeatureTypes() {
    return query("NvxFeatureTypes");
}

std::shared_ptr<RecordSet> FeatureCaseStoreAdapter::partTypes() {
    return query("PartTypes");
}

std::shared_ptr<RecordSet> FeatureCaseStoreAdapter::materialClasses() {
    return query("MaterialClasses");
}

std::shared_ptr<RecordSet> FeatureCaseStoreAdapter::featureTypes(std::int16_t nvxFeatureType,
                                                                 const std::string& partTypeId,
                                                                 std::int16_t unitCode) {
    return query("FeatureTypes", {nvxFeatureType, partTypeId, unitCode});
}

std::shared_ptr<RecordSet> FeatureCaseStoreAdapter::keys(const std::string& featureTypeId) {
    return query("Keys", {featureTypeId});
}

std::shared_ptr<RecordSet> FeatureCaseStoreAdapter::values(const std::string& featureTypeId) {
    return query("Values", {featureTypeId});
}

}  // namespace pellmark
