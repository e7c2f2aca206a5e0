#pragma once

#include "knowledge/KnowledgeBaseService.h"
#include "support/FakeTables.h"

namespace pellmark::test {

/// Feature cases and the model behind the filters over the fake's tables.
class FakeFeatureCaseStore : public FeatureCaseStore {
  public:
    explicit FakeFeatureCaseStore(FakeTables& tables) : tables_(tables) {}

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

  private:
    bool applies(const FakeTables::Process& process, const std::string& materialClassId, int style) const;

    FakeTables& tables_;
};

}  // namespace pellmark::test
