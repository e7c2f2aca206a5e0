#pragma once

#include <memory>

#include "knowledge/KnowledgeBaseService.h"
#include "refhost/store/KnowledgeBase.h"

namespace norvex {

/// Feature cases with their values, and the model of feature types, keys and values.
class SqliteFeatureCaseStore : public pellmark::FeatureCaseStore {
  public:
    explicit SqliteFeatureCaseStore(std::shared_ptr<KnowledgeBase> base);

    std::vector<pellmark::pNode> processesOfValues(const pellmark::FeatureCaseDescription& description,
                                                   int style) override;
    std::string createFeatureCase(const pellmark::FeatureCaseDescription& description) override;
    void addValue(const std::string& valueId, const std::string& featureCaseId) override;
    std::vector<pellmark::FeatureCaseMatch> matches(const std::string& featureTypeId,
                                                    const std::vector<std::string>& valueIds) override;
    std::shared_ptr<pellmark::RecordSet> nvxFeatureTypes() override;
    std::shared_ptr<pellmark::RecordSet> partTypes() override;
    std::shared_ptr<pellmark::RecordSet> materialClasses() override;
    std::shared_ptr<pellmark::RecordSet> featureTypes(std::int16_t nvxFeatureType,
                                                      const std::string& partTypeId,
                                                      std::int16_t unitCode) override;
    std::shared_ptr<pellmark::RecordSet> keys(const std::string& featureTypeId) override;
    std::shared_ptr<pellmark::RecordSet> values(const std::string& featureTypeId) override;

  private:
    Connection& connection() { return base_->connection(); }
    static std::shared_ptr<pellmark::RecordSet> idsAndNames(class Statement& list);

    std::shared_ptr<KnowledgeBase> base_;
};

}  // namespace norvex
