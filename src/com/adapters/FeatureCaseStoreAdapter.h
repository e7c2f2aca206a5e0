#pragma once

#include "com/adapters/StoreAdapter.h"
#include "knowledge/KnowledgeBaseService.h"

namespace pellmark {

/// The host's feature cases and the model behind their filters, reached by name.
class FeatureCaseStoreAdapter : public FeatureCaseStore, private StoreAdapter {
  public:
    explicit FeatureCaseStoreAdapter(std::shared_ptr<DispatchObject> service)
        : StoreAdapter(std::move(service), "FeatureCaseStore") {}

    std::vector<pNode> processesOfValues(const FeatureCaseDescription& description, int style) override;
    std::string createFeatureCase(const FeatureCaseDescription& description) override;
    void addValue(const std::string& valueId, const std::string& featureCaseId) override;
    std::vector<FeatureCaseMatch> matches(const std::string& featureTypeId,
                                          const std::vector<std::string>& valueIds) override;
    std::shared_ptr<RecordSet> nvxFeatureTypes() override;
    std::shared_ptr<RecordSet> partTypes() override;
    std::shared_ptr<RecordSet> materialClasses() override;
    std::shared_ptr<RecordSet> featureTypes(std::int16_t nvxFeatureType, const std::string& partTypeId,
                                            std::int16_t unitCode) override;
    std::shared_ptr<RecordSet> keys(const std::string& featureTypeId) override;
    std::shared_ptr<RecordSet> values(const std::string& featureTypeId) override;
};

}  // namespace pellmark
